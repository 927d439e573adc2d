// The Data Encryption Standard (FIPS 46-3) as a bit-by-bit model: one array element per bit, one
// loop per step of the standard. It is the readable truth that every faster engine is held to.
//
// Bit arrays hold 0 or 1 per element, most significant bit of each byte first: element 0 is bit 1
// of the standard. Everything is constexpr, so that a test vector can be a static assertion.
#ifndef VANDPUBLIC_CRYPTO_DES_MODEL_H
#define VANDPUBLIC_CRYPTO_DES_MODEL_H

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>

#include "crypto/byte_view.h"
#include "crypto/des_table_text.h"
#include "runtime/wipe.h"

namespace vandpublic::des {

template <std::size_t kCount>
using BitArray = std::array<Byte, kCount>;
// Round 0 to 15, one element per bit of the subkey.
using Subkeys = std::array<BitArray<48>, 16>;

inline constexpr Integer kBlockBytes = 8;

// Bits[BitStart + 8i + j] becomes bit 7 - j of Source[SourceStart + i], for ByteCount bytes. True.
constexpr bool BytesToBits(ByteView Source, Long SourceStart, Long ByteCount, MutableByteView Bits,
                           Long BitStart) {
  for (Long i = 0; i < ByteCount; ++i) {
    const Byte value = Source[SourceStart + i];
    for (Long j = 0; j < 8; ++j) {
      Bits[BitStart + 8 * i + j] = static_cast<Byte>((value >> (7 - j)) & 1);
    }
  }
  return true;
}

// The way back, for BitCount / 8 bytes. True.
constexpr bool BitsToBytes(ByteView Bits, Long BitStart, Long BitCount, MutableByteView Dest,
                           Long DestStart) {
  for (Long i = 0; i < BitCount / 8; ++i) {
    int value = 0;
    int weight = 128;
    for (Long j = 0; j < 8; ++j, weight /= 2)
      value += Bits[BitStart + 8 * i + j] * weight;
    Dest[DestStart + i] = static_cast<Byte>(value);
  }
  return true;
}

// result[i] = bits[table[i] - 1]
template <std::size_t kCount>
constexpr BitArray<kCount> Permute(std::span<const Byte> bits,
                                   const std::array<Byte, kCount>& table) {
  BitArray<kCount> result{};
  for (std::size_t i = 0; i < kCount; ++i)
    result[i] = bits[table[i] - 1u];
  return result;
}

// The key schedule. Bytes 0 to 7 of the key count; their least significant bits are parity, which
// permuted choice 1 drops. True.
constexpr bool BuildDesSubkeys(ByteView Key, Subkeys& subkeys) {
  BitArray<64> key_bits{};
  const WipeOnExit wipe_bits(key_bits);
  BytesToBits(Key, 0, 8, std::span<Byte>(key_bits), 0);
  BitArray<56> cd = Permute(key_bits, kPermutedChoice1);
  const WipeOnExit wipe_registers(cd);
  for (std::size_t round = 0; round < 16; ++round) {
    const std::ptrdiff_t shift = kShiftSchedule[round];
    std::rotate(cd.begin(), cd.begin() + shift, cd.begin() + 28);
    std::rotate(cd.begin() + 28, cd.begin() + 28 + shift, cd.end());
    subkeys[round] = Permute(cd, kPermutedChoice2);
  }
  return true;
}

// The function f: expansion, key mixing, substitution, round permutation.
constexpr BitArray<32> RoundFunction(const BitArray<32>& right, const BitArray<48>& subkey) {
  BitArray<48> x = Permute(right, kExpansion);
  const WipeOnExit wipe(x);
  for (std::size_t j = 0; j < 48; ++j)
    x[j] ^= subkey[j];

  BitArray<32> out{};
  for (std::size_t k = 0; k < 8; ++k) {
    const Byte* const six = &x[6 * k];
    const int row = six[0] * 2 + six[5];
    const int column = six[1] * 8 + six[2] * 4 + six[3] * 2 + six[4];
    const int value = kSubstitution[64 * k + static_cast<std::size_t>(16 * row + column)];
    for (std::size_t bit = 0; bit < 4; ++bit) {
      out[4 * k + bit] = static_cast<Byte>((value >> (3 - bit)) & 1);
    }
  }
  return Permute(out, kRoundPermutation);
}

// One block. Deciphering takes the subkeys in reverse order and differs in nothing else.
constexpr BitArray<64> CipherBlock(const BitArray<64>& in_bits, const Subkeys& subkeys,
                                   bool encipher) {
  BitArray<64> block = Permute(in_bits, kInitialPermutation);
  BitArray<32> left{};
  BitArray<32> right{};
  const WipeOnExit wipe_block(block);
  const WipeOnExit wipe_left(left);
  const WipeOnExit wipe_right(right);
  std::copy_n(block.begin(), 32, left.begin());
  std::copy_n(block.begin() + 32, 32, right.begin());
  for (std::size_t round = 0; round < 16; ++round) {
    BitArray<32> next = RoundFunction(right, subkeys[encipher ? round : 15 - round]);
    for (std::size_t i = 0; i < 32; ++i)
      next[i] ^= left[i];
    left = right;
    right = next;
  }
  BitArray<64> pre_output{};  // the halves stand swapped after the last round
  const WipeOnExit wipe_output(pre_output);
  std::copy_n(right.begin(), 32, pre_output.begin());
  std::copy_n(left.begin(), 32, pre_output.begin() + 32);
  return Permute(pre_output, kFinalPermutation);
}

// Bytes 0 to SrcLen - 1 of Source, block by block, into the same bytes of Result; each block is
// read whole before it is written, so both may be one array. False, and nothing touched, when
// SrcLen is no multiple of 8. Fault 9 for a subscript outside an array, the blocks before it done.
constexpr bool CipherBlocks(ByteView Key, ByteView Source, Integer SrcLen, MutableByteView Result,
                            bool Encipher) {
  if (SrcLen % kBlockBytes != 0) return false;
  Subkeys subkeys{};
  const WipeOnExit wipe_subkeys(subkeys);
  BuildDesSubkeys(Key, subkeys);
  for (Long start = 0; start < SrcLen; start += kBlockBytes) {
    BitArray<64> in_bits{};
    const WipeOnExit wipe_in(in_bits);
    BytesToBits(Source, start, kBlockBytes, std::span<Byte>(in_bits), 0);
    BitArray<64> out_bits = CipherBlock(in_bits, subkeys, Encipher);
    const WipeOnExit wipe_out(out_bits);
    BitsToBytes(std::span<const Byte>(out_bits), 0, 64, Result, start);
  }
  return true;
}

}  // namespace vandpublic::des

#endif
