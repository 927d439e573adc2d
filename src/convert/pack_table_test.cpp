// FstrPackTable.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/test_component.h"

namespace vandpublic {
namespace {

using testing::ElementsAre;

class PackTableTest : public testing::Test {
 protected:
  // The record as digits, two a character; notes what was raised.
  std::string Pack(const String& source, const String& table_id, bool hex = true) {
    description_ = "old";
    String record;
    raised_ = RaisedBy(
        [&] { record = component_.object.FstrPackTable(source, table_id, hex, description_); });
    std::string digits = Codes(record);
    std::erase(digits, '.');
    return digits;
  }

  TestComponent component_;
  String description_;
  Raised raised_;
};

TEST_F(PackTableTest, A_record_is_length_table_ID_data_length_and_data) {
  struct Case {
    const char16_t* source;
    const char16_t* table_id;
    bool hex;
    const char* record;
  };
  constexpr Case kCases[] = {
      {u"A1B2C3", u"7", true, "0006070003A1B2C3"},
      {u"a1", u"5", true, "0004050001A1"},
      {u"", u"1", true, "0003010000"},
      {u"", u"", true, "0003000000"},
      {u"41", u"5", true, "000405000141"},
      {u"AB", u"12", false, "00051200024142"},
      {u"\u00e9", u"9", false, "0004090001E9"},
      {u"000000000000000000000000", u"12", true, "0015120012000000000000000000000000"},
      {u"FF", u"123", true, "0004230001FF"},  // the ID is cut from the right
  };
  for (const Case& one : kCases) {
    EXPECT_EQ(Pack(one.source, one.table_id, one.hex), one.record);
    EXPECT_EQ(raised_, kNothingRaised);
    EXPECT_EQ(description_.ToUtf8(), "old");
  }
}

TEST_F(PackTableTest, A_record_that_is_no_hexadecimal_text_is_silently_empty) {
  struct Case {
    const char* source;
    const char* table_id;
  };
  constexpr Case kCases[] = {
      {"ABC", "1"}, {"1234567", "1"},  // lengths with a fraction
      {"FF", " 7"}, {"FF", "7 "},     {"FF", "-1"}, {"FF", "+1"},
      {"FF", "1-"}, {"FF", "1+"},     {"FF", "1."}, {"FF", ".1"},
  };
  for (const Case& one : kCases) {
    EXPECT_EQ(Pack(one.source, one.table_id), "") << one.source << ", " << one.table_id;
    EXPECT_EQ(raised_, kNothingRaised);
    EXPECT_EQ(description_.ToUtf8(), "old");
  }
  EXPECT_EQ(component_.Log(), "");
}

TEST_F(PackTableTest, The_source_is_checked_before_the_table_ID) {
  constexpr const char* kSource = "Invalid Source String .";
  constexpr const char* kTableId = "Invalid Table ID .";
  struct Case {
    const char* source;
    const char* table_id;
    const char* description;
  };
  constexpr Case kCases[] = {
      {"XY", "AB", kSource},  {" 41", "1", kSource},   {"41 ", "1", kSource},
      {"12", "AB", kTableId}, {"12", "A1", kTableId},  {"12", "  ", kTableId},
      {"12", "--", kTableId}, {"12", "..", kTableId},  {"12", "- ", kTableId},
      {"12", "+-", kTableId}, {"12", "-.", kTableId},  {"12", " .", kTableId},
      {"12", "1e", kTableId}, {"12", "\t1", kTableId},
  };
  for (const Case& one : kCases) {
    component_.services.files->contents.clear();
    Pack(one.source, one.table_id);
    EXPECT_EQ(raised_, MemberError(0x20, "FstrPackTable", one.description))
        << one.source << ", " << one.table_id;
    EXPECT_EQ(description_.ToUtf8(), one.description);
    EXPECT_THAT(component_.LoggedNames(), ElementsAre("FstrPackTable"));
  }
}

TEST_F(PackTableTest, Lengths_of_more_than_four_digits_lose_the_first_ones) {
  const auto zeros = [](std::size_t bytes) { return std::u16string(2 * bytes, u'0'); };
  EXPECT_EQ(Pack(zeros(9996), "1").substr(0, 10), "9999019996");
  EXPECT_EQ(Pack(zeros(9997), "1").substr(0, 10), "0000019997");
  EXPECT_EQ(Pack(zeros(10000), "1").substr(0, 10), "0003010000");
  EXPECT_EQ(Pack(zeros(9996), "1").size(), 2 * 10001u);
}

TEST_F(PackTableTest, The_whole_record_has_at_most_32767_digits) {
  const auto zeros = [](std::size_t bytes) { return std::u16string(2 * bytes, u'0'); };
  EXPECT_EQ(Pack(zeros(16378), "1").size(), 32766u);
  Pack(zeros(16379), "1");
  EXPECT_EQ(raised_, MemberError(0x20, "FstrPackTable", ""));
  EXPECT_EQ(description_.ToUtf8(), "");
  EXPECT_THAT(component_.LoggedNames(), ElementsAre("IsHex", "HexToMsgFmtText", "FstrPackTable"));
}

TEST_F(PackTableTest, Optional_arguments_may_be_left_out) {
  EXPECT_EQ(component_.object.FstrPackTable("41", "5").Length(), 6u);
}

}  // namespace
}  // namespace vandpublic
