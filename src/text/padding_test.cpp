// FstrPadToSpecLen, FstrPadLeft, FstrPadRight and FstrFmtToSpecLen.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/test_component.h"

namespace vandpublic {
namespace {

using testing::ElementsAre;

constexpr auto kNoMethod = static_cast<enumPadMethod>(3);

struct PadCase {
  const char* source;
  Integer length;
  const char* pad;
  const char* left;
  const char* right;
};

constexpr PadCase kCases[] = {
    {"abc", 5, " ", "  abc", "abc  "},
    {"abc", 5, "*", "**abc", "abc**"},
    {"abc", 2, "*", "bc", "ab"},
    {"abcdef", 4, "*", "cdef", "abcd"},
    {"", 3, "-", "---", "---"},
    {"abc", 0, "*", "", ""},
    {"", 0, "*", "", ""},
    {"abc", 3, "*", "abc", "abc"},
    {"12", 5, "0x", "00012", "12000"},  // the first pad character only
    {"  ", 3, "*", "*  ", "  *"},
};

TEST(Padding, All_members_bring_a_text_to_exactly_its_length) {
  TestComponent component;
  clsPublic& object = component.object;
  for (const PadCase& one : kCases) {
    String description = "old";
    EXPECT_EQ(object.FstrPadLeft(one.source, one.length, one.pad, description).ToUtf8(), one.left);
    EXPECT_EQ(object.FstrPadRight(one.source, one.length, one.pad, description).ToUtf8(),
              one.right);
    EXPECT_EQ(object.FstrPadToSpecLen(one.source, one.length, one.pad, LEFTPAD).ToUtf8(), one.left);
    EXPECT_EQ(
        object.FstrPadToSpecLen(one.source, one.length, one.pad, RIGHTPAD, description).ToUtf8(),
        one.right);
    EXPECT_EQ(description.ToUtf8(), "old");
  }
  EXPECT_EQ(component.Log(), "");
}

TEST(Padding, Blanks_on_the_right_are_the_default) {
  TestComponent component;
  EXPECT_EQ(component.object.FstrPadToSpecLen("abc", 5).ToUtf8(), "abc  ");
  EXPECT_EQ(component.object.FstrPadLeft("abc", 5).ToUtf8(), "  abc");
  EXPECT_EQ(component.object.FstrPadRight("abc", 5).ToUtf8(), "abc  ");
}

TEST(Padding, Every_method_but_2_pads_on_the_left) {
  TestComponent component;
  for (const Long method : {0, 1, 3, -1, 2147483647}) {
    EXPECT_EQ(component.object.FstrPadToSpecLen("abc", 5, "*", static_cast<enumPadMethod>(method))
                  .ToUtf8(),
              "**abc")
        << method;
  }
}

TEST(Padding, The_longest_length_is_32767) {
  TestComponent component;
  EXPECT_EQ(component.object.FstrPadLeft("abc", 32767).Length(), 32767u);
  EXPECT_EQ(component.object.FstrPadRight(std::u16string(40000, u'a'), 32767).Length(), 32767u);
}

struct BadCase {
  const char* source;
  Integer length;
  const char* pad;
};

constexpr BadCase kBadCases[] = {
    {"abc", -1, "*"}, {"abc", -32768, "*"}, {"abc", 5, ""}, {"abc", 0, ""}, {"", 0, ""},
};

TEST(Padding, FstrPadToSpecLen_raises_what_the_two_others_only_describe) {
  const std::string composed = Composed(FaultNumber::InvalidProcedureCall);
  for (const BadCase& bad : kBadCases) {
    for (const enumPadMethod method : {LEFTPAD, RIGHTPAD, kNoMethod}) {
      TestComponent component;
      String description = "old";
      EXPECT_EQ(RaisedBy([&] {
                  component.object.FstrPadToSpecLen(bad.source, bad.length, bad.pad, method,
                                                    description);
                }),
                MemberError(0x1B, "FstrPadToSpecLen", composed));
      EXPECT_EQ(description.ToUtf8(), composed);
      EXPECT_THAT(component.LoggedNames(), ElementsAre("FstrPadToSpecLen"));
    }

    TestComponent component;
    String left = "old";
    String right = "old";
    EXPECT_EQ(component.object.FstrPadLeft(bad.source, bad.length, bad.pad, left).ToUtf8(), "");
    EXPECT_EQ(component.object.FstrPadRight(bad.source, bad.length, bad.pad, right).ToUtf8(), "");
    EXPECT_EQ(left.ToUtf8(), composed);
    EXPECT_EQ(right.ToUtf8(), composed);
    EXPECT_THAT(component.LoggedNames(), ElementsAre("FstrPadLeft", "FstrPadRight"));
  }
}

TEST(FstrFmtToSpecLen, Short_texts_are_padded_and_long_ones_stay_whole) {
  struct Case {
    const char* source;
    Integer length;
    const char* text;
  };
  constexpr Case kFormatCases[] = {
      {"abc", 5, "abc  "}, {"abcdef", 4, "abcdef"}, {"abc", 0, "abc"}, {"", 3, "   "},
      {"", 0, ""},         {" a", 4, " a  "},
  };
  TestComponent component;
  for (const Case& one : kFormatCases)
    EXPECT_EQ(component.object.FstrFmtToSpecLen(one.source, one.length).ToUtf8(), one.text);
}

TEST(FstrFmtToSpecLen, A_negative_length_is_a_plain_fault) {
  TestComponent component;
  EXPECT_EQ(RaisedBy([&] { component.object.FstrFmtToSpecLen("x", -1); }),
            PlainFault(FaultNumber::InvalidProcedureCall));
  EXPECT_EQ(component.Log(), "");
}

}  // namespace
}  // namespace vandpublic
