// The search behind Solve.
#include "solver.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace circuits {
namespace {

constexpr std::size_t kListLimit = 700;

struct Pair {
  Op op;
  int a;
  int b;
};

// Every function that one gate makes of two signals, under a mask, with a hash by value.
class Pairs {
 public:
  Pairs(const Circuit& circuit, Table mask) : mask_(mask) {
    const auto& s = circuit.signals;
    const int count = static_cast<int>(s.size());
    std::size_t slots = 1024;
    while (slots < 20 * s.size() * s.size() / 4)
      slots *= 2;
    slots_.assign(slots, -1);
    for (int i = 0; i < count; ++i) {
      for (int j = i + 1; j < count; ++j) {
        Insert(circuit, {Op::And, i, j});
        Insert(circuit, {Op::Or, i, j});
        Insert(circuit, {Op::Xor, i, j});
        Insert(circuit, {Op::AndNot, i, j});
        Insert(circuit, {Op::AndNot, j, i});
      }
    }
  }

  // The index of a pair with this value under the mask, or -1.
  int Find(Table value) const { return slots_[SlotOf(value & mask_)]; }
  const std::vector<Table>& values() const { return values_; }
  const Pair& operator[](std::size_t i) const { return pairs_[i]; }

 private:
  std::size_t SlotOf(Table value) const {
    std::size_t slot = (value * 0x9E3779B97F4A7C15u) >> 20 & (slots_.size() - 1);
    while (slots_[slot] >= 0 && values_[std::size_t(slots_[slot])] != value)
      slot = (slot + 1) & (slots_.size() - 1);
    return slot;
  }
  void Insert(const Circuit& circuit, Pair pair) {
    const Table value = mask_ & Apply(pair.op, circuit.signals[std::size_t(pair.a)],
                                      circuit.signals[std::size_t(pair.b)]);
    int& slot = slots_[SlotOf(value)];
    if (slot >= 0) return;
    slot = static_cast<int>(values_.size());
    values_.push_back(value);
    pairs_.push_back(pair);
  }

  Table mask_;
  std::vector<int> slots_;
  std::vector<Table> values_;
  std::vector<Pair> pairs_;
};

// Finds x in the first list and y in the second with x op y = target, as indices. The lists are
// values under the mask.
std::optional<std::pair<std::size_t, std::size_t>> FindOp(Op op, const std::vector<Table>& first,
                                                          const std::vector<Table>& second,
                                                          Table target, Table mask) {
  std::vector<std::size_t> left;
  std::vector<std::size_t> right;
  for (std::size_t i = 0; i < first.size() && left.size() < kListLimit; ++i) {
    const bool fits = op == Op::Or ? (first[i] & ~target) == 0 : (~first[i] & target) == 0;
    if (fits) left.push_back(i);
  }
  if (left.empty()) return std::nullopt;
  for (std::size_t i = 0; i < second.size() && right.size() < kListLimit; ++i) {
    const bool fits = op == Op::Or    ? (second[i] & ~target) == 0
                      : op == Op::And ? (~second[i] & target) == 0
                                      : (second[i] & target) == 0;
    if (fits) right.push_back(i);
  }
  for (const std::size_t i : left) {
    for (const std::size_t j : right) {
      if ((Apply(op, first[i], second[j]) & mask) == target) return std::pair{i, j};
    }
  }
  return std::nullopt;
}

class Search {
 public:
  Search(Circuit& circuit, std::mt19937& random) : circuit_(circuit), random_(random) {}

  int Run(Table target, Table mask, int budget, unsigned split, int depth) {
    target &= mask;
    if (const int found = Existing(target, mask); found >= 0) return found;
    if (budget < 1) return -1;
    const Pairs pairs(circuit_, mask);
    if (const int hit = pairs.Find(target); hit >= 0) return Add(pairs[std::size_t(hit)]);
    if (budget < 2) return -1;
    if (const int found = TwoGates(pairs, target, mask); found >= 0) return found;
    if (budget < 3) return -1;
    if (const int found = ThreeGates(pairs, target, mask); found >= 0) return found;
    return Split(target, mask, budget, split, depth);
  }

 private:
  int Existing(Table target, Table mask) const {
    for (std::size_t i = 0; i < circuit_.signals.size(); ++i) {
      if ((circuit_.signals[i] & mask) == target) return static_cast<int>(i);
    }
    return -1;
  }
  int Add(const Pair& pair) { return circuit_.Add(pair.op, pair.a, pair.b); }

