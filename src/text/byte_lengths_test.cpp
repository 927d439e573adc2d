// FstrActualLen and FstrLeftByByteLen.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/test_component.h"

namespace vandpublic {
namespace {

using testing::ElementsAre;

FakePlatform WithPage(int code_page) {
  FakePlatform services;
  services.code_page = code_page;
  return services;
}

TEST(FstrActualLen, It_counts_the_bytes_of_the_code_page) {
  struct Case {
    int code_page;
    const char16_t* text;
    Integer bytes;
  };
  constexpr Case kCases[] = {
      {1252, u"", 0},
      {1252, u"   ", 3},
      {1252, u"\u4e2d\u6587A", 3},
      {1252, u"\u00e9", 1},
      {936, u"", 0},
      {936, u"\u4e2d\u6587A", 5},
      {936, u"   ", 3},
      {932, u"\uff71\uff72", 2},
      {1252, u"\U0001F600", 2},
  };
  for (const Case& one : kCases) {
    clsPublic object(WithPage(one.code_page).Make());
    String description = "old";
    EXPECT_EQ(object.FstrActualLen(one.text, description), one.bytes) << one.code_page;
    EXPECT_EQ(description.ToUtf8(), "old");
  }
}

TEST(FstrActualLen, The_count_is_a_16_bit_number) {
  TestComponent component;
  EXPECT_EQ(component.object.FstrActualLen(std::u16string(32767, u'a')), 32767);
  String description = "old";
  EXPECT_EQ(
      RaisedBy([&] { component.object.FstrActualLen(std::u16string(32768, u'a'), description); }),
      MemberError(0x19, "FstrActualLen", Composed(FaultNumber::Overflow)));
  EXPECT_EQ(description.ToUtf8(), Composed(FaultNumber::Overflow));
  EXPECT_THAT(component.LoggedNames(), ElementsAre("FstrActualLen"));
}

TEST(FstrLeftByByteLen, Every_byte_from_128_on_counts_as_the_first_of_a_pair) {
  struct Case {
    int code_page;
    const char16_t* text;
    Integer bytes;
    const char16_t* left;
    Integer characters;
  };
  constexpr Case kCases[] = {
      {1252, u"AB", 1, u"A", 1},
      {1252, u"AB", 5, u"AB", 2},
      {1252, u"\u00e9", 1, u"", 0},
      {1252, u"\u00e9", 9, u"", 0},
      {1252, u"\u00e9a", 2, u"\u00e9", 1},
      {1252, u"\u00e9ab", 3, u"\u00e9a", 2},
      {1252, u"a\u00e9", 9, u"a", 1},
      {1252, u"\u00e9\u00e9\u00e9", 3, u"\u00e9", 1},
      {1252, u"a \u00e9 b", 5, u"a \u00e9 ", 4},
      {1252, u"\u4e2d\u6587A", 3, u"\u4e2d\u6587A", 3},
      {936, u"\u4e2d\u6587A", 3, u"\u4e2d", 1},
      {936, u"\u4e2d\u6587A", 4, u"\u4e2d\u6587", 2},
      {936, u"\u4e2d\u6587A", 5, u"\u4e2d\u6587A", 3},
      {936, u"A\u4e2d", 2, u"A", 1},
      {936, u"\u4e2d\u6587", 3, u"\u4e2d", 1},
      {932, u"\uff71\uff72", 2, u"\uff71", 1},
      {1252, u"abc", 0, u"", 0},
      {1252, u"abc", -1, u"", 0},
      {1252, u"abc", -32768, u"", 0},
      {1252, u"", 5, u"", 0},
      {1252, u"  ", 5, u"  ", 2},
  };
  for (const Case& one : kCases) {
    clsPublic object(WithPage(one.code_page).Make());
    object.DebugMode(DEBUG_MODE_LOGFILE);
    Integer bytes = one.bytes;
    Integer characters = 9;
    String description = "old";
    EXPECT_EQ(object.FstrLeftByByteLen(one.text, bytes, characters, description), String(one.left))
        << one.code_page << " " << Codes(one.text) << ", " << one.bytes;
    EXPECT_EQ(characters, one.characters);
    EXPECT_EQ(bytes, one.bytes);
    EXPECT_EQ(description.ToUtf8(), "old");
  }
}

TEST(FstrLeftByByteLen, A_negative_length_is_not_reported) {
  TestComponent component;
  Integer bytes = -1;
  EXPECT_EQ(component.object.FstrLeftByByteLen("abc", bytes).ToUtf8(), "");
  EXPECT_EQ(component.Log(), "");
}

TEST(FstrLeftByByteLen, The_length_itself_keeps_the_count_within_16_bits) {
  TestComponent component;
  Integer bytes = 32767;
  Integer characters = 0;
  EXPECT_EQ(
      component.object.FstrLeftByByteLen(std::u16string(40000, u'a'), bytes, characters).Length(),
      32767u);
  EXPECT_EQ(characters, 32767);
}

}  // namespace
}  // namespace vandpublic
