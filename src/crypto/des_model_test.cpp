// The bit-by-bit model: its tables, their parser, and the bit arrays.
#include "crypto/des_model.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <bit>
#include <set>

#include "crypto/des_engine.h"
#include "support/test_component.h"

namespace vandpublic::des {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using BlockBytes = std::array<Byte, 8>;

constexpr BlockBytes kKey = {0x13, 0x34, 0x57, 0x79, 0x9B, 0xBC, 0xDF, 0xF1};
constexpr BlockBytes kPlain = {0x01, 0x23, 0x45, 0x67, 0x89, 0xAB, 0xCD, 0xEF};
constexpr BlockBytes kEnciphered = {0x85, 0xE8, 0x13, 0x54, 0x0F, 0x0A, 0xB4, 0x05};

constexpr BlockBytes Cipher(const BlockBytes& key, const BlockBytes& block, bool encipher) {
  BlockBytes result{};
  CipherBlocks(std::span<const Byte>(key), std::span<const Byte>(block), 8, std::span<Byte>(result),
               encipher);
  return result;
}

static_assert(Cipher(kKey, kPlain, true) == kEnciphered);
static_assert(Cipher(kKey, kEnciphered, false) == kPlain);

TEST(DesModel, The_vector_of_the_standard_holds_at_run_time_too) {
  EXPECT_EQ(Cipher(kKey, kPlain, true), kEnciphered);
  EXPECT_EQ(Cipher(kKey, kEnciphered, false), kPlain);
}

template <std::size_t kCount>
std::set<int> Values(const std::array<Byte, kCount>& table) {
  return {table.begin(), table.end()};
}

std::set<int> FromTo(int first, int last) {
  std::set<int> values;
  for (int i = first; i <= last; ++i)
    values.insert(i);
  return values;
}

TEST(DesTables, The_initial_permutation_reads_the_block_in_columns_upwards) {
  for (int row = 0; row < 8; ++row) {
    for (int column = 0; column < 8; ++column) {
      const int first = row < 4 ? 58 + 2 * row : 57 + 2 * (row - 4);
      EXPECT_EQ(kInitialPermutation[static_cast<std::size_t>(8 * row + column)],
                first - 8 * column);
    }
  }
}

TEST(DesTables, The_final_permutation_undoes_the_initial_one) {
  EXPECT_EQ(Values(kInitialPermutation), FromTo(1, 64));
  for (std::size_t i = 0; i < 64; ++i)
    EXPECT_EQ(kInitialPermutation[kFinalPermutation[i] - 1u], i + 1);
}

TEST(DesTables, The_expansion_takes_six_neighbouring_bits_for_every_four) {
  for (int box = 0; box < 8; ++box) {
    for (int j = 0; j < 6; ++j)
      EXPECT_EQ(kExpansion[static_cast<std::size_t>(6 * box + j)], (4 * box + j + 31) % 32 + 1);
  }
}

TEST(DesTables, The_round_permutation_sends_the_bits_of_a_box_to_four_others) {
  EXPECT_EQ(Values(kRoundPermutation), FromTo(1, 32));
  for (int box = 0; box < 8; ++box) {
    std::set<std::size_t> reached;
    for (std::size_t i = 0; i < 32; ++i) {
      if ((kRoundPermutation[i] - 1) / 4 == box) reached.insert(i / 4);
    }
    EXPECT_EQ(reached.size(), 4u) << box;
  }
}

TEST(DesTables, Permuted_choice_1_drops_the_parity_bits_and_reads_columns_upwards) {
  std::set<int> expected = FromTo(1, 64);
  for (int parity = 8; parity <= 64; parity += 8)
    expected.erase(parity);
  EXPECT_EQ(Values(kPermutedChoice1), expected);
  for (std::size_t i = 0; i < 24; ++i) {
    EXPECT_EQ(kPermutedChoice1[i] % 8, static_cast<int>(i / 8) + 1) << "C: columns 1 to 3";
    EXPECT_EQ(kPermutedChoice1[28 + i] % 8, 7 - static_cast<int>(i / 8)) << "D: columns 7 to 5";
  }
  EXPECT_THAT(std::span(kPermutedChoice1).subspan(24, 4), ElementsAre(60, 52, 44, 36));
  EXPECT_THAT(std::span(kPermutedChoice1).subspan(52, 4), ElementsAre(28, 20, 12, 4));
}

TEST(DesTables, Permuted_choice_2_drops_four_bits_of_each_register) {
  std::set<int> expected = FromTo(1, 56);
  for (const int dropped : {9, 18, 22, 25, 35, 38, 43, 54})
    expected.erase(dropped);
  EXPECT_EQ(Values(kPermutedChoice2), expected);
  for (std::size_t i = 0; i < 24; ++i) {
    EXPECT_LE(kPermutedChoice2[i], 28);
    EXPECT_GT(kPermutedChoice2[24 + i], 28);
  }
}

TEST(DesTables, Sixteen_rounds_turn_the_registers_once_around) {
  int turned = 0;
  for (std::size_t round = 0; round < 16; ++round) {
    const bool single = round == 0 || round == 1 || round == 8 || round == 15;
    EXPECT_EQ(kShiftSchedule[round], single ? 1 : 2);
    turned += kShiftSchedule[round];
  }
  EXPECT_EQ(turned, 28);
}

// The output of a box for six input bits, the first bit being the most significant one.
unsigned Box(std::size_t box, unsigned input) {
  const unsigned row = (input >> 4 & 2) | (input & 1);
  const unsigned column = input >> 1 & 15;
  return kSubstitution[64 * box + 16 * row + column];
}

TEST(DesTables, Each_row_of_a_box_is_a_permutation) {
  for (std::size_t row = 0; row < 32; ++row) {
    const auto values = std::span(kSubstitution).subspan(16 * row, 16);
    EXPECT_EQ(std::set<int>(values.begin(), values.end()), FromTo(0, 15)) << row;
  }
}

// The published design criteria of the boxes, which hardly any wrong entry would leave true.
TEST(DesTables, The_boxes_meet_the_criteria_they_were_designed_by) {
  for (std::size_t box = 0; box < 8; ++box) {
    for (unsigned input = 0; input < 64; ++input) {
      const auto distance = [&](unsigned difference) {
        return std::popcount(Box(box, input) ^ Box(box, input ^ difference));
      };
      for (unsigned bit = 1; bit < 64; bit *= 2)
        EXPECT_GE(distance(bit), 2) << "one bit changed";
      EXPECT_GE(distance(0b001100), 2) << "the middle bits changed";
      for (const unsigned ends : {0b110000u, 0b110100u, 0b111000u, 0b111100u})
        EXPECT_NE(distance(ends), 0) << "the first two bits changed and the last kept";
    }
  }
}

TEST(DesTables, The_corners_of_the_boxes_are_as_published) {
  constexpr std::array<std::array<int, 4>, 8> kCorners = {{{14, 7, 15, 13},
                                                           {15, 10, 13, 9},
                                                           {10, 8, 1, 12},
                                                           {7, 15, 3, 14},
                                                           {2, 9, 11, 3},
                                                           {12, 11, 4, 13},
                                                           {4, 1, 6, 12},
                                                           {13, 7, 2, 11}}};
  for (std::size_t box = 0; box < 8; ++box) {
    const auto values = std::span(kSubstitution).subspan(64 * box, 64);
    EXPECT_THAT((std::array<int, 4>{values[0], values[15], values[48], values[63]}),
                ElementsAreArray(kCorners[box]));
  }
}

class ParseTest : public testing::Test {
 protected:
  Raised Parse(std::string_view text, Integer count, Integer row = 0, Integer column = 0,
               Integer row_length = -1) {
    return RaisedBy(
        [&] { EXPECT_TRUE(ParseTableText(text, table_, count, row, column, row_length)); });
  }

