// Searches circuits for the S-boxes of DES and prints them as the lists in
// src/crypto/kernels/sbox_circuits.h.
//
//   vandpublic-search-sboxes BOX SECONDS SEED     box 1 to 8
//
// It builds a circuit output by output, then again and again tears one, two or three outputs out
// and solves them anew, keeping what is no larger. An output may come out complemented: the
// kernels cancel that at no cost.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "crypto/des_table_text.h"
#include "solver.h"

namespace circuits {
namespace {

// Output bit 0 is the standard's first, the one of weight 8.
Table OutputTable(std::size_t box, int output) {
  Table table = 0;
  for (unsigned i = 0; i < 64; ++i) {
    const unsigned row = (i >> 4 & 2) | (i & 1);
    const unsigned column = i >> 1 & 15;
    const unsigned value = vandpublic::des::kSubstitution[64 * box + 16 * row + column];
    table |= Table{(value >> (3 - output)) & 1} << i;
  }
  return table;
}

struct Solution {
  Circuit circuit;
  Outputs outputs = {-1, -1, -1, -1};
};

class BoxSearch {
 public:
  BoxSearch(std::size_t box, unsigned seed) : random_(seed) {
    for (int i = 0; i < kOutputs; ++i)
      targets_[std::size_t(i)] = OutputTable(box, i);
  }

  // Solves the outputs that are missing in random order; false when that takes too many gates.
  bool Complete(Solution& solution, int limit) {
    std::vector<std::size_t> missing;
    for (std::size_t i = 0; i < kOutputs; ++i) {
      if (solution.outputs[i] < 0) missing.push_back(i);
    }
    std::shuffle(missing.begin(), missing.end(), random_);
    for (const std::size_t i : missing) {
      const Table target = random_() % 2 == 0 ? targets_[i] : ~targets_[i];
      const int budget = limit - solution.circuit.Size();
      const int signal = Solve(solution.circuit, target, kAll, budget, random_);
      if (signal < 0) return false;
      solution.outputs[i] = signal;
    }
    return true;
  }

  // One step of the local search from this solution.
  Solution Step(const Solution& from, int slack) {
    Solution next = from;
    const unsigned torn = random_() % 8 == 0 ? 3 : 1 + random_() % 2;
    for (unsigned i = 0; i < torn; ++i)
      next.outputs[random_() % kOutputs] = -1;
    next.circuit = Pruned(next.circuit, next.outputs);
    if (!Complete(next, from.circuit.Size() + slack)) return from;
    next.circuit = Pruned(next.circuit, next.outputs);
    return next;
  }

  bool Complemented(const Solution& solution, std::size_t output) const {
    return solution.circuit.signals[std::size_t(solution.outputs[output])] != targets_[output];
  }

 private:
  std::array<Table, kOutputs> targets_{};
  std::mt19937 random_;
};

void Print(std::size_t box, const BoxSearch& search, const Solution& solution) {
  std::printf("// S%zu: %d gates\n{{", box + 1, solution.circuit.Size());
  constexpr std::array<const char*, 4> kNames = {"And", "Or", "Xor", "AndNot"};
  for (const Gate& gate : solution.circuit.gates) {
    std::printf("{%s, %d, %d}, ", kNames[std::size_t(gate.op)], gate.a, gate.b);
  }
  std::printf("}, %d, {", solution.circuit.Size());
  for (std::size_t i = 0; i < kOutputs; ++i) {
    std::printf("{%d, %s}, ", solution.outputs[i],
                search.Complemented(solution, i) ? "true" : "false");
  }
  std::printf("}},\n");
  std::fflush(stdout);
}

int Run(std::size_t box, int seconds, unsigned seed) {
  using Clock = std::chrono::steady_clock;
  const auto end = Clock::now() + std::chrono::seconds(seconds);
  BoxSearch search(box, seed);
  Solution best;
  int best_size = 1000;
  while (Clock::now() < end) {
    Solution current;
    if (!search.Complete(current, 90)) continue;
    current.circuit = Pruned(current.circuit, current.outputs);
    int idle = 0;
    while (Clock::now() < end && idle < 1500) {
      Solution next = search.Step(current, 0);
      idle = next.circuit.Size() < current.circuit.Size() ? 0 : idle + 1;
      current = std::move(next);
      if (current.circuit.Size() < best_size) {
        best = current;
        best_size = current.circuit.Size();
        Print(box, search, best);
      }
    }
  }
  return 0;
}

}  // namespace
}  // namespace circuits

int main(int argc, char** argv) {
  if (argc != 4) {
    std::fprintf(stderr, "usage: vandpublic-search-sboxes BOX SECONDS SEED\n");
    return 2;
  }
  const int box = std::atoi(argv[1]);
  if (box < 1 || box > 8) return 2;
  return circuits::Run(static_cast<std::size_t>(box - 1), std::atoi(argv[2]),
                       static_cast<unsigned>(std::atoi(argv[3])));
}
