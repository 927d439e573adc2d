// FstrIsNullExt, NotNull and FstrRidOfEmpty.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/test_component.h"

namespace vandpublic {
namespace {

using testing::ElementsAre;

TEST(FstrIsNullExt, Both_switches_decide_what_counts_as_null) {
  struct Case {
    String text;
    bool by_default;
    bool with_blanks_kept;  // ibln_SpaceIsNull False
  };
  const Case cases[] = {
      {String::Absent(), true, true},
      {"", true, true},
      {" ", true, false},
      {"   ", true, false},
      {"a", false, false},
      {" a ", false, false},
      {"\t", false, false},
      {"\r\n", false, false},
      {u"\u3000", false, false},
      {u"\u00a0", false, false},
      {std::u16string(1, u'\0'), false, false},
      {String::FromBytes(" "), false, false},                          // half a unit
      {String::FromBytes(std::string_view(" \0 ", 3)), false, false},  // a blank and a half
  };
  TestComponent component;
  for (const Case& one : cases) {
    EXPECT_EQ(component.object.FstrIsNullExt(one.text), one.by_default) << Codes(one.text);
    EXPECT_EQ(component.object.FstrIsNullExt(one.text, true, true), one.by_default);
    EXPECT_EQ(component.object.FstrIsNullExt(one.text, true, false), one.with_blanks_kept);
    // Nothing is null when the first switch is off, on purpose.
    EXPECT_FALSE(component.object.FstrIsNullExt(one.text, false, true));
    EXPECT_FALSE(component.object.FstrIsNullExt(one.text, false, false));
  }
}

TEST(NotNull, A_null_value_is_replaced_by_type) {
  struct Case {
    Long type;
    Variant replacement;
  };
  const Case cases[] = {
      {2, Integer{0}}, {3, Integer{0}}, {4, Integer{0}}, {5, Integer{0}},
      {6, Integer{0}}, {8, ""},         {11, false},
  };
  TestComponent component;
  for (const Case& one : cases) {
    Variant value = NullValue();
    EXPECT_EQ(component.object.NotNull(value, one.type), one.replacement) << one.type;
    EXPECT_TRUE(value.IsNull()) << "the argument stays";
  }
  Variant value = NullValue();
  EXPECT_EQ(component.object.NotNull(value), Variant(""));
}

TEST(NotNull, Every_other_value_is_returned_as_it_is) {
  const Variant values[] = {
      Variant(),
      Integer{5},
      Long{5},
      1.5,
      "",
      "abc",
      false,
      Byte{1},
      Date{1},
      ByteArray{},
      ByteArray{1, 2},
      ObjectRef(),
      ArrayShape{8, {{0, 1}}},
  };
  TestComponent component;
  for (const Variant& original : values) {
    Variant value = original;
    EXPECT_EQ(component.object.NotNull(value, 5), original);
  }
}

TEST(NotNull, A_type_without_a_replacement_is_refused_whatever_the_value) {
  for (const Long type : {0, 1, 7, 9, 10, 12, 14, 17, -1, 65536 + 8, 2147483647}) {
    for (const Variant& original : {Variant(NullValue()), Variant("abc")}) {
      TestComponent component;
      Variant value = original;
      EXPECT_EQ(RaisedBy([&] { component.object.NotNull(value, type); }),
                MemberError(0x09, "NotNull", "Invalid value type."))
          << type;
      EXPECT_THAT(component.LogLines(),
                  ElementsAre("2024-03-05 14:07:09 prjCommon.clsCommon.NotNull",
                              std::string(20, ' ') + "Invalid value type."));
    }
  }
}

TEST(FstrRidOfEmpty, Three_passes_remove_ideographic_spaces_blanks_and_line_breaks) {
  struct Case {
    const char16_t* text;
    const char16_t* rest;
  };
  constexpr Case kCases[] = {
      {u"", u""},
      {u" a b ", u"ab"},
      {u"a\u3000b", u"ab"},
      {u"\u3000 \r\n", u""},
      {u"A\r \nB", u"AB"},  // only the blank held them apart
      {u"A\r\u3000\nB", u"AB"},
      {u"\r\r\n\n", u"\r\n"},  // one pass only
      {u"a\rb\nc\td", u"a\rb\nc\td"},
      {u"\n\r", u"\n\r"},
      {u"a\r\n", u"a"},
      {u"\u00a0", u"\u00a0"},
  };
  TestComponent component;
  for (const Case& one : kCases) {
    String text = one.text;
    EXPECT_EQ(component.object.FstrRidOfEmpty(text), String(one.rest)) << Codes(one.text);
    EXPECT_EQ(text, String(one.text)) << "the argument stays";
  }
}

}  // namespace
}  // namespace vandpublic