  std::array<Byte, 6> table_ = {99, 99, 99, 99, 99, 99};
};

TEST_F(ParseTest, Blanks_and_leading_zeros_are_tolerated) {
  EXPECT_EQ(Parse("02, 16,9 ,  7,000255,0", 6), kNothingRaised);
  EXPECT_THAT(table_, ElementsAre(2, 16, 9, 7, 255, 0));
}

TEST_F(ParseTest, A_one_dimensional_table_is_filled_from_the_column_on) {
  EXPECT_EQ(Parse("1,2,3", 3, 5, 2), kNothingRaised) << "the row does not count";
  EXPECT_THAT(table_, ElementsAre(99, 99, 1, 2, 3, 99));
}

TEST_F(ParseTest, Rows_wrap_where_they_end) {
  EXPECT_EQ(Parse("1,2,3,4", 4, 0, 1, 3), kNothingRaised);
  EXPECT_THAT(table_, ElementsAre(99, 1, 2, 3, 4, 99));
  EXPECT_EQ(Parse("7,8", 2, 1, 1, 3), kNothingRaised);
  EXPECT_THAT(table_, ElementsAre(99, 1, 2, 3, 7, 8));
}

TEST_F(ParseTest, Further_pieces_and_counts_of_0_or_less_change_nothing) {
  EXPECT_EQ(Parse("1,x", 1), kNothingRaised);
  EXPECT_EQ(Parse("x", 0), kNothingRaised);
  EXPECT_EQ(Parse("x", -1), kNothingRaised);
  EXPECT_THAT(table_, ElementsAre(1, 99, 99, 99, 99, 99));
}

TEST_F(ParseTest, A_place_outside_the_table_is_fault_9_after_what_fits) {
  const Raised fault = PlainFault(FaultNumber::SubscriptOutOfRange);
  EXPECT_EQ(Parse("1,2,3", 3, 0, 4), fault);
  EXPECT_THAT(table_, ElementsAre(99, 99, 99, 99, 1, 2));
  EXPECT_EQ(Parse("1", 1, 0, -1), fault);
  EXPECT_EQ(Parse("1", 1, 2, 0, 3), fault);
  EXPECT_EQ(Parse("1", 1, -1, 0, 3), fault);
}

TEST_F(ParseTest, Too_few_pieces_are_fault_9) {
  EXPECT_EQ(Parse("1,2", 3), PlainFault(FaultNumber::SubscriptOutOfRange));
  EXPECT_THAT(table_, ElementsAre(1, 2, 99, 99, 99, 99));
}

TEST_F(ParseTest, What_is_no_number_is_fault_13) {
  for (const char* text : {"", " ", "a", "-1", "+1", "1 2", "1.5", "\t1", "0x1", ",1"})
    EXPECT_EQ(Parse(text, 1), PlainFault(FaultNumber::TypeMismatch)) << text;
  EXPECT_EQ(Parse("1,", 2), PlainFault(FaultNumber::TypeMismatch));
}

TEST_F(ParseTest, A_number_above_255_is_fault_6) {
  EXPECT_EQ(Parse("256", 1), PlainFault(FaultNumber::Overflow));
  EXPECT_EQ(Parse("99999999999999999999", 1), PlainFault(FaultNumber::Overflow));
  EXPECT_EQ(Parse("256x", 1), PlainFault(FaultNumber::Overflow)) << "from the left";
}

TEST(DesBits, The_most_significant_bit_comes_first) {
  const std::array<Byte, 3> bytes = {0xFF, 0xA1, 0x01};
  std::array<Byte, 18> bits{};
  EXPECT_TRUE(BytesToBits(std::span<const Byte>(bytes), 1, 2, std::span<Byte>(bits), 1));
  EXPECT_THAT(bits, ElementsAre(0, 1, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0, 0, 0, 1, 0));
  std::array<Byte, 4> back = {9, 9, 9, 9};
  EXPECT_TRUE(BitsToBytes(std::span<const Byte>(bits), 1, 16, std::span<Byte>(back), 1));
  EXPECT_THAT(back, ElementsAre(9, 0xA1, 0x01, 9));
}

TEST(DesBits, A_place_outside_an_array_is_fault_9) {
  const Raised fault = PlainFault(FaultNumber::SubscriptOutOfRange);
  const std::array<Byte, 1> byte = {0xFF};
  std::array<Byte, 7> bits{};
  EXPECT_EQ(
      RaisedBy([&] { BytesToBits(std::span<const Byte>(byte), 0, 1, std::span<Byte>(bits), 0); }),
      fault);
  EXPECT_THAT(bits, ElementsAre(1, 1, 1, 1, 1, 1, 1)) << "what fits is written";
  EXPECT_EQ(
      RaisedBy([&] { BytesToBits(std::span<const Byte>(byte), 1, 1, std::span<Byte>(bits), 0); }),
      fault);
  EXPECT_EQ(
      RaisedBy([&] { BytesToBits(std::span<const Byte>(byte), 0, 1, std::span<Byte>(bits), -1); }),
      fault);
  std::array<Byte, 1> back{};
  EXPECT_EQ(
      RaisedBy([&] { BitsToBytes(std::span<const Byte>(bits), 0, 8, std::span<Byte>(back), 0); }),
      fault);
}

TEST(DesBits, Views_count_from_the_lower_bound) {
  const ByteArray array(std::vector<Byte>{1, 2}, -1);
  EXPECT_EQ(View(array)[0], 2);
  EXPECT_EQ(RaisedBy([&] { View(array)[1]; }), PlainFault(FaultNumber::SubscriptOutOfRange));
  EXPECT_EQ(RaisedBy([&] { View(array)[-2]; }), PlainFault(FaultNumber::SubscriptOutOfRange));
}

TEST(DesKeySchedule, The_subkeys_of_the_worked_example_come_out) {
  Subkeys subkeys{};
  EXPECT_TRUE(BuildDesSubkeys(std::span<const Byte>(kKey), subkeys));
  const auto text = [](const BitArray<48>& bits) {
    std::string digits;
    for (const Byte bit : bits)
      digits += static_cast<char>('0' + bit);
    return digits;
  };
  EXPECT_EQ(text(subkeys[0]), "000110110000001011101111111111000111000001110010");
  EXPECT_EQ(text(subkeys[15]), "110010110011110110001011000011100001011111110101");
}

TEST(DesKeySchedule, Parity_bits_do_not_count) {
  Subkeys with_parity{};
  Subkeys without{};
  BlockBytes even = kKey;
  for (Byte& byte : even)
    byte ^= 1;
  BuildDesSubkeys(std::span<const Byte>(kKey), with_parity);
  BuildDesSubkeys(std::span<const Byte>(even), without);
  EXPECT_EQ(with_parity, without);
}

TEST(DesEngine, A_length_that_is_no_multiple_of_8_touches_nothing) {
  ByteArray result = Counting(16);
  for (const Integer length : {Integer{12}, Integer{1}, Integer{-1}, Integer{32767}}) {
    EXPECT_FALSE(DesCipherBlocks(ByteArray(), ByteArray(), length, result, true));
  }
  EXPECT_EQ(result, Counting(16));
}

TEST(DesEngine, No_blocks_need_a_key_all_the_same) {
  ByteArray result;
  EXPECT_TRUE(DesCipherBlocks(Counting(8), ByteArray(), 0, result, true));
  EXPECT_TRUE(DesCipherBlocks(Counting(8), ByteArray(), -8, result, true));
  EXPECT_EQ(RaisedBy([&] { DesCipherBlocks(Counting(7), ByteArray(), 0, result, true); }),
            PlainFault(FaultNumber::SubscriptOutOfRange));
}

}  // namespace
}  // namespace vandpublic::des
