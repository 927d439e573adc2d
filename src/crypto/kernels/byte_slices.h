// The byte-sliced kernels: as many blocks at once as a vector has bytes.
//
// A half is eight vectors, one for each S-box; byte lane b of vector t is what S-box t reads of
// block b: its six input bits, in the places of byte_wiring.h (the top two bits are anything). One
// look-up of 64 bytes in a register is an S-box for the whole vector. Its outcome has every wire in
// its place already, so that the permutation and the expansion are 10 + 16 selects. With the look-
// ups and one three-way XOR for each S-box a round is 42 operations, and no address depends on key
// or data.
//
// As in the table-driven kernel each half is kept XORed with the subkey of its next use.
//
// The way in: a block is a square of 8 x 8 bits, and the initial permutation mirrors it. One matrix
// product for each vector of blocks does that and sorts the outcome into the octets of the left
// half (bytes 0 to 3) and of the right half (4 to 7), the standard's first bit lowest. Interleaving
// makes one vector of each octet. An S-box reads five bits of one octet and one of its neighbour:
// a select brings them together, a matrix product puts each in its place. The way out: an octet is
// the middle four bits of two S-boxes, so two matrix products and an XOR.
//
// Vector gives the instructions of a width. Included by one source for each width.
#ifndef VANDPUBLIC_CRYPTO_KERNELS_BYTE_SLICES_H
#define VANDPUBLIC_CRYPTO_KERNELS_BYTE_SLICES_H

#include <immintrin.h>

#include <cstdint>
#include <cstring>
#include <utility>

#include "crypto/kernels/byte_wiring.h"
#include "crypto/kernels/cipher_job.h"
#include "crypto/kernels/local_wipe.h"
#include "crypto/kernels/pass_schedules.h"
#include "crypto/kernels/table_data.h"

namespace vandpublic::des {
namespace {

// A matrix for the matrix product on bytes: bit j of a product is the sum of the operand's bits
// that byte 7 - j of the matrix has. Here every product bit is one operand bit, or none.
struct BitMatrix {
  std::uint64_t rows = 0;

  constexpr void Move(std::size_t from, std::size_t to) {
    rows |= std::uint64_t{1} << (8 * (7 - to) + from);
  }
};

struct ByteTables {
  // With a block as the matrix and these bytes as the operand, the product's byte i is plane
  // plane_bits[i] of the block: one octet of a half, the last byte's bit lowest.
  std::uint64_t planes;
  // enter[t]: from the octets brought together to the byte of S-box t.
  BitMatrix enter[8];
  // leave[t]: from the byte of S-box t to its four bits of octet t / 2.
  BitMatrix leave[8];
  // The way back: with octet i as byte row[i] of the matrix and these bytes as the operand, the
  // product is the block.
  std::uint64_t back;
  std::size_t row[8];
};

consteval ByteTables MakeByteTables() {
  ByteTables tables{};
  // Octet i of the permuted block is bit plane[i] (0 the lowest) of the bytes, the last byte first.
  for (std::size_t i = 0; i < 8; ++i) {
    const std::size_t plane = 7 - (kInitialPermutation[8 * i] - 1u) % 8;
    tables.planes |= std::uint64_t{1} << (8 * i + plane);
    tables.row[i] = 7 - plane;
    tables.back |= std::uint64_t{1} << (8 * i + 7 - i);
  }
  for (std::size_t t = 0; t < 8; ++t) {
    for (std::size_t i = 0; i < 6; ++i) {
      const std::size_t from = (kExpansion[6 * t + i] - 1u) % 8;
      tables.enter[t].Move(from, kWiring.place[t][i]);
      if (1 <= i && i <= 4) tables.leave[t].Move(kWiring.place[t][i], from);
    }
  }
  return tables;
}
constexpr ByteTables kByteTables = MakeByteTables();

// The key words of a pass in the order of use, each byte four times.
struct BytePassKeys {
  alignas(64) std::uint32_t word[kKeyWords][8];

  void Fill(const Pass& pass) {
    using Words [[gnu::vector_size(32)]] = std::uint64_t;
    constexpr std::size_t kCount = kKeyRowWords / 4;
    Words sum[kCount] = {};
    for (std::size_t byte = 0; byte < 8; ++byte) {
      const Byte value = pass.key[byte];
      const auto* const high =
          reinterpret_cast<const Words*>(kByteKeyTables.high[byte][value >> 4]);
      const auto* const low =
          reinterpret_cast<const Words*>(kByteKeyTables.low[byte][value >> 1 & 7]);
      for (std::size_t i = 0; i < kCount; ++i)
        sum[i] ^= high[i] ^ low[i];
    }
    std::uint64_t words[kKeyRowWords];
    std::memcpy(words, sum, sizeof words);
    // Bytes 0 to 3 four times each in the lower lane, 4 to 7 in the upper one.
    const __m256i four_times = _mm256_setr_epi32(0x00000000, 0x01010101, 0x02020202, 0x03030303,
                                                 0x04040404, 0x05050505, 0x06060606, 0x07070707);
    for (std::size_t w = 0; w < kKeyWords; ++w) {
      const std::uint64_t one = words[pass.encipher ? w : kKeyWords - 1 - w];
      const __m256i both = _mm256_set1_epi64x(static_cast<long long>(one));
      const __m256i spread = _mm256_shuffle_epi8(both, four_times);
      std::memcpy(word[w], &spread, sizeof spread);
    }
    WipeLocal(words, sizeof words);
  }
};

template <class Vector>
class ByteSlices {
 public:
  using V = typename Vector::Type;
  static constexpr std::size_t kBatch = sizeof(V);

