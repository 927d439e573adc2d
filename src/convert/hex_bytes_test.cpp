// FillByteArrWithHexStr, FstrHexStrToByte and FstrVbStrToHexStr.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/test_component.h"

namespace vandpublic {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kNotHex = "Resouce string not Hex string.";
constexpr const char* kTooShort = "the specified len is not enough to hold the byte array.";

class FillTest : public testing::Test {
 protected:
  // Fills from a text; what the text is afterwards.
  std::string Fill(const char* digits, Variant position = Integer{0}) {
    String text = digits;
    position_ = std::move(position);
    description_ = "old";
    result_ = false;
    raised_ = RaisedBy([&] {
      result_ = component_.object.FillByteArrWithHexStr(array_, text, position_, description_);
    });
    return text.ToUtf8();
  }

  TestComponent component_;
  ByteArray array_;
  Variant position_;
  String description_;
  bool result_ = false;
  Raised raised_;
};

TEST_F(FillTest, An_array_without_elements_is_made_to_fit) {
  EXPECT_EQ(Fill("1 2 3"), "0123");
  EXPECT_TRUE(result_);
  EXPECT_EQ(array_.Bound(), (ArrayBound{0, 2}));
  EXPECT_EQ(Hex(array_), "01 23");
  EXPECT_EQ(position_, Variant(Integer{2}));
  EXPECT_EQ(description_.ToUtf8(), "old");

  EXPECT_EQ(Fill("45", position_), "45");
  EXPECT_EQ(raised_, MemberError(0x31, "FillByteArrWithHexStr", ""));
  EXPECT_EQ(Hex(array_), "01 23");
}

TEST_F(FillTest, A_zero_element_array_is_made_to_fit_too) {
  array_ = ByteArray(std::vector<Byte>(), 5);
  Fill("ABC");
  EXPECT_EQ(array_.Bound(), (ArrayBound{0, 2}));
  EXPECT_EQ(Hex(array_), "0A BC");
}

TEST_F(FillTest, The_array_is_made_before_the_digits_are_read) {
  EXPECT_EQ(Fill("12a"), "012a");
  EXPECT_EQ(raised_, MemberError(0x31, "FillByteArrWithHexStr", ""));
  EXPECT_EQ(description_.ToUtf8(), "") << "overwritten";
  EXPECT_EQ(Hex(array_), "01 00");
  EXPECT_EQ(position_, Variant(Integer{1}));
  EXPECT_THAT(component_.LogLines(),
              ElementsAre("2024-03-05 14:07:09 VandPublic.clsCommon.FillByteArrWithHexStr",
                          std::string(20, ' ') + "Public_Module (6) - Overflow"));
}

TEST_F(FillTest, A_lower_case_digit_fails_at_its_pair_wherever_it_stands) {
  for (const char* digits : {"a1", "1a", "aa", "f0"}) {
    array_.Erase();
    Fill(digits);
    EXPECT_EQ(raised_, MemberError(0x31, "FillByteArrWithHexStr", "")) << digits;
    EXPECT_EQ(Hex(array_), "00");
  }
}

TEST_F(FillTest, An_existing_array_is_kept_whatever_its_size) {
  array_ = ByteArray{9, 9, 9, 9};
  Fill("0102");
  EXPECT_TRUE(result_);
  EXPECT_EQ(Hex(array_), "01 02 09 09");
}

TEST_F(FillTest, Past_the_end_the_bytes_that_fit_stay) {
  array_ = ByteArray{9, 9};
  Fill("010203");
  EXPECT_EQ(raised_, MemberError(0x31, "FillByteArrWithHexStr", ""));
  EXPECT_EQ(Hex(array_), "01 02");
  EXPECT_EQ(position_, Variant(Integer{2}));
}

TEST_F(FillTest, Positions_are_absolute_subscripts) {
  array_ = ByteArray::WithBounds(1, 2);
  Fill("0A", Integer{0});
  EXPECT_EQ(raised_, MemberError(0x31, "FillByteArrWithHexStr", ""));
  EXPECT_EQ(Hex(array_), "00 00");
  Fill("0A", Integer{1});
  EXPECT_EQ(Hex(array_), "0A 00");
}

TEST_F(FillTest, What_is_not_hexadecimal_is_refused_before_the_array_is_made) {
  EXPECT_EQ(Fill(" X Y "), "XY") << "the blanks go all the same";
  EXPECT_EQ(raised_, MemberError(0x31, "FillByteArrWithHexStr", kNotHex));
  EXPECT_EQ(description_.ToUtf8(), kNotHex);
  EXPECT_FALSE(array_.IsDimensioned());
  EXPECT_EQ(Fill("XYZ"), "XYZ") << "and no 0 is put in front";
  Fill("01\t23");
  EXPECT_EQ(raised_, MemberError(0x31, "FillByteArrWithHexStr", kNotHex));
}

TEST_F(FillTest, An_empty_text_fills_nothing_but_cannot_make_an_array) {
  EXPECT_EQ(Fill("  "), "");
  EXPECT_EQ(raised_, MemberError(0x31, "FillByteArrWithHexStr", ""));
  EXPECT_FALSE(array_.IsDimensioned());
  array_ = ByteArray{9};
  EXPECT_EQ(Fill(""), "");
  EXPECT_EQ(raised_, kNothingRaised);
  EXPECT_TRUE(result_);
  EXPECT_EQ(Hex(array_), "09");
}

TEST_F(FillTest, The_position_may_be_any_kind_of_number) {
  array_ = ByteArray::WithBounds(0, 7);
  Fill("0A0B", "2");
  EXPECT_EQ(position_, Variant(4.0));
  Fill("0C", Variant());
  EXPECT_EQ(position_, Variant(Integer{1}));
  Fill("0D", 5.5);
  EXPECT_EQ(Hex(array_), "0C 00 0A 0B 00 00 0D 00");
  Fill("0E0F", Long{3});
  EXPECT_EQ(position_, Variant(Long{5}));
  EXPECT_EQ(Hex(array_), "0C 00 0A 0E 0F 00 0D 00");
  Fill("0102", Long{7});
  EXPECT_EQ(raised_, MemberError(0x31, "FillByteArrWithHexStr", ""));
  EXPECT_EQ(position_, Variant(Long{8})) << "one byte fitted";
  EXPECT_EQ(Hex(array_), "0C 00 0A 0E 0F 00 0D 01");
}

TEST_F(FillTest, A_position_that_is_no_number_fails_at_the_first_byte) {
  array_ = ByteArray{9};
  Fill("01", NullValue());
  EXPECT_EQ(raised_, MemberError(0x31, "FillByteArrWithHexStr", ""));
  EXPECT_THAT(component_.LogLines().back(), testing::HasSubstr("(94) - Invalid use of Null"));
  Fill("01", "x");
  EXPECT_THAT(component_.LogLines().back(), testing::HasSubstr("(13) - Type mismatch"));
  EXPECT_EQ(Hex(array_), "09");
}

TEST_F(FillTest, Optional_arguments_may_be_left_out) {
  String text = "0A";
  EXPECT_TRUE(component_.object.FillByteArrWithHexStr(array_, text));
  EXPECT_EQ(Hex(array_), "0A");
}

TEST_F(FillTest, The_longest_text_has_32767_digits) {
  String text = std::u16string(32767, u'1');
  EXPECT_TRUE(component_.object.FillByteArrWithHexStr(array_, text));
  EXPECT_EQ(array_.Count(), 16384);
  EXPECT_EQ(text.Length(), 32768u);

  String longer = std::u16string(32768, u'1');
  EXPECT_EQ(RaisedBy([&] { component_.object.FillByteArrWithHexStr(array_, longer); }),
            MemberError(0x31, "FillByteArrWithHexStr", ""));
  EXPECT_THAT(component_.LoggedNames(), ElementsAre("IsHex", "FillByteArrWithHexStr"));
}

TEST_F(FillTest, The_changed_text_is_whole_and_present) {
  String odd =
      String::FromBytes(std::string("1\0"
                                    "2\0"
                                    "x",
                                    5));
  EXPECT_TRUE(component_.object.FillByteArrWithHexStr(array_, odd));
  EXPECT_EQ(odd.ByteLength(), 4u) << "half a unit is dropped";
  array_ = ByteArray{9};
  String absent = String::Absent();
  component_.object.FillByteArrWithHexStr(array_, absent);
  EXPECT_FALSE(absent.IsAbsent());
}

class HexStrToByteTest : public testing::Test {
 protected:
  // The bytes, or what was raised.
  std::string Convert(const String& digits, Integer length = 0, bool padding_left = true) {
    description_ = "old";
    std::string bytes;
    raised_ = RaisedBy([&] {
      const ByteArray array =
          component_.object.FstrHexStrToByte(digits, length, padding_left, description_);
      EXPECT_EQ(array.LowerBound(), 0);
      bytes = Hex(array);
    });
    return bytes;
  }

