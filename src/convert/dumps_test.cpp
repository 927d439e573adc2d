// DispBytes and the bit dump.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "convert/bit_dump.h"
#include "support/test_component.h"

namespace vandpublic {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DispBytesTest : public testing::Test {
 protected:
  std::string Show(ByteArray array, Integer count = 0, Integer per_line = 40, bool hex = true) {
    description_ = "old";
    std::string text;
    EXPECT_EQ(RaisedBy([&] {
                text =
                    component_.object.DispBytes(array, count, per_line, hex, description_).ToUtf8();
              }),
              kNothingRaised);
    return text;
  }

  TestComponent component_;
  String description_;
};

TEST_F(DispBytesTest, Every_byte_is_followed_by_a_blank_and_full_lines_by_a_line_break) {
  const ByteArray bytes = {0x01, 0xAB, 0xFF};
  struct Case {
    Integer count;
    Integer per_line;
    bool hex;
    const char* text;
  };
  constexpr Case kCases[] = {
      {0, 40, true, "01 AB FF "},        {0, 40, false, "1 171 255 "},
      {0, 2, true, "01 AB \r\nFF "},     {0, 2, false, "1 171 \r\n255 "},
      {0, 3, true, "01 AB FF \r\n"},     {0, 1, true, "01 \r\nAB \r\nFF \r\n"},
      {2, 40, true, "01 AB "},           {10, 40, true, "01 AB FF "},
      {32767, 32767, true, "01 AB FF "}, {1, 1, false, "1 \r\n"},
  };
  for (const Case& one : kCases) {
    EXPECT_EQ(Show(bytes, one.count, one.per_line, one.hex), one.text);
    EXPECT_EQ(description_.ToUtf8(), "old");
  }
  EXPECT_EQ(component_.Log(), "");
}

TEST_F(DispBytesTest, Decimal_numbers_have_no_leading_zeros) {
  EXPECT_EQ(Show({0, 9, 10, 99, 100, 200, 255}, 0, 40, false), "0 9 10 99 100 200 255 ");
}

TEST_F(DispBytesTest, Lengths_follow_the_count) {
  const std::pair<std::size_t, std::size_t> cases[] = {
      {16, 48}, {39, 117}, {40, 122}, {41, 125}, {48, 146}, {80, 244}, {256, 780}, {1024, 3122},
  };
  for (const auto& [count, length] : cases) {
    const std::string text = Show(Counting(count));
    EXPECT_EQ(text.size(), length);
    EXPECT_TRUE(text.ends_with(count % 40 == 0 ? " \r\n" : " ")) << count;
  }
}

TEST_F(DispBytesTest, More_bytes_than_a_16_bit_number_counts_are_shown) {
  EXPECT_EQ(Show(Counting(40000)).size(), 3 * 40000u + 2 * 1000);
}

TEST_F(DispBytesTest, Nothing_is_shown_of_an_array_without_elements) {
  EXPECT_EQ(Show(ByteArray()), "");
  EXPECT_EQ(Show(ByteArray(std::vector<Byte>())), "");
  EXPECT_EQ(description_.ToUtf8(), "old");
  EXPECT_EQ(component_.Log(), "");
}

TEST_F(DispBytesTest, Bad_counts_are_logged_and_described_and_never_raised) {
  struct Case {
    Integer count;
    Integer per_line;
    const char* description;
  };
  constexpr Case kCases[] = {
      {0, 0, "Invalid Count of displaying per line. "},
      {-1, 0, "Invalid Count of displaying per line. "},
      {0, -32768, "Invalid Count of displaying per line. "},
      {-1, 40, "Invalid displayed Number . "},
      {-32768, 1, "Invalid displayed Number . "},
  };
  for (const Case& one : kCases) {
    component_.services.files->contents.clear();
    EXPECT_EQ(Show({1, 2, 3}, one.count, one.per_line), "");
    EXPECT_EQ(description_.ToUtf8(), one.description);
    EXPECT_THAT(component_.LoggedNames(), ElementsAre("DispBytes"));
  }
}

TEST_F(DispBytesTest, Bytes_are_read_from_subscript_0) {
  EXPECT_EQ(Show(Counting(3, 1)), "");
  EXPECT_EQ(description_.ToUtf8(), Composed(FaultNumber::SubscriptOutOfRange));
  EXPECT_THAT(component_.LoggedNames(), ElementsAre("DispBytes"));
  EXPECT_EQ(Show(Counting(5, -2)), "") << "as many as there are elements are asked for";
  EXPECT_EQ(Show(Counting(5, -2), 3), "02 03 04 ");
  EXPECT_EQ(Show(Counting(3, 1), 1), "");
}

TEST_F(DispBytesTest, Optional_arguments_may_be_left_out) {
  ByteArray bytes = {1, 2};
  EXPECT_EQ(component_.object.DispBytes(bytes).ToUtf8(), "01 02 ");
}

class BitDumpTest : public testing::Test {
 protected:
  bool Show(const Variant& bits, Integer count, Integer per_line = 0, Integer row_width = 0) {
    description_ = "old";
    text_ = "old";
    return DispBitArray(component_.object, bits, count, per_line, row_width, description_, text_);
  }

