// The S-boxes as circuits of two-input gates, for the bit-sliced kernels: short lists, found by
// tools/circuits/search_sboxes and checked here on all inputs.
//
// Signals 0 to 5 are the six inputs in the standard's order, signal 6 + g is what gate g gives. An
// output may come out complemented; the kernels make up for it in the key masks.
#ifndef VANDPUBLIC_CRYPTO_KERNELS_SBOX_CIRCUITS_H
#define VANDPUBLIC_CRYPTO_KERNELS_SBOX_CIRCUITS_H

#include <cstddef>
#include <cstdint>

#include "crypto/des_table_text.h"

namespace vandpublic::des {

enum class GateOp : std::uint8_t { And, Or, Xor, AndNot };  // AndNot: a AND NOT b

struct Gate {
  GateOp op;
  std::uint8_t a;
  std::uint8_t b;
};

struct CircuitOutput {
  std::uint8_t signal;
  bool complemented;
};

inline constexpr std::size_t kMostGates = 60;

struct SboxCircuit {
  Gate gate[kMostGates];
  std::size_t gates;
  CircuitOutput output[4];  // the standard's order: weights 8, 4, 2, 1
};

// clang-format off
namespace gates {
using enum GateOp;
inline constexpr SboxCircuit kSboxCircuits[8] = {
// S1: 56 gates
{{{Xor, 0, 3}, {AndNot, 2, 0}, {Xor, 2, 6}, {Or, 7, 8}, {Or, 5, 9}, {Xor, 6, 10}, {Xor, 1, 8},
{Or, 5, 11}, {Xor, 12, 13}, {And, 1, 14}, {Xor, 11, 15}, {AndNot, 13, 16}, {Xor, 12, 17}, {Xor, 5,
8}, {AndNot, 18, 19}, {And, 3, 20}, {Xor, 18, 21}, {Or, 4, 22}, {Xor, 16, 23}, {AndNot, 10, 4},
{Xor, 5, 25}, {Or, 14, 24}, {And, 0, 27}, {Xor, 26, 28}, {AndNot, 13, 8}, {Or, 1, 30}, {And, 4,
9}, {And, 14, 24}, {Or, 32, 33}, {And, 3, 34}, {Xor, 31, 35}, {Xor, 1, 9}, {AndNot, 29, 22}, {Or,
37, 38}, {And, 0, 32}, {Xor, 4, 19}, {Xor, 40, 41}, {And, 1, 39}, {Xor, 42, 43}, {Or, 28, 36},
{Xor, 17, 45}, {And, 3, 46}, {Xor, 44, 47}, {Xor, 14, 23}, {Xor, 4, 37}, {Or, 50, 24}, {Or, 5,
51}, {Xor, 49, 52}, {AndNot, 38, 16}, {Xor, 26, 54}, {Xor, 10, 46}, {Or, 1, 56}, {Xor, 55, 57},
{And, 0, 58}, {Xor, 53, 59}, {Xor, 29, 36}}, 56, {{48, true}, {61, true}, {24, true}, {60,
false}}},
// S2: 52 gates
{{{Xor, 2, 4}, {Xor, 1, 6}, {Xor, 0, 4}, {AndNot, 1, 2}, {Or, 8, 9}, {And, 0, 10}, {Or, 0, 2},
{Xor, 8, 9}, {AndNot, 12, 13}, {AndNot, 7, 11}, {Or, 1, 4}, {And, 3, 16}, {AndNot, 17, 1}, {Or, 9,
15}, {Xor, 18, 19}, {And, 0, 20}, {Xor, 9, 21}, {Xor, 5, 13}, {And, 14, 16}, {AndNot, 15, 23},
{Or, 24, 25}, {AndNot, 0, 6}, {Xor, 15, 17}, {Xor, 27, 28}, {Or, 5, 22}, {Xor, 29, 30}, {Xor, 7,
11}, {Or, 14, 20}, {And, 5, 33}, {Xor, 32, 34}, {Or, 3, 26}, {Xor, 35, 36}, {Or, 4, 31}, {Xor, 23,
38}, {Xor, 3, 34}, {Or, 1, 40}, {Xor, 39, 41}, {And, 5, 39}, {AndNot, 23, 6}, {Xor, 43, 44}, {And,
0, 45}, {Xor, 42, 46}, {And, 2, 30}, {Xor, 23, 48}, {AndNot, 1, 5}, {Xor, 3, 50}, {AndNot, 49,
11}, {Xor, 13, 52}, {And, 4, 53}, {Xor, 51, 54}, {And, 3, 55}, {Xor, 49, 56}}, 52, {{31, true},
{57, true}, {37, true}, {47, true}}},
// S3: 55 gates
{{{Xor, 0, 5}, {AndNot, 2, 4}, {Xor, 6, 7}, {Or, 4, 5}, {AndNot, 4, 2}, {And, 10, 5}, {And, 0,
11}, {Xor, 9, 12}, {And, 3, 13}, {And, 3, 5}, {Xor, 3, 9}, {Or, 16, 0}, {Or, 2, 17}, {Xor, 15,
18}, {Xor, 4, 6}, {Or, 0, 19}, {Or, 1, 21}, {Xor, 20, 22}, {And, 6, 9}, {Or, 24, 1}, {And, 2, 25},
{Xor, 23, 26}, {And, 1, 9}, {Xor, 4, 11}, {Xor, 28, 29}, {And, 0, 30}, {Xor, 30, 31}, {Or, 3, 32},
{Xor, 27, 33}, {Xor, 8, 14}, {Xor, 16, 28}, {Or, 36, 35}, {Or, 3, 20}, {And, 17, 34}, {Xor, 38,
39}, {And, 4, 40}, {Xor, 37, 41}, {And, 0, 1}, {AndNot, 34, 36}, {Or, 43, 44}, {Or, 2, 45}, {Xor,
42, 46}, {And, 1, 19}, {Xor, 35, 48}, {Xor, 1, 10}, {Xor, 15, 38}, {Xor, 50, 51}, {Or, 4, 46},
{AndNot, 5, 44}, {Xor, 53, 54}, {AndNot, 36, 24}, {And, 3, 56}, {Xor, 55, 57}, {And, 0, 58}, {Xor,
52, 59}}, 55, {{34, true}, {49, false}, {47, true}, {60, false}}},
// S4: 44 gates
{{{And, 2, 4}, {Xor, 1, 6}, {Xor, 2, 3}, {Or, 1, 8}, {Xor, 4, 7}, {Or, 1, 4}, {AndNot, 10, 2},
{Xor, 3, 4}, {And, 9, 10}, {And, 3, 11}, {Xor, 2, 15}, {And, 2, 16}, {Xor, 14, 17}, {Xor, 13, 18},
{Xor, 12, 16}, {Xor, 1, 3}, {Xor, 6, 20}, {AndNot, 16, 22}, {Xor, 21, 23}, {And, 1, 2}, {And, 18,
22}, {Xor, 25, 26}, {Or, 0, 27}, {Xor, 24, 28}, {AndNot, 19, 14}, {Xor, 15, 30}, {Or, 0, 31},
{Xor, 18, 32}, {And, 5, 33}, {Xor, 29, 34}, {Xor, 33, 35}, {Xor, 5, 36}, {Xor, 11, 26}, {Xor, 2,
38}, {Or, 0, 39}, {Xor, 22, 40}, {AndNot, 21, 20}, {Xor, 39, 42}, {And, 0, 43}, {Xor, 19, 44},
{Or, 5, 45}, {Xor, 41, 46}, {Xor, 45, 47}, {Xor, 5, 48}}, 44, {{47, false}, {49, true}, {37,
true}, {35, true}}},
// S5: 57 gates
{{{AndNot, 1, 2}, {Xor, 2, 3}, {Or, 6, 7}, {AndNot, 3, 1}, {Xor, 2, 4}, {Or, 9, 10}, {Or, 0, 11},
{Xor, 8, 12}, {Or, 0, 13}, {Xor, 7, 9}, {Xor, 14, 15}, {Or, 4, 16}, {Xor, 13, 17}, {And, 0, 4},
{Xor, 17, 19}, {AndNot, 1, 4}, {Xor, 0, 21}, {And, 2, 22}, {Xor, 20, 23}, {And, 5, 24}, {Xor, 18,
25}, {Xor, 5, 10}, {Xor, 1, 27}, {Or, 21, 24}, {And, 0, 29}, {Xor, 28, 30}, {AndNot, 24, 0},
{AndNot, 26, 13}, {Xor, 32, 33}, {Xor, 8, 31}, {Or, 35, 26}, {And, 4, 36}, {Xor, 34, 37}, {Or, 3,
38}, {Xor, 31, 39}, {Or, 21, 28}, {Or, 5, 21}, {And, 3, 42}, {Xor, 41, 43}, {Or, 3, 34}, {Xor, 29,
45}, {AndNot, 28, 17}, {Xor, 2, 47}, {And, 5, 48}, {Xor, 46, 49}, {Or, 0, 50}, {Xor, 44, 51},
{AndNot, 26, 1}, {Xor, 40, 52}, {Xor, 53, 54}, {Or, 0, 26}, {Xor, 55, 56}, {Or, 14, 28}, {AndNot,
41, 26}, {Xor, 58, 59}, {Or, 4, 60}, {Xor, 57, 61}}, 57, {{62, false}, {40, false}, {52, true},
{26, false}}},
// S6: 53 gates
{{{Or, 1, 4}, {Xor, 2, 4}, {And, 6, 7}, {Xor, 0, 1}, {And, 2, 8}, {Xor, 9, 10}, {And, 0, 11},
{AndNot, 0, 2}, {AndNot, 4, 1}, {Or, 13, 14}, {Or, 5, 15}, {Or, 8, 15}, {Xor, 9, 17}, {Or, 2, 4},
{And, 3, 19}, {Xor, 18, 20}, {AndNot, 21, 11}, {Xor, 12, 16}, {Xor, 8, 23}, {AndNot, 4, 12}, {Xor,
5, 9}, {And, 25, 26}, {Or, 3, 27}, {Xor, 24, 28}, {Xor, 2, 17}, {AndNot, 5, 22}, {Xor, 7, 31},
{And, 0, 32}, {Xor, 30, 33}, {And, 0, 1}, {Xor, 6, 21}, {Xor, 35, 36}, {And, 5, 37}, {Xor, 21,
38}, {And, 3, 39}, {Xor, 34, 40}, {Xor, 1, 29}, {And, 21, 41}, {Xor, 42, 43}, {Or, 5, 22},
{AndNot, 5, 42}, {Xor, 34, 45}, {Or, 46, 47}, {Or, 4, 48}, {Xor, 45, 49}, {Xor, 44, 50}, {Or, 10,
50}, {And, 11, 44}, {Xor, 28, 53}, {Or, 0, 54}, {Xor, 52, 55}, {And, 5, 56}, {Xor, 21, 57}}, 53,
{{58, true}, {51, true}, {29, false}, {41, false}}},
// S7: 58 gates
{{{Xor, 0, 2}, {AndNot, 1, 3}, {Xor, 6, 7}, {Or, 1, 6}, {And, 9, 0}, {AndNot, 1, 0}, {Xor, 3, 11},
{And, 3, 12}, {Xor, 10, 13}, {Or, 4, 14}, {Xor, 8, 15}, {Or, 10, 16}, {Xor, 11, 17}, {And, 1, 18},
{Xor, 10, 18}, {Xor, 1, 20}, {Or, 4, 21}, {Xor, 19, 22}, {And, 3, 23}, {Xor, 18, 24}, {Xor, 12,
19}, {Xor, 8, 26}, {AndNot, 10, 8}, {Or, 5, 28}, {Xor, 27, 29}, {Xor, 4, 8}, {And, 9, 29}, {Xor,
31, 32}, {AndNot, 30, 1}, {And, 2, 34}, {Xor, 33, 35}, {Xor, 18, 34}, {Xor, 2, 37}, {And, 30, 36},
{And, 3, 39}, {Xor, 38, 40}, {Xor, 9, 25}, {Xor, 4, 42}, {Xor, 26, 41}, {And, 0, 44}, {Xor, 43,
45}, {And, 5, 46}, {Xor, 41, 47}, {AndNot, 1, 48}, {Or, 35, 49}, {And, 4, 50}, {Xor, 27, 51},
{And, 3, 52}, {Xor, 36, 53}, {AndNot, 3, 46}, {Or, 5, 12}, {Xor, 13, 56}, {And, 1, 57}, {Xor, 55,
58}, {Or, 4, 59}, {Xor, 30, 60}, {And, 5, 25}, {Xor, 16, 62}}, 58, {{48, false}, {54, true}, {63,
false}, {61, false}}},
// S8: 51 gates
{{{Xor, 0, 2}, {AndNot, 1, 3}, {Xor, 6, 7}, {AndNot, 2, 1}, {Xor, 3, 9}, {Or, 7, 9}, {Xor, 1, 11},
{Or, 0, 12}, {Xor, 10, 13}, {Or, 4, 14}, {Xor, 8, 15}, {Or, 4, 8}, {Or, 4, 16}, {Xor, 10, 17},
{Or, 9, 14}, {Or, 5, 20}, {Xor, 12, 21}, {AndNot, 6, 5}, {Xor, 7, 23}, {And, 4, 24}, {Xor, 22,
25}, {And, 0, 26}, {Xor, 17, 27}, {Xor, 18, 19}, {Xor, 1, 29}, {Or, 3, 28}, {Xor, 30, 31}, {And,
5, 32}, {Xor, 16, 33}, {Xor, 0, 19}, {AndNot, 12, 4}, {Xor, 35, 36}, {And, 4, 30}, {Xor, 3, 38},
{Or, 0, 39}, {And, 34, 37}, {And, 1, 41}, {Xor, 37, 40}, {And, 0, 18}, {Xor, 42, 44}, {And, 5,
45}, {Xor, 43, 46}, {Xor, 10, 28}, {Xor, 5, 48}, {And, 15, 45}, {Xor, 30, 50}, {Or, 9, 25}, {Or,
3, 52}, {Xor, 51, 53}, {Or, 5, 54}, {Xor, 16, 55}}, 51, {{56, true}, {49, true}, {47, false}, {34,
true}}},
};
}  // namespace gates
// clang-format on

using gates::kSboxCircuits;

// The circuit's outputs for one input, with the complements undone.
consteval unsigned CircuitValue(const SboxCircuit& circuit, unsigned six) {
  bool signal[6 + kMostGates] = {};
  for (unsigned i = 0; i < 6; ++i)
    signal[i] = (six >> (5 - i) & 1) != 0;
  for (std::size_t g = 0; g < circuit.gates; ++g) {
    const Gate& gate = circuit.gate[g];
    const bool a = signal[gate.a];
    const bool b = signal[gate.b];
    const bool value[] = {a && b, a || b, a != b, a && !b};
    signal[6 + g] = value[static_cast<std::size_t>(gate.op)];
  }
  unsigned result = 0;
  for (const CircuitOutput& output : circuit.output)
    result = 2 * result + (signal[output.signal] != output.complemented ? 1 : 0);
  return result;
}

consteval bool CircuitsAreTheSboxes() {
  for (std::size_t box = 0; box < 8; ++box) {
    for (unsigned six = 0; six < 64; ++six) {
      const unsigned place = 16 * ((six >> 4 & 2) | (six & 1)) + (six >> 1 & 15);
      if (CircuitValue(kSboxCircuits[box], six) != kSubstitution[64 * box + place]) return false;
    }
  }
  return true;
}
static_assert(CircuitsAreTheSboxes());

}  // namespace vandpublic::des

#endif