  TestComponent component_;
  String description_;
  Raised raised_;
};

TEST_F(HexStrToByteTest, Digits_become_bytes_with_the_zeros_where_they_are_asked_for) {
  struct Case {
    const char* digits;
    Integer length;
    bool padding_left;
    const char* bytes;
  };
  constexpr Case kCases[] = {
      {"ABC", 0, true, "0A BC"},        {"ABC", -5, true, "0A BC"}, {" 0A1B ", 0, true, "0A 1B"},
      {"ABC", 4, true, "0A BC 00 00"},   // behind, in spite of the name
      {"ABC", 4, false, "00 0A BC 00"},  // one place off, on purpose
      {"ABC", 3, false, "0A BC 00"},    {"ABC", 2, true, "0A BC"},  {"", 4, true, "00 00 00 00"},
      {"", 4, false, "00 00 00 00"},    {"", 1, false, "00"},       {"  ", 1, true, "00"},
  };
  for (const Case& one : kCases) {
    EXPECT_EQ(Convert(one.digits, one.length, one.padding_left), one.bytes);
    EXPECT_EQ(raised_, kNothingRaised);
    EXPECT_EQ(description_.ToUtf8(), "old");
  }
  EXPECT_EQ(component_.Log(), "");
}

TEST_F(HexStrToByteTest, What_cannot_be_converted_is_refused) {
  struct Case {
    const char* digits;
    Integer length;
    bool padding_left;
    const char* description;
  };
  constexpr Case kCases[] = {
      {"0A 1B", 0, true, kNotHex},
      {"XY", 1, true, kNotHex},
      {"\t0A", 0, true, kNotHex},
      {"ABC", 1, true, kTooShort},
      {"ABC", 1, false, kTooShort},
      {"ABC", 2, false, ""},  // starts at -1
      {"", 0, true, ""},
      {"0a1B", 0, true, ""},
      {"1a", 5, true, ""},
  };
  for (const Case& one : kCases) {
    component_.services.files->contents.clear();
    Convert(one.digits, one.length, one.padding_left);
    EXPECT_EQ(raised_, MemberError(0x30, "FstrHexStrToByte", one.description)) << one.digits;
    EXPECT_EQ(description_.ToUtf8(), one.description);
    EXPECT_THAT(component_.LoggedNames(), ElementsAre("FstrHexStrToByte"));
  }
}

TEST_F(HexStrToByteTest, At_most_1024_bytes_are_converted) {
  EXPECT_EQ(Convert(std::u16string(2048, u'F')).size(), 3 * 1024u - 1);
  EXPECT_EQ(Convert(std::u16string(2047, u'F')).substr(0, 5), "0F FF");
  for (const std::size_t digits : {2049u, 2050u, 32767u}) {
    Convert(std::u16string(digits, u'F'), 1);
    EXPECT_EQ(raised_, MemberError(0x30, "FstrHexStrToByte", "")) << digits;
  }
}

TEST_F(HexStrToByteTest, The_largest_length_is_filled_with_zeros) {
  EXPECT_EQ(Convert("FF", 32767).size(), 3 * 32767u - 1);
}

TEST_F(HexStrToByteTest, Optional_arguments_may_be_left_out) {
  EXPECT_EQ(Hex(component_.object.FstrHexStrToByte("0A0B")), "0A 0B");
}

TEST(FstrVbStrToHexStr, Text_becomes_the_digits_of_its_bytes_in_the_code_page) {
  struct Case {
    const char16_t* text;
    const char* digits;
  };
  constexpr Case kCases[] = {
      {u"", ""},         {u"AB", "4142"},         {u" ", "20"},      {u"  ", "2020"},
      {u"\t", "09"},     {u"\u20ac", "80"},       {u"\u0081", "81"}, {u"\u4e2d", "3F"},
      {u"\u00e9", "E9"}, {u"\U0001F600", "3F3F"},
  };
  TestComponent component;
  for (const Case& one : kCases) {
    String description = "old";
    EXPECT_EQ(component.object.FstrVbStrToHexStr(one.text, description).ToUtf8(), one.digits);
    EXPECT_EQ(description.ToUtf8(), "old");
  }
  EXPECT_EQ(component.object.FstrVbStrToHexStr(String::Absent()).ToUtf8(), "");
}

TEST(FstrVbStrToHexStr, A_double_byte_character_gives_two_bytes) {
  FakePlatform services;
  services.code_page = 936;
  clsPublic object(services.Make());
  EXPECT_EQ(object.FstrVbStrToHexStr(u"\u4e2d\u6587A").ToUtf8(), "D6D0CEC441");
}

}  // namespace
}  // namespace vandpublic
