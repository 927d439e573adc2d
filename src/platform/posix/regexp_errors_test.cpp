// The dialect's errors, pattern by pattern.
#include <gtest/gtest.h>

#include <vector>

#include "platform/posix/regexp_pcre2.h"
#include "platform/posix/regexp_test_support.h"
#include "runtime/utf8.h"

namespace vandpublic {
namespace {

struct ErrorRow {
  std::u16string pattern;
  int number;
};

TEST(RegExpEngine, what_the_dialect_lacks_is_an_error) {
  const std::vector<ErrorRow> rows = {
      {u"(?<=a)b", 5017},     {u"(?<!a)b", 5017},
      {u"(?<n>a)", 5017},     {u"(?P<n>a)", 5017},
      {u"(?'n'a)", 5017},     {u"(?i)a", 5017},
      {u"(?i:a)", 5017},      {u"(?>a)", 5017},
      {u"(?#a)", 5017},       {u"(?|a)", 5017},
      {u"(?R)", 5017},        {u"(?1)", 5017},
      {u"(?(1)a)", 5017},     {u"(?)", 5017},
      {u"(?", 5017},          {u"a)", 5017},
      {u")", 5017},           {u"(a))", 5017},
      {u"a{2,1}", 5017},      {u"{2,1}", 5017},
      {u"\\", 5017},          {u"a\\", 5017},
      {u"(a\\", 5017},        {u"[a\\", 5017},
      {u"a{1,65536}", 5017},  {u"a{65536}", 5017},
      {u"a{65536,}", 5017},   {u"a{1,99999999999999999999}", 5017},
      {u"*a", 5018},          {u"*", 5018},
      {u"+", 5018},           {u"?", 5018},
      {u"{2}", 5018},         {u"{2,}", 5018},
      {u"{2,3}", 5018},       {u"a++", 5018},
      {u"a**", 5018},         {u"a*+", 5018},
      {u"a?+", 5018},         {u"a+??", 5018},
      {u"a???", 5018},        {u"a{2}{3}", 5018},
      {u"a{2}*", 5018},       {u"a{2}+", 5018},
      {u"a*{2}", 5018},       {u"x|*", 5018},
      {u"|*", 5018},          {u"(*)", 5018},
      {u"(*ACCEPT)", 5018},   {u"(*UTF)a", 5018},
      {u"(?:+)", 5018},       {u"(?=*)", 5018},
      {u"(?!{2})", 5018},     {u"^*", 5018},
      {u"^{2}", 5018},        {u"$+", 5018},
      {u"\\b*", 5018},        {u"\\B?", 5018},
      {u"(*", 5018},          {u"[a", 5019},
      {u"[", 5019},           {u"[]", 5019},
      {u"[^]", 5019},         {u"[^", 5019},
      {u"[a-", 5019},         {u"[a-z", 5019},
      {u"[\\]", 5019},        {u"([)", 5019},
      {u"(a", 5020},          {u"(", 5020},
      {u"(?:a", 5020},        {u"(?=a", 5020},
      {u"((a)", 5020},        {u"(]", 5020},
      {u"[z-a]", 5021},       {u"[b-a-c]", 5021},
      {u"[a--]", 5021},       {u"[\\x43-\\x41]", 5021},
      {u"[\\uffff-a]", 5021},
  };
  const auto engine = MakeRegExpEngine();
  for (const auto& row : rows) {
    for (const std::string options : {"", "i", "m", "gim"}) {
      const RegExpOptions how = OptionsFrom(options);
      EXPECT_EQ(FaultNumberOf([&] { engine->Test(row.pattern, how, u"a"); }), row.number)
          << ToUtf8(row.pattern);
      EXPECT_EQ(FaultNumberOf([&] { engine->Replace(row.pattern, how, u"", u""); }), row.number)
          << ToUtf8(row.pattern);
    }
  }
}

TEST(RegExpEngine, the_first_error_from_the_left_is_told) {
  const auto engine = MakeRegExpEngine();
  const auto number = [&](std::u16string_view pattern) {
    return FaultNumberOf([&] { engine->Test(pattern, {}, u""); });
  };
  EXPECT_EQ(number(u"a**("), 5018);
  EXPECT_EQ(number(u"(a**"), 5018);
  EXPECT_EQ(number(u"[z-a]**"), 5021);
  EXPECT_EQ(number(u"(?<a**"), 5017);
  EXPECT_EQ(number(u"[z-a"), 5021);
}

TEST(RegExpEngine, out_of_stack_space_has_the_runtimes_text) {
  EXPECT_EQ(FaultText(FaultNumber::OutOfStackSpace), u"Out of stack space");
}

}  // namespace
}  // namespace vandpublic
