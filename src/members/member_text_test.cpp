#include "members/member_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vandpublic {
namespace {

using testing::ElementsAre;

const MemberInfo& Named(std::string_view name, SlotKind kind = SlotKind::Method) {
  return MemberTable()[FindSlot(name, kind).value()];
}

TEST(MemberText, HexNumber_shows_eight_digits) {
  EXPECT_EQ(HexNumber(0), "0x00000000");
  EXPECT_EQ(HexNumber(-2147221485), "0x80040013");
  EXPECT_EQ(HexNumber(-1), "0xFFFFFFFF");
}

TEST(MemberText, DefaultText_writes_defaults_as_the_classic_languages_do) {
  using Kind = DefaultValue::Kind;
  struct Case {
    InterfaceType type;
    DefaultValue value;
    const char* text;
  };
  constexpr Case kCases[] = {
      {InterfaceType::Integer, {}, ""},
      {InterfaceType::String, {.kind = Kind::Unstated}, ""},
      {InterfaceType::Boolean, {.kind = Kind::Truth, .number = 1}, "True"},
      {InterfaceType::Boolean, {.kind = Kind::Truth, .number = 0}, "False"},
      {InterfaceType::Integer, {.kind = Kind::Number, .number = -40}, "-40"},
      {InterfaceType::String, {.kind = Kind::Text, .text = u""}, "\"\""},
      {InterfaceType::String, {.kind = Kind::Text, .text = u" "}, "\" \""},
      {InterfaceType::PadMethod, {.kind = Kind::Number, .number = 2}, "RIGHTPAD"},
      {InterfaceType::PadMethod, {.kind = Kind::Number, .number = 7}, "7"},
  };
  for (const Case& one : kCases) {
    EXPECT_EQ(DefaultText({.name = "p", .type = one.type, .default_value = one.value}), one.text);
  }
}

TEST(MemberText, Signatures_mark_optional_and_by_reference_parameters) {
  EXPECT_EQ(MemberSignature(Named("FstrDES3")),
            "FstrDES3(istr_Key As String ByRef, istr_Src As String ByRef, "
            "[iDataLen As Integer ByRef = 0]) As String");
  EXPECT_EQ(MemberSignature(Named("SystemDirectory")), "SystemDirectory() As String");
  EXPECT_EQ(MemberSignature(Named("EnableTimer")),
            "EnableTimer([iint_TimerNnum As Integer ByRef = 0])");
  EXPECT_EQ(MemberSignature(Named("AppPath", SlotKind::PropertyGet)), "AppPath As String");
  EXPECT_EQ(MemberSignature(Named("AppPath", SlotKind::PropertyPut)), "AppPath(value As String)");
}

TEST(MemberText, A_description_says_what_is_raised_with_which_words_and_what_is_left) {
  const MemberInfo member = {.name = "Weigh",
                             .failure = FailureStyle::Raise,
                             .code = 0x31,
                             .messages = {u"Too light.", u"Too heavy. "},
                             .does = "Weighs.",
                             .raises = "The weight is wrong.",
                             .leaves = "The scales stay."};
  EXPECT_THAT(DescribeMember(member),
              ElementsAre("Weighs.", "Raises 0x80040031 (clsCommon.Weigh): The weight is wrong.",
                          "Messages: \"Too light.\", \"Too heavy. \".",
                          "After a failure: The scales stay."));
}

TEST(MemberText, A_member_that_raises_its_number_for_no_input_says_so) {
  const MemberInfo member = {.name = "Weigh",
                             .failure = FailureStyle::RaiseOwn,
                             .code = 0x31,
                             .log_name = "Measure",
                             .does = "Weighs."};
  EXPECT_THAT(
      DescribeMember(member),
      ElementsAre("Weighs.", "Raises 0x80040031 (clsCommon.Measure): only for want of memory."));
}

TEST(MemberText, A_member_without_a_number_says_only_what_there_is_to_say) {
  EXPECT_THAT(DescribeMember({.name = "Weigh", .does = "Weighs."}), ElementsAre("Weighs."));
  EXPECT_THAT(DescribeMember({.name = "Weigh", .does = "Weighs.", .raises = "Never."}),
              ElementsAre("Weighs.", "Raises: Never."));
}

TEST(MemberText, Wrap_breaks_at_blanks) {
  EXPECT_THAT(Wrap("", 5), ElementsAre(""));
  EXPECT_THAT(Wrap("abcde", 5), ElementsAre("abcde"));
  EXPECT_THAT(Wrap("ab cd ef", 5), ElementsAre("ab cd", "ef"));
  EXPECT_THAT(Wrap("ab cde fg", 5), ElementsAre("ab", "cde", "fg"));
  EXPECT_THAT(Wrap("ab cde fg", 6), ElementsAre("ab cde", "fg"));
}

TEST(MemberText, Wrap_leaves_a_word_whole_that_is_longer_than_a_line) {
  EXPECT_THAT(Wrap("abcdefgh ij", 5), ElementsAre("abcdefgh", "ij"));
  EXPECT_THAT(Wrap("abcdefgh", 5), ElementsAre("abcdefgh"));
  EXPECT_THAT(Wrap("ab cdefghij", 5), ElementsAre("ab", "cdefghij"));
}

}  // namespace
}  // namespace vandpublic
