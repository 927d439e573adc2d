// The bit-sliced kernels: as many blocks at once as a vector has bits.
//
// Vector p of the 64 planes holds bit p of every block, one block a bit. The S-boxes are logic
// (sbox_circuits.h) on whole vectors. The permutations cost nothing: they are only the numbers of
// the planes that are read and written. A subkey bit is a mask of zeros or ones; the masks of all
// 64 key bits and of their complements make one table, and each round takes its 48 from there.
//
// Vector gives the type of a width (`Type`, on which ~ & | ^ << >> work by 64-bit lanes), and the
// two transpositions of bytes. Included by one source for each width.
#ifndef VANDPUBLIC_CRYPTO_KERNELS_BIT_SLICES_H
#define VANDPUBLIC_CRYPTO_KERNELS_BIT_SLICES_H

#include <cstdint>
#include <cstring>
#include <utility>

#include "crypto/kernels/cipher_job.h"
#include "crypto/kernels/key_bits.h"
#include "crypto/kernels/local_wipe.h"
#include "crypto/kernels/sbox_circuits.h"

namespace vandpublic::des {
namespace {

// Numbers that follow from the standard's tables.
struct SliceTables {
  // plane[8 * k + j]: where bit j (0 the lowest) of byte k of a block is kept: the left half is
  // planes 0 to 31, the right half 32 to 63, in the standard's order.
  Byte plane[64];
  // target[q]: which bit of the half the S-box output q (0 to 31) changes.
  Byte target[32];
  // mask[deciphers][round][j]: the key bit, 64 more for its complement.
  Byte mask[2][16][48];
};

consteval SliceTables MakeSliceTables() {
  SliceTables tables{};
  for (std::size_t i = 0; i < 64; ++i) {
    const std::size_t bit = kInitialPermutation[i] - 1u;
    tables.plane[8 * (bit / 8) + 7 - bit % 8] = static_cast<Byte>(i);
  }
  bool complemented[32] = {};  // bits of a half that each update complements
  for (std::size_t i = 0; i < 32; ++i) {
    const std::size_t output = kRoundPermutation[i] - 1u;
    tables.target[output] = static_cast<Byte>(i);
    complemented[i] = kSboxCircuits[output / 4].output[output % 4].complemented;
  }
  // In 16 rounds each half is updated eight times, so that the complements cancel in the end. In
  // between, round r (from 0) reads a half that has been updated (r + 1) / 2 times.
  for (std::size_t r = 0; r < 16; ++r) {
    for (std::size_t j = 0; j < 48; ++j) {
      const bool odd = (r + 1) / 2 % 2 == 1 && complemented[kExpansion[j] - 1u];
      for (std::size_t deciphers = 0; deciphers < 2; ++deciphers) {
        const Byte source = kSubkeySource[deciphers != 0 ? 15 - r : r][j];
        tables.mask[deciphers][r][j] = static_cast<Byte>(source + (odd ? 64 : 0));
      }
    }
  }
  return tables;
}
constexpr SliceTables kSliceTables = MakeSliceTables();

// A compiler that sees several S-boxes at once loads too much too early and spills it again.
inline void KeepApart() { asm volatile("" : : : "memory"); }

template <GateOp kOp, class V>
[[gnu::always_inline]] inline V GateValue(V a, V b) {
  if constexpr (kOp == GateOp::And) return a & b;
  if constexpr (kOp == GateOp::Or) return a | b;
  if constexpr (kOp == GateOp::Xor) return a ^ b;
  if constexpr (kOp == GateOp::AndNot) return a & ~b;
}

// S-box kBox of a round: from the half read, with the masks of its six bits, into the half written.
template <std::size_t kBox, class V, std::size_t... kGates>
[[gnu::always_inline]] inline void RunSbox(const V* read, V* written, const std::uint64_t* masks,
                                           const Byte* choice, std::index_sequence<kGates...>) {
  constexpr const SboxCircuit& kCircuit = kSboxCircuits[kBox];
  V signal[6 + sizeof...(kGates)];
  for (std::size_t i = 0; i < 6; ++i)
    signal[i] = read[kExpansion[6 * kBox + i] - 1] ^ masks[choice[6 * kBox + i]];
  ((signal[6 + kGates] = GateValue<kCircuit.gate[kGates].op>(signal[kCircuit.gate[kGates].a],
                                                             signal[kCircuit.gate[kGates].b])),
   ...);
  for (std::size_t i = 0; i < 4; ++i)
    written[kSliceTables.target[4 * kBox + i]] ^= signal[kCircuit.output[i].signal];
  KeepApart();
}

template <class V, std::size_t... kBoxes>
[[gnu::always_inline]] inline void RunRound(const V* read, V* written, const std::uint64_t* masks,
                                            const Byte* choice, std::index_sequence<kBoxes...>) {
  (RunSbox<kBoxes>(read, written, masks, choice,
                   std::make_index_sequence<kSboxCircuits[kBoxes].gates>()),
   ...);
}

// Swaps the bits of `high` under the mask shifted up with those of `low` under the mask.
template <class V>
[[gnu::always_inline]] inline void ExchangeBits(V& high, V& low, int by, std::uint64_t mask) {
  const V change = (high >> by ^ low) & mask;
  low ^= change;
  high ^= change << by;
}

// Exchanges between vectors of an eight that differ in one bit of their numbers.
template <std::size_t kBit, class V>
[[gnu::always_inline]] inline void ExchangeAll(V (&v)[8], int by, std::uint64_t mask) {
  for (std::size_t i = 0; i < 8; ++i) {
    if ((i & kBit) == 0) ExchangeBits(v[i], v[i | kBit], by, mask);
  }
}

// Mirrors the 8 x 8 square that bit j of byte lane b of vectors 0 to 7 is, for every lane b: its
// own inverse.
template <class V>
[[gnu::always_inline]] inline void MirrorBits(V (&v)[8]) {
  ExchangeAll<4>(v, 4, 0x0F0F0F0F0F0F0F0F);
  ExchangeAll<2>(v, 2, 0x3333333333333333);
  ExchangeAll<1>(v, 1, 0x5555555555555555);
}

template <class Vector>
class BitSlices {
 public:
  using V = typename Vector::Type;
  static constexpr std::size_t kBatch = 8 * sizeof(V);