  TestComponent component_;
  String description_;
  String text_;
};

TEST_F(BitDumpTest, Four_bits_make_a_digit_and_two_digits_stand_behind_a_blank) {
  const ByteArray bits = {1, 0, 1, 0, 0, 0, 0, 1, 1, 1, 1, 1};
  EXPECT_TRUE(Show(bits, 12));
  EXPECT_EQ(text_.ToUtf8(), " A1 F");
  EXPECT_TRUE(Show(bits, 8));
  EXPECT_EQ(text_.ToUtf8(), " A1");
  EXPECT_TRUE(Show(bits, 0));
  EXPECT_EQ(text_.ToUtf8(), "");
  EXPECT_EQ(description_.ToUtf8(), "old");
}

TEST_F(BitDumpTest, Only_a_1_counts_as_1) {
  EXPECT_TRUE(Show(ByteArray{2, 255, 1, 0}, 4));
  EXPECT_EQ(text_.ToUtf8(), " 2");
}

TEST_F(BitDumpTest, Lines_break_behind_pairs_of_digits) {
  const ByteArray bits(std::vector<Byte>(24, 1));
  EXPECT_TRUE(Show(bits, 24, 1));
  EXPECT_EQ(text_.ToUtf8(), " FF\r\n FF\r\n FF\r\n");
  EXPECT_TRUE(Show(bits, 24, 2));
  EXPECT_EQ(text_.ToUtf8(), " FF FF\r\n FF");
  EXPECT_TRUE(Show(bits, 24, -1));
  EXPECT_EQ(text_.ToUtf8(), " FF FF FF");
  EXPECT_TRUE(Show(bits, 24, 32767));
  EXPECT_EQ(text_.ToUtf8(), " FF FF FF");
}

TEST_F(BitDumpTest, A_table_is_read_row_by_row) {
  ByteTable bits({0, 2}, {0, 6});
  for (const int position : {0, 3, 5, 6, 11})
    bits.At(position / 6, position % 6) = 1;
  EXPECT_TRUE(Show(bits, 12, 0, 6));
  EXPECT_EQ(text_.ToUtf8(), " 96 1");
}

TEST_F(BitDumpTest, A_count_that_is_no_multiple_of_4_is_logged_and_described) {
  for (const Integer count : {Integer{3}, Integer{-1}, Integer{32767}}) {
    component_.services.files->contents.clear();
    EXPECT_FALSE(Show(ByteArray{1}, count));
    EXPECT_EQ(description_.ToUtf8(), "Invalid Data Len!");
    EXPECT_EQ(text_.ToUtf8(), "old");
    EXPECT_THAT(component_.LogLines(),
                ElementsAre("2024-03-05 14:07:09 VandPublic.clsCommon.DispBitArray",
                            std::string(20, ' ') + "Invalid Data Len!"));
  }
}

TEST_F(BitDumpTest, A_bit_outside_the_array_is_a_plain_fault) {
  const Raised fault = PlainFault(FaultNumber::SubscriptOutOfRange);
  EXPECT_EQ(RaisedBy([&] { Show(ByteArray{1, 1, 1}, 4); }), fault);
  EXPECT_EQ(RaisedBy([&] { Show(ByteTable({0, 1}, {0, 4}), 8, 0, 4); }), fault);
  EXPECT_EQ(RaisedBy([&] { Show(ByteArray{1, 1, 1, 1}, 4, 0, 4); }), fault) << "no table";
  EXPECT_EQ(RaisedBy([&] { Show(ByteTable({0, 1}, {0, 4}), 4); }), fault) << "a table";
  EXPECT_EQ(RaisedBy([&] { Show(Long{5}, 4); }), fault);
  EXPECT_EQ(text_.ToUtf8(), "old");
  EXPECT_EQ(component_.Log(), "");
}

}  // namespace
}  // namespace vandpublic