  std::vector<Table> Masked(Table mask) const {
    std::vector<Table> values = circuit_.signals;
    for (Table& value : values)
      value &= mask;
    return values;
  }

  // A signal and a gate of two signals, joined by a gate.
  int TwoGates(const Pairs& pairs, Table target, Table mask) {
    const std::vector<Table> signals = Masked(mask);
    for (std::size_t i = 0; i < signals.size(); ++i) {
      const int hit = pairs.Find(target ^ signals[i]);
      if (hit >= 0) return circuit_.Add(Op::Xor, static_cast<int>(i), Add(pairs[std::size_t(hit)]));
    }
    for (const Op op : {Op::And, Op::Or, Op::AndNot}) {
      if (const auto hit = FindOp(op, pairs.values(), signals, target, mask)) {
        return circuit_.Add(op, Add(pairs[hit->first]), static_cast<int>(hit->second));
      }
    }
    if (const auto hit = FindOp(Op::AndNot, signals, pairs.values(), target, mask)) {
      const int inner = Add(pairs[hit->second]);
      return circuit_.Add(Op::AndNot, static_cast<int>(hit->first), inner);
    }
    return -1;
  }

  // Two gates of two signals each, joined by a gate.
  int ThreeGates(const Pairs& pairs, Table target, Table mask) {
    const auto& values = pairs.values();
    for (std::size_t i = 0; i < values.size(); ++i) {
      const int hit = pairs.Find(target ^ values[i]);
      if (hit < 0) continue;
      const int first = Add(pairs[i]);
      return circuit_.Add(Op::Xor, first, Add(pairs[std::size_t(hit)]));
    }
    for (const Op op : {Op::And, Op::Or, Op::AndNot}) {
      if (const auto hit = FindOp(op, values, values, target, mask)) {
        const int first = Add(pairs[hit->first]);
        return circuit_.Add(op, first, Add(pairs[hit->second]));
      }
    }
    return -1;
  }

  // One way to split the function; the circuit is left as it was when it fails.
  int SplitOff(int input, bool with_or, Table target, Table mask, int budget, unsigned split,
               int depth) {
    const Table where = circuit_.signals[std::size_t(input)];
    const std::size_t before = circuit_.gates.size();
    const auto spent = [&] { return static_cast<int>(circuit_.gates.size() - before); };
    const unsigned rest = split & ~(1u << input);
    // AND: g is right where the input is 0, h makes up for it where it is 1. OR: the other way
    // round, with g complemented.
    const Table first_mask = with_or ? mask & where : mask & ~where;
    const Table second_mask = mask & ~first_mask;
    const int g = Run(with_or ? ~target : target, first_mask, budget - 2, rest, depth + 1);
    if (g >= 0) {
      const int h = Run(target ^ circuit_.signals[std::size_t(g)], second_mask,
                        budget - 2 - spent(), rest, depth + 1);
      if (h >= 0) {
        const int joined = circuit_.Add(with_or ? Op::Or : Op::And, input, h);
        return circuit_.Add(Op::Xor, g, joined);
      }
    }
    Restore(before);
    return -1;
  }

  int Split(Table target, Table mask, int budget, unsigned split, int depth) {
    std::vector<std::pair<int, bool>> ways;
    for (int input = 0; input < kInputs; ++input) {
      if ((split >> input & 1) == 0) continue;
      ways.emplace_back(input, false);
      ways.emplace_back(input, true);
    }
    std::shuffle(ways.begin(), ways.end(), random_);
    constexpr std::array<std::size_t, 4> kTries = {6, 3, 2, 1};
    ways.resize(std::min(ways.size(), kTries[std::size_t(std::min(depth, 3))]));

    const Circuit start = circuit_;
    Circuit best;
    int best_signal = -1;
    for (const auto& [input, with_or] : ways) {
      const int signal = SplitOff(input, with_or, target, mask, budget, split, depth);
      if (signal < 0) continue;
      budget = circuit_.Size() - start.Size() - 1;
      best = std::exchange(circuit_, start);
      best_signal = signal;
    }
    if (best_signal >= 0) circuit_ = best;
    return best_signal;
  }

  void Restore(std::size_t gates) {
    circuit_.gates.resize(gates);
    circuit_.signals.resize(gates + kInputs);
  }

  Circuit& circuit_;
  std::mt19937& random_;
};

}  // namespace

int Solve(Circuit& circuit, Table target, Table mask, int budget, std::mt19937& random) {
  return Search(circuit, random).Run(target, mask, budget, 63, 0);
}

}  // namespace circuits
