// The wiring of the byte-sliced kernels: which bit of which byte is which wire of a round.
//
// There an S-box is a byte in and a byte out for each block. Its four output bits feed six inputs
// of six different S-boxes, and its six inputs come from six different S-boxes: 48 wires, which can
// be given six colours so that the wires of one source all differ, and those of one target too. The
// colour is the bit's place: in the byte that leaves the source and in the byte that enters the
// target. So nothing is ever shifted, and the byte for a target is put together from six bytes by
// selects, bit by bit: three pairs, then two of the pairs, then the third. One pair serves up to
// three targets, so that ten are enough for all 24 places.
//
// The colours and the pairs were found by tools/circuits/search_wiring; everything else follows,
// and is checked here.
#ifndef VANDPUBLIC_CRYPTO_KERNELS_BYTE_WIRING_H
#define VANDPUBLIC_CRYPTO_KERNELS_BYTE_WIRING_H

#include <cstddef>
#include <cstdint>

#include "crypto/des_table_text.h"

namespace vandpublic::des {

inline constexpr std::size_t kColours = 6;

// kWireSource[t][c]: the S-box that gives S-box t its bit c.
inline constexpr std::size_t kWireSource[8][kColours] = {
    {5, 7, 1, 4, 6, 3}, {2, 4, 6, 7, 5, 0}, {4, 1, 3, 6, 0, 5}, {7, 6, 2, 0, 1, 4},
    {1, 0, 7, 5, 3, 2}, {0, 3, 4, 2, 7, 6}, {3, 2, 5, 1, 4, 7}, {6, 5, 0, 3, 2, 1},
};

// Bits under the mask from S-box u, the others from S-box v.
struct WirePair {
  std::size_t u, v;
  unsigned mask;
};

inline constexpr std::size_t kPairCount = 10;
inline constexpr unsigned kSelectMasks[3] = {6, 17, 28};
inline constexpr WirePair kWirePairs[kPairCount] = {
    {5, 6, 0b100001}, {7, 1, 0b100011}, {3, 4, 0b100011}, {0, 7, 0b100011}, {2, 5, 0b100011},
    {4, 6, 0b000010}, {4, 0, 0b100001}, {1, 3, 0b100011}, {6, 2, 0b100011}, {0, 5, 0b000100},
};

// How a target's byte is put together: pairs a and b by mask `first`, then pair `last` by mask
// `second`; which is which of kSelectMasks, and from which side the masked bits come.
struct Select {
  std::size_t mask;  // number in kSelectMasks
  bool inverted;     // the masked bits come from the second operand
};
struct PairPlan {
  std::size_t u, v;
  Select select;
};
struct TargetPlan {
  std::size_t a, b, last;
  Select first;   // between a and b
  Select second;  // between `last` and the outcome of the first
};

struct Wiring {
  PairPlan pair[kPairCount];
  TargetPlan target[8];
  // place[t][i]: the bit at which S-box t receives its input i of the standard.
  Byte place[8][6];
  // table[s][value]: the byte that S-box s gives for the byte `value`.
  Byte table[8][64];
};

// A mask that takes all of `one` from the first operand and all of `other` from the second.
consteval bool FindSelect(unsigned one, unsigned other, Select& select) {
  for (std::size_t m = 0; m < 3; ++m) {
    for (const bool inverted : {false, true}) {
      const unsigned mask = inverted ? ~kSelectMasks[m] & 63 : kSelectMasks[m];
      if ((mask & one) != one || (mask & other) != 0) continue;
      select = {m, inverted};
      return true;
    }
  }
  return false;
}

// The bits of target t that pair p delivers rightly, for a pair that has a bit from both sides.
consteval unsigned Delivers(std::size_t p, std::size_t t) {
  const WirePair& pair = kWirePairs[p];
  unsigned from_u = 0;
  unsigned from_v = 0;
  for (std::size_t c = 0; c < kColours; ++c) {
    const bool masked = (pair.mask >> c & 1) != 0;
    if (masked && kWireSource[t][c] == pair.u) from_u |= 1u << c;
    if (!masked && kWireSource[t][c] == pair.v) from_v |= 1u << c;
  }
  return from_u != 0 && from_v != 0 ? from_u | from_v : 0;
}

consteval bool PlanTarget(std::size_t t, TargetPlan& plan) {
  for (std::size_t a = 0; a < kPairCount; ++a) {
    for (std::size_t b = 0; b < kPairCount; ++b) {
      for (std::size_t last = 0; last < kPairCount; ++last) {
        const unsigned bits_a = Delivers(a, t);
        const unsigned bits_b = Delivers(b, t);
        const unsigned bits_last = Delivers(last, t);
        if ((bits_a ^ bits_b ^ bits_last) != 63 || bits_a == 0 || bits_b == 0) continue;
        plan = {a, b, last, {}, {}};
        if (FindSelect(bits_a, bits_b, plan.first) &&
            FindSelect(bits_last, bits_a | bits_b, plan.second)) {
          return true;
        }
      }
    }
  }
  return false;
}

// The S-box and its output bit that input i of S-box t comes from, by the standard.
consteval std::size_t SourceOfInput(std::size_t t, std::size_t i) {
  return kRoundPermutation[kExpansion[6 * t + i] - 1u] - 1u;
}

consteval Wiring MakeWiring() {
  Wiring wiring{};
  bool planned = true;
  for (std::size_t p = 0; p < kPairCount; ++p) {
    const WirePair& pair = kWirePairs[p];
    unsigned one = 0;
    unsigned other = 0;
    for (std::size_t t = 0; t < 8; ++t) {
      one |= Delivers(p, t) & pair.mask;
      other |= Delivers(p, t) & ~pair.mask;
    }
    wiring.pair[p] = {pair.u, pair.v, {}};
    planned = planned && FindSelect(one, other, wiring.pair[p].select);
  }
  for (std::size_t t = 0; t < 8; ++t) {
    planned = planned && PlanTarget(t, wiring.target[t]);
    for (std::size_t i = 0; i < 6; ++i) {
      Byte place = 0;
      while (kWireSource[t][place] != SourceOfInput(t, i) / 4)
        ++place;
      wiring.place[t][i] = place;
    }
  }
  if (!planned) throw "the masks do not do for these pairs";
  for (std::size_t s = 0; s < 8; ++s) {
    for (std::size_t value = 0; value < 64; ++value) {
      std::size_t six = 0;
      for (std::size_t i = 0; i < 6; ++i)
        six = 2 * six + (value >> wiring.place[s][i] & 1);
      const Byte out = kSubstitution[64 * s + 16 * ((six >> 4 & 2) | (six & 1)) + (six >> 1 & 15)];
      for (std::size_t wire = 0; wire < 48; ++wire) {
        const std::size_t source = SourceOfInput(wire / 6, wire % 6);
        if (source / 4 != s || (out >> (3 - source % 4) & 1) == 0) continue;
        wiring.table[s][value] |= static_cast<Byte>(1u << wiring.place[wire / 6][wire % 6]);
      }
    }
  }
  return wiring;
}
inline constexpr Wiring kWiring = MakeWiring();

// The colours are proper: every colour has every source once.
consteval bool ColoursAreProper() {
  for (std::size_t c = 0; c < kColours; ++c) {
    unsigned sources = 0;
    for (std::size_t t = 0; t < 8; ++t)
      sources |= 1u << kWireSource[t][c];
    if (sources != 255) return false;
  }
  return true;
}
static_assert(ColoursAreProper());

}  // namespace vandpublic::des

#endif
