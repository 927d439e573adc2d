// The bit-sliced kernels: as many blocks at once as a vector has bits.
//
// Vector p of the 64 planes holds bit p of every block, one block a bit. The S-boxes are logic
// (sbox_circuits.h) on whole vectors. The permutations cost nothing: they are only the numbers of
// the planes that are read and written. A key bit is a mask of zeros or ones. The masks of the two
// key registers stand in a table, each register twice in a row, so that a round's rotation is where
// its subkey starts: every other number is known to the compiler.
//
// Vector gives the type of a width (`Type`, on which ~ & | ^ << >> work by 64-bit lanes), the type
// of a mask (`Mask`, one that ^ repeats to the width, or the width itself), and the two
// transpositions of bytes. Included by one source for each width.
#ifndef VANDPUBLIC_CRYPTO_KERNELS_BIT_SLICES_H
#define VANDPUBLIC_CRYPTO_KERNELS_BIT_SLICES_H

#include <cstdint>
#include <cstring>
#include <utility>

#include "crypto/kernels/cipher_job.h"
#include "crypto/kernels/local_wipe.h"
#include "crypto/kernels/pass_schedules.h"
#include "crypto/kernels/sbox_circuits.h"

namespace vandpublic::des {
namespace {

inline constexpr std::size_t kRegister = 28;
inline constexpr std::size_t kMasks = 4 * kRegister;

// Numbers that follow from the standard's tables.
struct SliceTables {
  // plane[8 * k + j]: where bit j (0 the lowest) of byte k of a block is kept: the left half is
  // planes 0 to 31, the right half 32 to 63, in the standard's order.
  Byte plane[64];
  // target[q]: which bit of the half the S-box output q (0 to 31) changes.
  Byte target[32];
  // register_bit[i]: the key bit behind mask i. The registers C and D, each twice.
  Byte register_bit[kMasks];
  // rotation[r]: by how many places round r has rotated them. start[j]: where subkey bit j stands
  // when they are not.
  Byte rotation[16];
  Byte start[48];
  // turns[j]: whether bit j of the expanded half stands complemented in every second pair of
  // rounds.
  bool turns[48];
};

consteval SliceTables MakeSliceTables() {
  SliceTables tables{};
  for (std::size_t i = 0; i < 64; ++i) {
    const std::size_t bit = kInitialPermutation[i] - 1u;
    tables.plane[8 * (bit / 8) + 7 - bit % 8] = static_cast<Byte>(i);
  }
  // In 16 rounds each half is updated eight times, so that the complements cancel in the end.
  bool complemented[32] = {};  // bits of a half that each update complements
  for (std::size_t i = 0; i < 32; ++i) {
    const std::size_t output = kRoundPermutation[i] - 1u;
    tables.target[output] = static_cast<Byte>(i);
    complemented[i] = kSboxCircuits[output / 4].output[output % 4].complemented;
  }
  for (std::size_t i = 0; i < kMasks; ++i) {
    const std::size_t place = i / (2 * kRegister) * kRegister + i % kRegister;
    tables.register_bit[i] = static_cast<Byte>(kPermutedChoice1[place] - 1);
  }
  std::size_t shift = 0;
  for (std::size_t r = 0; r < 16; ++r) {
    shift += kShiftSchedule[r];
    tables.rotation[r] = static_cast<Byte>(shift);
  }
  for (std::size_t j = 0; j < 48; ++j) {
    const std::size_t place = kPermutedChoice2[j] - 1u;
    tables.start[j] = static_cast<Byte>(place + place / kRegister * kRegister);
    tables.turns[j] = complemented[kExpansion[j] - 1u];
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

// The masks of a round, from its rotation on; those of the bits that stand complemented, if any do.
template <class Mask>
struct RoundMasks {
  const Mask* plain;
  const Mask* turned;
};

// S-box kBox of a round: from the half read, with the masks of its six bits, into the half written.
template <std::size_t kBox, class V, class Mask, std::size_t... kInputs, std::size_t... kGates>
[[gnu::always_inline]] inline void RunSbox(const V* read, V* written, RoundMasks<Mask> masks,
                                           std::index_sequence<kInputs...>,
                                           std::index_sequence<kGates...>) {
  constexpr const SboxCircuit& kCircuit = kSboxCircuits[kBox];
  constexpr const Byte* kStart = &kSliceTables.start[6 * kBox];
  constexpr const bool* kTurns = &kSliceTables.turns[6 * kBox];
  V signal[6 + sizeof...(kGates)] = {
      (read[kExpansion[6 * kBox + kInputs] - 1] ^
       (kTurns[kInputs] ? masks.turned : masks.plain)[kStart[kInputs]])...};
  ((signal[6 + kGates] = GateValue<kCircuit.gate[kGates].op>(signal[kCircuit.gate[kGates].a],
                                                             signal[kCircuit.gate[kGates].b])),
   ...);
  for (std::size_t i = 0; i < 4; ++i)
    written[kSliceTables.target[4 * kBox + i]] ^= signal[kCircuit.output[i].signal];
  KeepApart();
}

template <class V, class Mask, std::size_t... kBoxes>
[[gnu::always_inline]] inline void RunRound(const V* read, V* written, RoundMasks<Mask> masks,
                                            std::index_sequence<kBoxes...>) {
  (RunSbox<kBoxes>(read, written, masks, std::make_index_sequence<6>(),
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

// The masks of the key registers of a pass, and once more their complements.
template <class Mask>
struct BitPassKeys {
  Mask mask[2 * kMasks];
  bool encipher;

  void Fill(const Pass& pass) {
    for (std::size_t i = 0; i < kMasks; ++i) {
      const std::size_t bit = kSliceTables.register_bit[i];
      const std::uint64_t set = (std::uint64_t{pass.key[bit / 8]} >> (7 - bit % 8)) & 1;
      mask[i] = Mask{} ^ (0 - set);
      mask[kMasks + i] = ~mask[i];
    }
    encipher = pass.encipher;
  }

  // Round r (from 0) reads a half that has been updated (r + 1) / 2 times.
  RoundMasks<Mask> Round(std::size_t r) const {
    const Mask* const plain = mask + kSliceTables.rotation[encipher ? r : 15 - r];
    return {plain, plain + ((r + 1) / 2 % 2 == 1 ? kMasks : 0)};
  }
};

template <class Vector>
class BitSlices {
 public:
  using V = typename Vector::Type;
  using Mask = typename Vector::Mask;
  static constexpr std::size_t kBatch = 8 * sizeof(V);

  explicit BitSlices(const PassList& passes) : count_(passes.count), keys_(passes) {}
  BitSlices(const BitSlices&) = delete;
  BitSlices& operator=(const BitSlices&) = delete;
  ~BitSlices() { WipeLocal(half_, sizeof half_); }

  // One whole batch.
  void Cipher(const Byte* source, Byte* result) {
    Enter(source);
    for (int p = 0; p < count_; ++p)
      RunPass(p);
    Leave(result, count_ % 2 == 1);
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
    constexpr auto kBoxes = std::make_index_sequence<8>();
    for (std::size_t r = 0; r < 16; r += 2) {
      RunRound(right, left, keys_[p].Round(r), kBoxes);
      RunRound(left, right, keys_[p].Round(r + 1), kBoxes);
    }
  }

  int count_;
  PassSchedules<BitPassKeys<Mask>> keys_;
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
