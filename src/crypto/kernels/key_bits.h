// Where each bit of each round's subkey comes from: permuted choice 1, the shifts and permuted
// choice 2 followed once, by the compiler.
#ifndef VANDPUBLIC_CRYPTO_KERNELS_KEY_BITS_H
#define VANDPUBLIC_CRYPTO_KERNELS_KEY_BITS_H

#include <array>
#include <cstddef>

#include "crypto/des_table_text.h"

namespace vandpublic::des {

// kSubkeySource[round][j]: the key bit that is bit j of the round's subkey, both counted from 0,
// the most significant bit of the first byte being 0.
inline constexpr auto kSubkeySource = [] {
  std::array<std::array<Byte, 48>, 16> source{};
  std::size_t shift = 0;
  for (std::size_t round = 0; round < 16; ++round) {
    shift += kShiftSchedule[round];
    for (std::size_t j = 0; j < 48; ++j) {
      const std::size_t place = kPermutedChoice2[j] - 1u;  // in C, 0 to 27, or D, 28 to 55
      const std::size_t start = place / 28 * 28;
      source[round][j] =
          static_cast<Byte>(kPermutedChoice1[start + (place - start + shift) % 28] - 1);
    }
  }
  return source;
}();

}  // namespace vandpublic::des

#endif
