// Searches the bit positions of the byte-sliced kernel and prints them as the lists in
// src/crypto/kernels/byte_wiring.h.
//
//   vandpublic-search-wiring SECONDS SEED
//
// In that kernel an S-box is a byte in, a byte out. Its four output bits feed six inputs of six
// different S-boxes (two bits feed two), and its six inputs come from six different S-boxes. So
// the 48 wires can be given six colours with all wires of one source and all of one target
// different; the colour is the bit position, in the byte that leaves the source and in the byte
// that enters the target. A target then collects one bit each from six bytes by bitwise selects:
// three pairs first, then the pairs. A pair (two sources and the mask that says which bits come
// from which) can serve several targets. The annealing looks for colours and pairs with few
// different pairs; of those it keeps the ones that need the fewest different masks.
#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <set>
#include <vector>

#include "crypto/des_table_text.h"

namespace {

constexpr int kBoxes = 8;
constexpr int kColours = 6;

// wire_source[t][i]: the S-box whose output is input i of S-box t.
std::array<std::array<int, 6>, 8> WireSources() {
  using namespace vandpublic::des;
  std::array<std::array<int, 6>, 8> sources{};
  for (std::size_t t = 0; t < 8; ++t) {
    for (std::size_t i = 0; i < 6; ++i) {
      sources[t][i] = (kRoundPermutation[kExpansion[6 * t + i] - 1u] - 1) / 4;
    }
  }
  return sources;
}

// A pair as one target uses it: source u gives colour cu, source v gives cv; u < v.
struct Use {
  int u, v, cu, cv;
};

struct State {
  // source[t][c]: the S-box that gives target t its bit c.
  std::array<std::array<int, kColours>, kBoxes> source{};
  // pairing[t]: the colours of target t in an order whose neighbours are paired.
  std::array<std::array<int, kColours>, kBoxes> pairing{};
};

// Uses that share one select: which bits it takes from u, and which from v.
struct Group {
  int u, v;
  unsigned from_u, from_v;
  std::vector<int> targets;
};

std::vector<Group> Groups(const State& state) {
  std::vector<Group> groups;
  for (int t = 0; t < kBoxes; ++t) {
    const auto& colours = state.pairing[std::size_t(t)];
    for (std::size_t p = 0; p < kColours; p += 2) {
      int cu = colours[p], cv = colours[p + 1];
      int u = state.source[std::size_t(t)][std::size_t(cu)];
      int v = state.source[std::size_t(t)][std::size_t(cv)];
      if (u > v) std::swap(u, v), std::swap(cu, cv);
      const unsigned bit_u = 1u << cu, bit_v = 1u << cv;
      const auto fits = [&](const Group& g) {
        return g.u == u && g.v == v && (g.from_u & bit_v) == 0 && (g.from_v & bit_u) == 0;
      };
      auto group = std::find_if(groups.begin(), groups.end(), fits);
      if (group == groups.end()) group = groups.insert(group, Group{u, v, 0, 0, {}});
      group->from_u |= bit_u;
      group->from_v |= bit_v;
      group->targets.push_back(t);
    }
  }
  return groups;
}

// Swaps two colours along the closed path of wires that starts at this target.
void SwapColours(State& state, int start, int a, int b) {
  std::set<int> done;
  std::vector<int> todo = {start};
  while (!todo.empty()) {
    const int t = todo.back();
    todo.pop_back();
    if (!done.insert(t).second) continue;
    auto& row = state.source[std::size_t(t)];
    std::swap(row[std::size_t(a)], row[std::size_t(b)]);
    for (int other = 0; other < kBoxes; ++other) {
      const auto& o = state.source[std::size_t(other)];
      if (done.contains(other)) continue;
      if (o[std::size_t(a)] == row[std::size_t(a)] || o[std::size_t(b)] == row[std::size_t(b)]) {
        todo.push_back(other);
      }
    }
  }
}

// Proper colours to start with, by trying.
bool Colour(const std::array<std::array<int, 6>, 8>& wires, State& state, int t, std::size_t i) {
  if (t == kBoxes) return true;
  if (i == 6) return Colour(wires, state, t + 1, 0);
  for (std::size_t c = 0; c < kColours; ++c) {
    if (state.source[std::size_t(t)][c] >= 0) continue;
    bool free = true;
    for (int other = 0; other < t; ++other) {
      free = free && state.source[std::size_t(other)][c] != wires[std::size_t(t)][i];
    }
    if (!free) continue;
    state.source[std::size_t(t)][c] = wires[std::size_t(t)][i];
    if (Colour(wires, state, t, i + 1)) return true;
    state.source[std::size_t(t)][c] = -1;
  }
  return false;
}

State Changed(const State& from, std::mt19937& random) {
  State next = from;
  const int t = static_cast<int>(random() % kBoxes);
  if (random() % 2 == 0) {
    const int a = static_cast<int>(random() % kColours);
    const int b =
        static_cast<int>((static_cast<unsigned>(a) + 1 + random() % (kColours - 1)) % kColours);
    SwapColours(next, t, a, b);
  } else {
    auto& row = next.pairing[std::size_t(t)];
    std::swap(row[random() % kColours], row[random() % kColours]);
  }
  return next;
}

// A mask and its complement do the same work, so masks are 0 to 31: those without bit 5.
unsigned Class(unsigned mask) { return (mask & 32) != 0 ? ~mask & 63 : mask; }

// Which masks can do a select that takes `one` from one side and `other` from the other side.
std::uint32_t Fitting(unsigned one, unsigned other) {
  std::uint32_t fitting = 0;
  for (unsigned mask = 0; mask < 64; ++mask) {
    if ((mask & one) == one && (mask & other) == 0) fitting |= 1u << Class(mask);
  }
  return fitting;
}

struct TargetPlan {
  std::array<int, 3> pairs{};  // the last one is selected last
  unsigned first_mask = 0, last_mask = 0;
};

unsigned PairColours(const State& state, int t, int pair) {
  const auto& row = state.pairing[std::size_t(t)];
  return 1u << row[std::size_t(2 * pair)] | 1u << row[std::size_t(2 * pair + 1)];
}

bool TargetFits(const State& state, int t, std::uint32_t masks) {
  for (int last = 0; last < 3; ++last) {
    const unsigned l = PairColours(state, t, last);
    const unsigned a = PairColours(state, t, (last + 1) % 3);
    const unsigned b = PairColours(state, t, (last + 2) % 3);
    if ((masks >> Class(l) & 1) != 0 && (masks & Fitting(a, b)) != 0) return true;
  }
  return false;
}

bool AllFit(const State& state, const std::vector<Group>& groups, std::uint32_t masks) {
  for (const Group& g : groups) {
    if ((masks & Fitting(g.from_u, g.from_v)) == 0) return false;
  }
  for (int t = 0; t < kBoxes; ++t) {
    if (!TargetFits(state, t, masks)) return false;
  }
  return true;
}

// The fewest masks, at most `limit`, as a set of classes; 0 when there are none.
std::uint32_t FewestMasks(const State& state, int limit) {
  const std::vector<Group> groups = Groups(state);
  for (int count = 3; count <= limit; ++count) {
    std::uint32_t masks = (1u << count) - 1;
    while (masks != 0) {
      if (AllFit(state, groups, masks)) return masks;
      const std::uint32_t low = masks & (~masks + 1);
      const std::uint64_t ripple = std::uint64_t{masks} + low;
      if (ripple >> 32 != 0) break;
      masks = static_cast<std::uint32_t>(ripple | (((masks ^ ripple) >> 2) / low));
    }
  }
  return 0;
}

void Print(const State& state, std::uint32_t masks) {
  const std::vector<Group> groups = Groups(state);
  std::printf("// %zu pairs, masks", groups.size());
  for (unsigned mask = 0; mask < 32; ++mask) {
    if ((masks >> mask & 1) != 0) std::printf(" %u", mask);
  }
  std::printf("\nsources:\n");
  for (const auto& row : state.source) {
    std::printf("{");
    for (const int s : row)
      std::printf("%d, ", s);
    std::printf("},\n");
  }
  std::printf("pairs (u, v, bits from u, bits from v; targets):\n");
  for (const Group& g : groups) {
    std::printf("{%d, %d, %u, %u} ", g.u, g.v, g.from_u, g.from_v);
    for (const int t : g.targets)
      std::printf(" %d", t);
    std::printf("\n");
  }
  std::fflush(stdout);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: vandpublic-search-wiring SECONDS SEED\n");
    return 2;
  }
  using Clock = std::chrono::steady_clock;
  const auto end = Clock::now() + std::chrono::seconds(std::atoi(argv[1]));
  std::mt19937 random(static_cast<unsigned>(std::atoi(argv[2])));
  State state;
  for (auto& row : state.source)
    row.fill(-1);
  for (auto& row : state.pairing)
    row = {0, 1, 2, 3, 4, 5};
  if (!Colour(WireSources(), state, 0, 0)) return 1;

  std::size_t best_pairs = 24;
  int best_masks = 9;
  while (Clock::now() < end) {
    std::size_t cost = Groups(state).size();
    for (double heat = 1.2; heat > 0.15; heat *= 0.99995) {
      const State next = Changed(state, random);
      const std::size_t next_cost = Groups(next).size();
      const double worse = static_cast<double>(next_cost) - static_cast<double>(cost);
      const double draw = std::uniform_real_distribution<double>(0, 1)(random);
      if (worse > 0 && draw > std::exp(-worse / heat)) continue;
      state = next;
      cost = next_cost;
      if (cost > best_pairs) continue;
      if (cost < best_pairs) best_masks = 9;
      best_pairs = cost;
      if (cost > 10) continue;
      const std::uint32_t masks = FewestMasks(state, best_masks - 1);
      if (masks == 0) continue;
      best_masks = __builtin_popcount(masks);
      Print(state, masks);
    }
    std::printf("# best so far: %zu pairs\n", best_pairs);
    std::fflush(stdout);
  }
  return 0;
}
