// A circuit of two-input gates over six inputs, each signal kept as its truth table: bit i of the
// table is the signal's value for input i.
#ifndef VANDPUBLIC_TOOLS_CIRCUITS_CIRCUIT_H
#define VANDPUBLIC_TOOLS_CIRCUITS_CIRCUIT_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace circuits {

using Table = std::uint64_t;

// AndNot is a AND NOT b.
enum class Op : std::uint8_t { And, Or, Xor, AndNot };

struct Gate {
  Op op;
  int a;
  int b;
};

inline Table Apply(Op op, Table a, Table b) {
  switch (op) {
    case Op::And:
      return a & b;
    case Op::Or:
      return a | b;
    case Op::Xor:
      return a ^ b;
    case Op::AndNot:
      return a & ~b;
  }
  return 0;
}

inline constexpr int kInputs = 6;
inline constexpr int kOutputs = 4;
inline constexpr Table kAll = ~Table{0};

// Input i is bit 5 - i of the six-bit number: input 0 is the first bit of the standard's six.
inline Table InputTable(int input) {
  Table table = 0;
  for (unsigned i = 0; i < 64; ++i)
    table |= Table{(i >> (5 - input)) & 1} << i;
  return table;
}

// Signals 0 to 5 are the inputs, signal 6 + g is gate g.
struct Circuit {
  std::vector<Table> signals;
  std::vector<Gate> gates;

  Circuit() {
    for (int i = 0; i < kInputs; ++i)
      signals.push_back(InputTable(i));
  }
  int Add(Op op, int a, int b) {
    gates.push_back({op, a, b});
    signals.push_back(Apply(op, signals[std::size_t(a)], signals[std::size_t(b)]));
    return static_cast<int>(signals.size()) - 1;
  }
  int Size() const { return static_cast<int>(gates.size()); }
};

using Outputs = std::array<int, kOutputs>;

// The circuit without the gates that the outputs (-1: none) do not need; the outputs renumbered.
inline Circuit Pruned(const Circuit& circuit, Outputs& outputs) {
  std::vector<char> needed(circuit.signals.size(), 0);
  for (const int output : outputs) {
    if (output >= 0) needed[std::size_t(output)] = 1;
  }
  for (std::size_t s = circuit.signals.size(); s-- > kInputs;) {
    const Gate& gate = circuit.gates[s - kInputs];
    if (needed[s]) needed[std::size_t(gate.a)] = needed[std::size_t(gate.b)] = 1;
  }
  Circuit pruned;
  std::vector<int> place(circuit.signals.size(), 0);
  for (std::size_t s = 0; s < circuit.signals.size(); ++s) {
    if (s < kInputs) {
      place[s] = static_cast<int>(s);
    } else if (needed[s]) {
      const Gate& gate = circuit.gates[s - kInputs];
      place[s] = pruned.Add(gate.op, place[std::size_t(gate.a)], place[std::size_t(gate.b)]);
    }
  }
  for (int& output : outputs) {
    if (output >= 0) output = place[std::size_t(output)];
  }
  return pruned;
}

}  // namespace circuits

#endif
