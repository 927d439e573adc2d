// IsHex, HexToDec, BitToHex and HexToBit.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "convert/hex_digits.h"
#include "support/test_component.h"

namespace vandpublic {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(HexDigits, The_22_digits_have_values_and_nothing_else_has) {
  int digits = 0;
  for (int c = 0; c <= 0xFFFF; ++c) {
    const int value = HexDigitValue(static_cast<char16_t>(c));
    if (value < 0) continue;
    ++digits;
    const std::u16string lower = u"0123456789abcdef";
    const auto unit = static_cast<char16_t>(c >= 'A' && c <= 'F' ? c + 32 : c);
    EXPECT_EQ(lower.find(unit), static_cast<std::size_t>(value)) << c;
  }
  EXPECT_EQ(digits, 22);
}

TEST(HexDigits, The_upper_case_reader_refuses_six_of_them) {
  for (char16_t c = 0; c < 256; ++c) {
    const bool lower = c >= u'a' && c <= u'f';
    EXPECT_EQ(UpperHexDigitValue(c), lower ? -1 : HexDigitValue(c));
  }
}

TEST(IsHex, Only_digits_of_either_case_pass_and_nothing_is_trimmed) {
  struct Case {
    const char* text;
    bool is_hex;
  };
  constexpr Case kCases[] = {
      {"", true},      {"0", true},    {"aBcDeF0123456789", true},
      {"G", false},    {" 1F", false}, {"1F ", false},
      {"1 F", false},  {"-1", false},  {"&H1F", false},
      {"0x1F", false}, {"1.", false},  {"\xEF\xBC\x91", false},  // a full-width 1
  };
  TestComponent component;
  for (const Case& one : kCases)
    EXPECT_EQ(component.object.IsHex(one.text), one.is_hex) << one.text;
  EXPECT_TRUE(component.object.IsHex(String::Absent()));
  EXPECT_EQ(component.Log(), "");
}

TEST(IsHex, The_length_is_a_16_bit_number_counted_before_any_character_is_looked_at) {
  TestComponent component;
  EXPECT_TRUE(component.object.IsHex(std::u16string(32767, u'A')));
  EXPECT_FALSE(component.object.IsHex(std::u16string(32767, u'G')));
  EXPECT_EQ(RaisedBy([&] { component.object.IsHex(std::u16string(32768, u'G')); }),
            MemberError(0x08, "IsHex", ""));
  EXPECT_THAT(component.LogLines(),
              ElementsAre("2024-03-05 14:07:09 VandPublic.clsCommon.IsHex",
                          std::string(20, ' ') + "Public_Module (6) - Overflow"));
}

TEST(HexToDec, Numbers_up_to_7FFFFFFF_are_read) {
  struct Case {
    const char* text;
    Long value;
  };
  constexpr Case kCases[] = {
      {"", 0},
      {"   ", 0},
      {"0", 0},
      {"  ff  ", 255},
      {"DeadBee", 0xDEADBEE},
      {"7FFFFFFF", 2147483647},
      {"00000000007FFFFFFF", 2147483647},
  };
  TestComponent component;
  for (const Case& one : kCases)
    EXPECT_EQ(component.object.HexToDec(one.text), one.value) << one.text;
}

TEST(HexToDec, Leading_zeros_have_no_limit) {
  TestComponent component;
  EXPECT_EQ(component.object.HexToDec(std::u16string(40000, u'0') + u"1F"), 31);
}

TEST(HexToDec, The_first_problem_from_the_left_decides) {
  constexpr const char* kNoDigit = "Input value is not in hex format.";
  struct Case {
    const char* text;
    const char* description;
  };
  constexpr Case kCases[] = {
      {"80000000", ""},   {"FFFFFFFF", ""},           {"FFFFFFFFG", ""}, {"GFFFFFFFF", kNoDigit},
      {"&H10", kNoDigit}, {"1 0", kNoDigit},          {"\t1", kNoDigit}, {"-1", kNoDigit},
      {"1.0", kNoDigit},  {"\xEF\xBC\x91", kNoDigit},
  };
  for (const Case& one : kCases) {
    TestComponent component;
    EXPECT_EQ(RaisedBy([&] { component.object.HexToDec(one.text); }),
              MemberError(0x13, "HexToDec", one.description))
        << one.text;
    EXPECT_THAT(component.LoggedNames(), ElementsAre("HexToDec"));
  }
}

TEST(BitToHex, Four_bits_make_a_digit) {
  TestComponent component;
  EXPECT_EQ(component.object.BitToHex().ToUtf8(), "0");
  EXPECT_EQ(component.object.BitToHex(1, 1, 0, 1).ToUtf8(), "B");
  for (int value = 0; value < 16; ++value) {
    const auto bit = [&](int k) { return static_cast<Byte>(value >> k & 1); };
    EXPECT_EQ(component.object.BitToHex(bit(0), bit(1), bit(2), bit(3)).view(),
              kHexDigits.substr(static_cast<std::size_t>(value), 1));
  }
}

TEST(BitToHex, Any_bit_above_1_is_refused) {
  TestComponent component;
  clsPublic& object = component.object;
  const Raised refused = MemberError(0x10, "BitToHex", "Input value is not in bit format.");
  EXPECT_EQ(RaisedBy([&] { object.BitToHex(2); }), refused);
  EXPECT_EQ(RaisedBy([&] { object.BitToHex(0, 2); }), refused);
  EXPECT_EQ(RaisedBy([&] { object.BitToHex(0, 0, 255); }), refused);
  EXPECT_EQ(RaisedBy([&] { object.BitToHex(0, 0, 0, 2); }), refused);
  EXPECT_THAT(component.LoggedNames(), ElementsAre("BitToHex", "BitToHex", "BitToHex", "BitToHex"));
}

// The four bits that HexToBit gives, least significant first, each 7 before the call.
std::vector<int> Bits(clsPublic& object, const String& text) {
  Byte b0 = 7;
  Byte b1 = 7;
  Byte b2 = 7;
  Byte b3 = 7;
  object.HexToBit(text, b0, b1, b2, b3);
  return {b0, b1, b2, b3};
}

TEST(HexToBit, The_first_digit_behind_leading_blanks_gives_four_bits) {
  TestComponent component;
  clsPublic& object = component.object;
  EXPECT_THAT(Bits(object, "A"), ElementsAre(0, 1, 0, 1));
  EXPECT_THAT(Bits(object, " c9"), ElementsAre(0, 0, 1, 1));
  EXPECT_THAT(Bits(object, "  1G"), ElementsAre(1, 0, 0, 0));
  EXPECT_THAT(Bits(object, ""), ElementsAre(0, 0, 0, 0));
  EXPECT_THAT(Bits(object, "   "), ElementsAre(0, 0, 0, 0));
  for (int value = 0; value < 16; ++value) {
    EXPECT_THAT(Bits(object, kHexDigits.substr(static_cast<std::size_t>(value), 1)),
                ElementsAre(value & 1, value >> 1 & 1, value >> 2 & 1, value >> 3));
  }
  EXPECT_EQ(component.Log(), "");
}

TEST(HexToBit, Bits_may_be_left_out) {
  TestComponent component;
  EXPECT_EQ(RaisedBy([&] { component.object.HexToBit("F"); }), kNothingRaised);
  Byte b0 = 7;
  component.object.HexToBit("F", b0);
  EXPECT_EQ(b0, 1);
}

TEST(HexToBit, No_digit_leaves_the_bits_and_is_logged_twice) {
  TestComponent component;
  Byte b0 = 7;
  Byte b3 = 7;
  EXPECT_EQ(RaisedBy([&] { component.object.HexToBit("G", b0, 0, 0, b3); }),
            MemberError(0x12, "HexToBit", ""));
  EXPECT_EQ(b0, 7);
  EXPECT_EQ(b3, 7);
  const std::string indent(20, ' ');
  EXPECT_THAT(
      component.LogLines(),
      ElementsAre("2024-03-05 14:07:09 VandPublic.clsCommon.HexToDec",
                  indent + "Input value is not in hex format.",
                  "2024-03-05 14:07:09 VandPublic.clsCommon.HexToBit",
                  indent + "clsCommon.HexToDec (-2147221485) - Input value is not in hex format."));
}

TEST(HexToBit, A_sign_is_no_digit) {
  TestComponent component;
  EXPECT_EQ(RaisedBy([&] { component.object.HexToBit("-1"); }), MemberError(0x12, "HexToBit", ""));
}

}  // namespace
}  // namespace vandpublic