  explicit BitSlices(const PassList& passes) : passes_(passes) {
    for (int p = 0; p < passes.count; ++p) {
      for (std::size_t bit = 0; bit < 64; ++bit) {
        const std::uint64_t set = (std::uint64_t{passes.pass[p].key[bit / 8]} >> (7 - bit % 8)) & 1;
        const std::uint64_t mask = 0 - set;
        masks_[p][bit] = mask;
        masks_[p][64 + bit] = ~mask;
      }
    }
  }
  BitSlices(const BitSlices&) = delete;
  BitSlices& operator=(const BitSlices&) = delete;
  ~BitSlices() {
    WipeLocal(masks_, sizeof masks_[0] * static_cast<std::size_t>(passes_.count));
    WipeLocal(half_, sizeof half_);
  }

  // One whole batch.
  void Cipher(const Byte* source, Byte* result) {
    Enter(source);
    for (int p = 0; p < passes_.count; ++p)
      RunPass(p);
    Leave(result, passes_.count % 2 == 1);
  }

 private:
  // Bytes first: group g of 8 vectors becomes one vector for each byte of its blocks. Then bits:
  // vectors of byte k of all 8 groups become the 8 planes of that byte.
  void Enter(const Byte* source) {
    V bytes[8][8];
    for (std::size_t g = 0; g < 8; ++g) {
      V v[8];
      std::memcpy(v, source + g * sizeof v, sizeof v);
      Vector::GatherBytes(v);
      for (std::size_t k = 0; k < 8; ++k)
        bytes[k][g] = v[k];
    }
    for (std::size_t k = 0; k < 8; ++k) {
      V v[8];
      for (std::size_t g = 0; g < 8; ++g)
        v[g] = bytes[k][g];
      MirrorBits(v);
      for (std::size_t j = 0; j < 8; ++j)
        half_[kSliceTables.plane[8 * k + j]] = v[j];
    }
    WipeLocal(bytes, sizeof bytes);
  }

  // The way back. After an odd number of passes the halves stand swapped.
  void Leave(Byte* result, bool swapped) {
    const std::size_t swap = swapped ? 32 : 0;
    V bytes[8][8];
    for (std::size_t k = 0; k < 8; ++k) {
      V v[8];
      for (std::size_t j = 0; j < 8; ++j)
        v[j] = half_[kSliceTables.plane[8 * k + j] ^ swap];
      MirrorBits(v);
      for (std::size_t g = 0; g < 8; ++g)
        bytes[g][k] = v[g];
    }
    for (std::size_t g = 0; g < 8; ++g) {
      V v[8];
      for (std::size_t k = 0; k < 8; ++k)
        v[k] = bytes[g][k];
      Vector::ScatterBytes(v);
      std::memcpy(result + g * sizeof v, v, sizeof v);
    }
    WipeLocal(bytes, sizeof bytes);
  }

  // Pass p reads the halves in the places where the passes before left them.
  [[gnu::noinline]] void RunPass(int p) {
    V* const left = half_ + (p % 2 == 0 ? 0 : 32);
    V* const right = half_ + (p % 2 == 0 ? 32 : 0);
    const auto& choice = kSliceTables.mask[passes_.pass[p].encipher ? 0 : 1];
    constexpr auto kBoxes = std::make_index_sequence<8>();
    for (std::size_t r = 0; r < 16; r += 2) {
      RunRound(right, left, masks_[p], choice[r], kBoxes);
      RunRound(left, right, masks_[p], choice[r + 1], kBoxes);
    }
  }

  const PassList& passes_;
  std::uint64_t masks_[kMostPasses][128];
  V half_[64];
};

// Whole batches where they are, the rest in a batch filled up with zeros.
template <class Vector>
void SliceCipher(const CipherJob& job) {
  using Slices = BitSlices<Vector>;
  Slices slices(job.passes);
  constexpr std::size_t kBytes = kBlockSize * Slices::kBatch;
  const Byte* source = job.source;
  Byte* result = job.result;
  std::size_t left = job.blocks;
  for (; left >= Slices::kBatch; left -= Slices::kBatch, source += kBytes, result += kBytes)
    slices.Cipher(source, result);
  if (left == 0) return;
  Byte batch[kBytes];
  std::memcpy(batch, source, kBlockSize * left);
  std::memset(batch + kBlockSize * left, 0, kBytes - kBlockSize * left);
  slices.Cipher(batch, batch);
  std::memcpy(result, batch, kBlockSize * left);
  WipeLocal(batch, sizeof batch);
}

}  // namespace
}  // namespace vandpublic::des

#endif
