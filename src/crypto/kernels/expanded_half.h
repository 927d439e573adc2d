// Blocks and halves as the table-driven kernel holds them.
//
// A half is kept as its expansion: 48 bits as eight fields of six, one a byte, top two bits clear.
// Field k is the input of S-box k. With the half as a 32-bit number (bit 1 of the standard on top),
// field k is the low end of that number rotated left by 4k + 5. So two rotations and a mask expand
// it: rotating by 5 puts fields 0, 6, 4, 2 into bytes 0 to 3, rotating by 9 puts fields 1, 7, 5, 3
// there, which become bytes 4 to 7.
#ifndef VANDPUBLIC_CRYPTO_KERNELS_EXPANDED_HALF_H
#define VANDPUBLIC_CRYPTO_KERNELS_EXPANDED_HALF_H

#include <cstddef>
#include <cstdint>

#include "crypto/des_table_text.h"

namespace vandpublic::des {
namespace {

// kFieldOfByte[b]: the S-box whose input is byte b of an expanded half.
constexpr std::size_t kFieldOfByte[8] = {0, 6, 4, 2, 1, 7, 5, 3};

struct Halves {
  std::uint64_t left;
  std::uint64_t right;
};

constexpr std::uint32_t RotateLeft(std::uint32_t value, int by) {
  return value << by | value >> (32 - by);
}

constexpr std::uint64_t Expand(std::uint32_t half) {
  const std::uint64_t both = std::uint64_t{RotateLeft(half, 9)} << 32 | RotateLeft(half, 5);
  return both & 0x3F3F3F3F3F3F3F3F;
}

// The way back, from the four middle bits of each field.
constexpr std::uint32_t Contract(std::uint64_t expanded) {
  const std::uint64_t middle = expanded & 0x1E1E1E1E1E1E1E1E;
  return RotateLeft(static_cast<std::uint32_t>(middle), 27) |
         RotateLeft(static_cast<std::uint32_t>(middle >> 32), 23);
}

// Swaps the bits under the mask with those `by` places above.
constexpr std::uint64_t Exchange(std::uint64_t value, int by, std::uint64_t mask) {
  const std::uint64_t change = (value ^ value >> by) & mask;
  return value ^ change ^ change << by;
}

// Eight bytes as a square of bits, mirrored: bit p of byte b becomes bit b of byte p.
constexpr std::uint64_t Mirror(std::uint64_t square) {
  square = Exchange(square, 7, 0x00AA00AA00AA00AA);
  square = Exchange(square, 14, 0x0000CCCC0000CCCC);
  return Exchange(square, 28, 0x00000000F0F0F0F0);
}

// Bytes 0, 2, 4 and 6 moved together, and the way back.
constexpr std::uint32_t EvenBytes(std::uint64_t value) {
  value &= 0x00FF00FF00FF00FF;
  value = (value | value >> 8) & 0x0000FFFF0000FFFF;
  return static_cast<std::uint32_t>(value | value >> 16);
}

constexpr std::uint64_t SpreadBytes(std::uint32_t half) {
  std::uint64_t value = half;
  value = (value | value << 16) & 0x0000FFFF0000FFFF;
  return (value | value << 8) & 0x00FF00FF00FF00FF;
}

// The initial permutation mirrors the block and takes the even bytes of the outcome for the left
// half and the odd ones for the right. A block is read with its first byte lowest.
constexpr Halves Enter(std::uint64_t block) {
  const std::uint64_t mirrored = Mirror(block);
  return {Expand(EvenBytes(mirrored)), Expand(EvenBytes(mirrored >> 8))};
}

// The final permutation, from the pre-output.
constexpr std::uint64_t Leave(Halves halves) {
  const std::uint64_t left = SpreadBytes(Contract(halves.left));
  return Mirror(left | SpreadBytes(Contract(halves.right)) << 8);
}

constexpr std::uint64_t LoadBlock(const Byte* bytes) {
  std::uint64_t block = 0;
  for (int i = 0; i < 8; ++i)
    block |= std::uint64_t{bytes[i]} << (8 * i);
  return block;
}

constexpr void StoreBlock(std::uint64_t block, Byte* bytes) {
  for (int i = 0; i < 8; ++i)
    bytes[i] = static_cast<Byte>(block >> (8 * i));
}

// The same, bit by bit from the standard's tables: both must agree on every single bit, and all
// that is done above is linear.
constexpr bool EntersAsTheStandard() {
  for (std::size_t bit = 0; bit < 64; ++bit) {  // the standard's number less 1
    const std::uint64_t block = std::uint64_t{1} << (8 * (bit / 8) + 7 - bit % 8);
    std::uint64_t expected[2] = {0, 0};
    for (std::size_t half = 0; half < 2; ++half) {
      for (std::size_t b = 0; b < 8; ++b) {
        for (std::size_t i = 0; i < 6; ++i) {
          const std::size_t from = 32 * half + kExpansion[6 * kFieldOfByte[b] + i] - 1u;
          if (kInitialPermutation[from] == bit + 1) expected[half] |= 1ull << (8 * b + 5 - i);
        }
      }
    }
    const Halves entered = Enter(block);
    if (entered.left != expected[0] || entered.right != expected[1]) return false;
    if (Leave(entered) != block) return false;
  }
  return true;
}
static_assert(EntersAsTheStandard());

}  // namespace
}  // namespace vandpublic::des

#endif
