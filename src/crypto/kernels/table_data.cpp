// The tables of the table-driven kernel.
#include "crypto/kernels/table_data.h"

#include "crypto/kernels/byte_wiring.h"
#include "crypto/kernels/expanded_half.h"
#include "crypto/kernels/key_bits.h"

namespace vandpublic::des {
namespace {

consteval std::uint64_t RoundEntry(std::size_t box, std::size_t six) {
  const std::size_t row = (six >> 4 & 2) | (six & 1);
  const std::size_t column = six >> 1 & 15;
  const std::uint32_t value = kSubstitution[64 * box + 16 * row + column];
  const std::uint32_t substituted = value << (28 - 4 * box);
  std::uint32_t permuted = 0;
  for (std::size_t i = 0; i < 32; ++i) {
    permuted |= (substituted >> (32 - kRoundPermutation[i]) & 1) << (31 - i);
  }
  return Expand(permuted);
}

consteval RoundTables MakeRoundTables() {
  RoundTables tables{};
  for (std::size_t b = 0; b < 8; ++b) {
    for (std::size_t six = 0; six < 64; ++six)
      tables.entry[b][six] = RoundEntry(kFieldOfByte[b], six);
  }
  return tables;
}

// Which bit of a key word each of a subkey's 48 bits is.
struct KeyLayout {
  std::size_t bit[48];
};

consteval KeyLayout ExpandedHalfLayout() {
  KeyLayout layout{};
  for (std::size_t b = 0; b < 8; ++b) {
    for (std::size_t i = 0; i < 6; ++i)
      layout.bit[6 * kFieldOfByte[b] + i] = 8 * b + 5 - i;
  }
  return layout;
}

consteval KeyLayout ByteWiringLayout() {
  KeyLayout layout{};
  for (std::size_t j = 0; j < 48; ++j)
    layout.bit[j] = 8 * (j / 6) + kWiring.place[j / 6][j % 6];
  return layout;
}

// One key bit's part in the subkey of a round, 1 to 16; none in the others.
consteval std::uint64_t SubkeyPart(const KeyLayout& layout, std::size_t key_bit,
                                   std::size_t round) {
  std::uint64_t part = 0;
  for (std::size_t j = 0; j < 48 && 1 <= round && round <= 16; ++j) {
    if (kSubkeySource[round - 1][j] == key_bit) part |= std::uint64_t{1} << layout.bit[j];
  }
  return part;
}

consteval void AddKeyBit(const KeyLayout& layout, std::size_t key_bit,
                         std::uint64_t (&words)[kKeyRowWords]) {
  words[0] = SubkeyPart(layout, key_bit, 1);
  for (std::size_t r = 1; r <= 16; ++r)
    words[r] = SubkeyPart(layout, key_bit, r - 1) ^ SubkeyPart(layout, key_bit, r + 1);
  words[17] = SubkeyPart(layout, key_bit, 16);
}

// rows[value] from the parts of the value's single bits; `key_bit` is the most significant one.
template <std::size_t kRows>
consteval void FillKeyRows(const KeyLayout& layout, std::size_t key_bit,
                           std::uint64_t (&rows)[kRows][kKeyRowWords]) {
  for (std::size_t bit = kRows / 2; bit != 0; bit /= 2)
    AddKeyBit(layout, key_bit++, rows[bit]);
  for (std::size_t value = 1; value < kRows; ++value) {
    const std::size_t rest = value & (value - 1);
    if (rest == 0) continue;
    for (std::size_t w = 0; w < kKeyWords; ++w)
      rows[value][w] = rows[rest][w] ^ rows[value ^ rest][w];
  }
}

consteval KeyTables MakeKeyTables(const KeyLayout& layout) {
  KeyTables tables{};
  for (std::size_t byte = 0; byte < 8; ++byte) {
    FillKeyRows(layout, 8 * byte, tables.high[byte]);
    FillKeyRows(layout, 8 * byte + 4, tables.low[byte]);
  }
  return tables;
}

}  // namespace

alignas(64) constexpr RoundTables kRoundTables = MakeRoundTables();
alignas(64) constexpr KeyTables kKeyTables = MakeKeyTables(ExpandedHalfLayout());
alignas(64) constexpr KeyTables kByteKeyTables = MakeKeyTables(ByteWiringLayout());

}  // namespace vandpublic::des
