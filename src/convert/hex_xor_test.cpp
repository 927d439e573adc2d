// HexXor.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/test_component.h"

namespace vandpublic {
namespace {

using testing::ElementsAre;

const Raised kRefused = MemberError(0x12, "HexXor", "");

TEST(HexXor, Operands_are_aligned_on_the_left_whatever_is_asked) {
  struct Case {
    const char* one;
    const char* two;
    const char* result;
  };
  constexpr Case kCases[] = {
      {"12 34", "0F", "1D 34 "},
      {"ABC", "FFFF", "F5 43 "},
      {"FF", "0F0F", "F0 0F "},
      {"", "FF", "FF "},
      {"FF", "", "FF "},
      {"1 2 3", "0", "01 23 "},
      {"F", "F", "00 "},
      {"1\r\n2", "00", "12 "},
      {"1\xE3\x80\x80"
       "2",
       "00", "12 "},  // an ideographic space
  };
  TestComponent component;
  for (const Case& one : kCases) {
    for (const bool pad_left : {true, false}) {
      String description = "old";
      EXPECT_EQ(component.object.HexXor(one.one, one.two, pad_left, description).ToUtf8(),
                one.result);
      EXPECT_EQ(description.ToUtf8(), "old");
    }
  }
  EXPECT_EQ(component.Log(), "");
}

TEST(HexXor, The_result_has_the_lines_of_a_dump_and_can_be_an_operand_again) {
  TestComponent component;
  const std::u16string forty(80, u'F');
  EXPECT_TRUE(component.object.HexXor(forty, u"").ToUtf8().ends_with("FF \r\n"));
  const String dump = component.object.HexXor(forty + u"01", u"");
  EXPECT_TRUE(dump.ToUtf8().ends_with("FF \r\n01 "));
  EXPECT_EQ(component.object.HexXor(dump, u""), dump);
}

TEST(HexXor, A_failure_is_raised_with_an_empty_description_and_written_nowhere) {
  struct Case {
    const char* one;
    const char* two;
    std::vector<std::string> entries;
  };
  const Case cases[] = {
      {"XY", "01", {"FillByteArrWithHexStr", "HexXor"}},
      {"01", "XY", {"FillByteArrWithHexStr", "HexXor"}},
      {"ab", "01", {"FillByteArrWithHexStr", "HexXor"}},
      {"0\n1", "01", {"FillByteArrWithHexStr", "HexXor"}},
      {"", "", {"HexXor"}},
      {" \r\n", "  ", {"HexXor"}},
  };
  for (const Case& one : cases) {
    TestComponent component;
    String description = "old";
    EXPECT_EQ(RaisedBy([&] { component.object.HexXor(one.one, one.two, true, description); }),
              kRefused);
    EXPECT_EQ(description.ToUtf8(), "old");
    EXPECT_EQ(component.LoggedNames(), one.entries) << one.one;
  }
}

TEST(HexXor, An_entry_around_an_empty_description_ends_in_a_blank) {
  TestComponent component;
  EXPECT_EQ(RaisedBy([&] { component.object.HexXor("ab", "01"); }), kRefused);
  const std::string indent(20, ' ');
  EXPECT_THAT(component.LogLines(),
              ElementsAre("2024-03-05 14:07:09 VandPublic.clsCommon.FillByteArrWithHexStr",
                          indent + "Public_Module (6) - Overflow",
                          "2024-03-05 14:07:09 VandPublic.clsCommon.HexXor",
                          indent + "clsCommon.FillByteArrWithHexStr (-2147221455) - "));
}

TEST(HexXor, Twice_the_number_of_bytes_is_a_16_bit_number) {
  TestComponent component;
  EXPECT_EQ(component.object.HexXor(std::u16string(32766, u'1'), u"").Length(),
            3u * 16383 + 2 * (16383 / 40));
  for (const std::size_t digits : {32767u, 32768u, 70000u}) {
    component.services.files->contents.clear();
    EXPECT_EQ(RaisedBy([&] { component.object.HexXor(std::u16string(digits, u'1'), u""); }),
              kRefused);
    EXPECT_THAT(component.LoggedNames(), ElementsAre("HexXor")) << digits;
  }
}

}  // namespace
}  // namespace vandpublic