  explicit ByteSlices(const PassList& passes) : count_(passes.count), keys_(passes) {}

  // 1 to kBatch blocks.
  [[gnu::always_inline]] void Cipher(const Byte* source, Byte* result, std::size_t blocks) const {
    const std::uint64_t present = ~std::uint64_t{0} >> (64 - blocks);  // a bit for each
    V octets[8];
    for (std::size_t i = 0; i < 8; ++i) {
      const V in = Vector::LoadBlocks(source, i, present);
      octets[i] = Vector::Product(Vector::Repeat64(kByteTables.planes), in);
    }
    Vector::GatherBytes(octets);
    V x[8];
    V y[8];
    Enter(octets, x);
    Enter(octets + 4, y);
    for (int p = 0; p < count_; ++p)
      RunPass(keys_[p], x, y);
    Leave(x, kByteTables.row, octets);
    Leave(y, kByteTables.row + 4, octets);
    Vector::ScatterBytes(octets);
    for (std::size_t i = 0; i < 8; ++i) {
      const V out = Vector::Product(Vector::Repeat64(kByteTables.back), octets[i]);
      Vector::StoreBlocks(result, i, present, out);
    }
  }

 private:
  // S-box t reads octet t / 2 and, at one end, a bit of the octet before or after it.
  [[gnu::always_inline]] static void Enter(const V* octets, V (&half)[8]) {
    for (std::size_t t = 0; t < 8; ++t) {
      const bool odd = t % 2 != 0;
      const V& neighbour = octets[odd ? (t / 2 + 1) % 4 : (t / 2 + 3) % 4];
      const V both = Vector::Choose(Vector::Repeat8(odd ? 0x01 : 0x80), neighbour, octets[t / 2]);
      half[t] = Vector::Product(both, Vector::Repeat64(kByteTables.enter[t].rows));
    }
  }

  [[gnu::always_inline]] static void Leave(const V (&half)[8], const std::size_t* row,
                                           V (&octets)[8]) {
    for (std::size_t q = 0; q < 4; ++q) {
      octets[row[q]] =
          Vector::Product(half[2 * q], Vector::Repeat64(kByteTables.leave[2 * q].rows)) ^
          Vector::Product(half[2 * q + 1], Vector::Repeat64(kByteTables.leave[2 * q + 1].rows));
    }
  }

  template <Select kSelect>
  [[gnu::always_inline]] static V Pick(const V (&masks)[3], V first, V second) {
    if constexpr (kSelect.inverted) return Vector::Choose(masks[kSelect.mask], second, first);
    return Vector::Choose(masks[kSelect.mask], first, second);
  }

  // x changes by what the S-boxes make of y.
  template <std::size_t... kBoxes, std::size_t... kPairs>
  [[gnu::always_inline]] static void RunRound(const std::uint32_t* key, const V (&masks)[3],
                                              V (&x)[8], const V (&y)[8],
                                              std::index_sequence<kBoxes...>,
                                              std::index_sequence<kPairs...>) {
    const V out[8] = {Vector::LookUp(kWiring.table[kBoxes], y[kBoxes])...};
    const V pair[kPairCount] = {Pick<kWiring.pair[kPairs].select>(
        masks, out[kWiring.pair[kPairs].u], out[kWiring.pair[kPairs].v])...};
    ((x[kBoxes] =
          Vector::Sum(x[kBoxes], Vector::Repeat32(key[kBoxes]),
                      Pick<kWiring.target[kBoxes].second>(
                          masks, pair[kWiring.target[kBoxes].last],
                          Pick<kWiring.target[kBoxes].first>(masks, pair[kWiring.target[kBoxes].a],
                                                             pair[kWiring.target[kBoxes].b])))),
     ...);
  }

  // x is left and y is right, before and after.
  [[gnu::always_inline]] static void RunPass(const BytePassKeys& keys, V (&x)[8], V (&y)[8]) {
    constexpr auto kBoxes = std::make_index_sequence<8>();
    constexpr auto kPairs = std::make_index_sequence<kPairCount>();
    const V masks[3] = {Vector::Repeat8(kSelectMasks[0]), Vector::Repeat8(kSelectMasks[1]),
                        Vector::Repeat8(kSelectMasks[2])};
    for (std::size_t t = 0; t < 8; ++t)
      y[t] ^= Vector::Repeat32(keys.word[0][t]);
    for (std::size_t r = 1; r <= 16; r += 2) {
      RunRound(keys.word[r], masks, x, y, kBoxes, kPairs);
      RunRound(keys.word[r + 1], masks, y, x, kBoxes, kPairs);
    }
    for (std::size_t t = 0; t < 8; ++t) {
      const V left = y[t];
      y[t] = x[t] ^ Vector::Repeat32(keys.word[17][t]);
      x[t] = left;
    }
  }

  int count_;
  PassSchedules<BytePassKeys> keys_;
};

template <class Vector>
void ByteCipher(const CipherJob& job) {
  using Slices = ByteSlices<Vector>;
  const Slices slices(job.passes);
  const Byte* source = job.source;
  Byte* result = job.result;
  std::size_t left = job.blocks;
  while (left != 0) {
    const std::size_t blocks = left < Slices::kBatch ? left : Slices::kBatch;
    slices.Cipher(source, result, blocks);
    source += kBlockSize * blocks;
    result += kBlockSize * blocks;
    left -= blocks;
  }
}

}  // namespace
}  // namespace vandpublic::des

#endif
