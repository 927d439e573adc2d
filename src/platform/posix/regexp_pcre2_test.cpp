// The dialect, case by case: what matches where. regexp_errors_test.cpp has what is an error.
#include "platform/posix/regexp_pcre2.h"

#include <gtest/gtest.h>

#include <vector>

#include "platform/posix/regexp_test_support.h"
#include "runtime/utf8.h"

namespace vandpublic {
namespace {

// The subject with "<" and ">" around each match (the first only without g), so that a row shows
// where the match lies; the same text where nothing matches.
struct MatchRow {
  std::u16string pattern;
  std::string options;
  std::u16string marked;
};

std::u16string WithoutMarks(std::u16string text) {
  std::erase_if(text, [](char16_t unit) { return unit == u'<' || unit == u'>'; });
  return text;
}

void CheckMatches(const std::vector<MatchRow>& rows) {
  const auto engine = MakeRegExpEngine();
  for (const auto& row : rows) {
    SCOPED_TRACE(ToUtf8(row.pattern) + "  " + row.options + "  " + ToUtf8(row.marked));
    const RegExpOptions options = OptionsFrom(row.options);
    const std::u16string subject = WithoutMarks(row.marked);
    EXPECT_EQ(ToUtf8(engine->Replace(row.pattern, options, subject, u"<$&>")), ToUtf8(row.marked));
    EXPECT_EQ(engine->Test(row.pattern, options, subject), subject != row.marked);
  }
}

TEST(RegExpEngine, literals_and_alternatives) {
  CheckMatches({
      {u"", "", u"<>ab"},
      {u"", "g", u"<>a<>b<>"},
      {u"", "", u"<>"},
      {u"b", "", u"a<b>b"},
      {u"b", "g", u"a<b><b>a"},
      {u"abc", "", u"ab"},
      {u"a|ab", "", u"<a>b"},
      {u"ab|a", "", u"<ab>"},
      {u"x|", "", u"<>ax"},
      {u"(a|b)(c|d)", "g", u"<ac><bd>ab"},
      {u"]}", "", u"a<]}>"},
      {u"a/b", "", u"<a/b>"},
      {u"#a b", "", u"<#a b>"},
  });
}

TEST(RegExpEngine, dot_excludes_the_line_feed_only) {
  CheckMatches({
      {u".+", "", u"<a\rb>\nc"},
      {u".+", "m", u"<a\rb\u2028>\nc"},
      {u"a.b", "", u"a\nb"},
      {u"a.b", "", u"<a\u0085b>"},
      {u".", "", std::u16string(u"<") + char16_t{0} + u">"},
      {u".*", "g", u"<ab><>\n<cd><>"},
  });
}

TEST(RegExpEngine, anchors_mean_the_very_start_and_end_without_multiline) {
  CheckMatches({
      {u"a$", "", u"a\n"},
      {u"a$", "", u"a\r\n"},
      {u"a$", "", u"\n<a>"},
      {u"^a", "", u"\na"},
      {u"^a", "g", u"<a>a"},
      {u"^", "g", u"<>a\nb"},
      {u"$", "g", u"a\nb<>"},
      {u"^$", "", u"<>"},
      {u"^$", "", u"\n"},
      {u"a^b", "", u"ab"},
      {u"(^a|b)", "g", u"<a><b>a"},
  });
}

TEST(RegExpEngine, anchors_stand_at_each_cr_and_lf_with_multiline) {
  CheckMatches({
      {u"^a", "gm", u"<a>\n<a>\r<a>\r\n<a>b"},
      {u"a$", "gm", u"<a>\n<a>\r<a>\r\nb<a>"},
      {u"^", "gm", u"<>a\r<>\n<>b"},
      {u"$", "gm", u"a<>\r<>\nb<>"},
      {u"^$", "m", u"a\n<>\nb"},
      {u"^b$", "gm", u"a\n<b>\r<b>"},
      {u"^a", "gm", u"<a>\u2028a\u0085a\fa\va"},
      {u"a$", "gm", u"a\u2028a\u0085a\fa\v<a>"},
  });
}

TEST(RegExpEngine, quantifiers) {
  CheckMatches({
      {u"a*", "", u"<aa>b"},
      {u"a*", "g", u"<>b<aaa><>c<>"},
      {u"a+", "g", u"b<aaa>c<a>"},
      {u"a?", "", u"<a>a"},
      {u"a*?", "", u"<>aa"},
      {u"a+?", "", u"<a>a"},
      {u"a??", "", u"<>a"},
      {u"a??b", "", u"<ab>"},
      {u"a{2}", "g", u"<aa><aa>a"},
      {u"a{2,}", "", u"a b<aaa>"},
      {u"a{1,2}", "g", u"<aa><a>"},
      {u"a{1,2}?", "g", u"<a><a><a>"},
      {u"a{2,}?", "", u"<aa>a"},
      {u"a{2}?", "", u"<aa>a"},
      {u"a{0}b", "", u"a<b>"},
      {u"a{0,1}b", "", u"<ab>"},
      {u"a{0,}b", "", u"<aab>"},
      {u"a{1,}b", "", u"b<aab>"},
      {u"a{002}", "", u"<aa>a"},
      {u"a{65535}", "", u"a"},
      {u"(ab)*", "", u"<abab>a"},
      {u"(ab){2}", "", u"ab <abab>"},
      {u"(?:a|b){2,3}", "", u"<aba>b"},
      {u"()*", "", u"<>a"},
      {u"[ab]+?c", "", u"<abc>"},
      {u"\\d{2,3}", "", u"1 <123>4"},
      {u".{3}", "", u"<abc>d"},
  });
}

TEST(RegExpEngine, braces_that_are_no_quantifier_are_plain) {
  CheckMatches({
      {u"a{", "", u"<a{>"},
      {u"a{,3}", "", u"aaa<a{,3}>"},
      {u"a{x}", "", u"<a{x}>"},
      {u"a{2", "", u"aa<a{2>"},
      {u"a{2,", "", u"aa<a{2,>"},
      {u"a{2,3", "", u"<a{2,3>"},
      {u"a{}", "", u"<a{}>"},
      {u"a{ 2}", "", u"<a{ 2}>"},
      {u"a{-1}", "", u"<a{-1}>"},
      {u"{", "", u"<{>"},
      {u"{a", "", u"<{a>"},
      {u"({)+", "", u"<{{>"},
      {u"{+", "", u"<{{>"},
      {u"}*", "", u"<}}>a"},
      {u"a+{", "", u"<aa{>"},
  });
}

TEST(RegExpEngine, fixed_classes_are_ascii_also_when_case_is_ignored) {
  for (const std::string options : {"g", "gi"}) {
    CheckMatches({
        {u"\\d", options, u"<0><9>\u0660\uFF11a"},
        {u"\\D", options, u"0<\u0660><a>"},
        {u"\\w+", options, u"<aZ_09>\u00e9-\u017F\u212A"},
        {u"\\W+", options, u"aZ_09<\u00e9-\u017F\u212A>"},
        {u"\\s", options, u"< ><\f><\n><\r><\t><\v>\u00a0\u2028\ufeff\u1680\u0085"},
        {u"\\S+", options, u" \f\n\r\t\v<\u00a0\u2028\ufeff\u1680\u0085>"},
        {u"[\\w]+", options, u"<aZ_09>\u00e9\u017F\u212A"},
        {u"[\\W]+", options, u"aZ_09<\u00e9\u017F\u212A>"},
        {u"[^\\w]+", options, u"aZ_09<\u00e9\u017F\u212A>"},
        {u"[^\\W]+", options, u"<aZ_09>\u00e9\u017F\u212A"},
        {u"\\ba", options, u"<a> \u00e9<a>a-<a>"},
        {u"a\\b", options, u"<a> a<a>\u00e9"},
        {u"a\\B", options, u"<a>a\u00e9"},
        {u"\\b", options, u"\u00e9<>a<>\u00e9"},
        {u"\\B", options, u"<>\u00e9a\u00e9<>"},
        // The same where the pattern itself holds a character above 127.
        {u"\\w|\u4e00", options, u"<a><Z><_><0>\u00e9-\u017F\u212A<\u4e00>"},
        {u"\\w+|\u4e00", options, u"<aZ_0>\u00e9-\u017F\u212A<\u4e00>"},
        {u"\\W|\u4e00", options, u"aZ<\u00e9><-><\u017F><\u212A>"},
        {u"\\d\\D|\u4e00", options, u"<0\u0660>\u0661<1a>"},
        {u"\\s\\S|\u4e00", options, u"< \u00a0>\u00a0< a>"},
        {u"[\\w\u4e00]+", options, u"<aZ_0\u4e00>\u00e9-\u017F\u212A"},
        {u"[^\\w\u4e00]+", options, u"aZ_0\u4e00<\u00e9-\u017F\u212A>"},
        {u"[\\W\u4e00]+", options, u"aZ_0ks<\u4e00\u00e9-\u017F\u212A>"},
        {u"[^\\W\u4e00]+", options, u"<aZ_0ks>\u4e00\u00e9-\u017F\u212A"},
        {u"[\\W]+|\u4e00", options, u"aZ_0ks<\u4e00\u00e9-\u017F\u212A>k"},
        {u"[^\\W]+|\u4e00", options, u"<aZ_0ks><\u4e00>\u00e9-\u017F\u212A"},
        {u"[\\d\\s\u4e00]+", options, u"<1 \u4e00>a\u0660\u00a0"},
        {u"[\\D\u4e00]+", options, u"1<a\u4e00\u0660>2"},
        {u"[\\S\u4e00]+", options, u" <a\u4e00\u00a0> "},
        {u"[^\\D\u4e00]+", options, u"<1>a\u4e00\u0660"},
        {u"\\ba|\u4e00", options, u"<a> \u00e9<a>a-<a>"},
        {u"a\\B|\u4e00", options, u"<a>a\u00e9"},
    });
  }
}

TEST(RegExpEngine, ignoring_case_folds_every_16_bit_letter) {
  CheckMatches({
      {u"abc", "i", u"<aBC>"},
      {u"abc", "", u"aBC"},
      {u"[a-c]+", "i", u"<aBC>d"},
      {u"[^a-c]+", "i", u"aBC<d>"},
      {u"\u00e9", "i", u"<\u00c9>"},
      {u"\u00e9", "", u"\u00c9"},
      {u"\u0436\u042f", "i", u"<\u0416\u044f>"},
      {u"\\u0436", "i", u"<\u0416>"},
      {u"\\xe9", "i", u"<\u00c9>"},
      {u"\\351", "i", u"<\u00c9>"},
      {u"[\u0430-\u044f]+", "i", u"<\u0416\u044f>"},
      {u"[^\u0430-\u044f]+", "i", u"\u0416\u044f<a>"},
      {u"\u03c3", "gi", u"<\u03a3><\u03c2><\u03c3>"},
      {u"(\u00e9)\\1", "i", u"<\u00e9\u00c9>"},
      {u"(.)\\1", "i", u"<\u00e9\u00c9>"},
      {u"(.)\\1", "", u"\u00e9\u00c9"},
      {u"i", "i", u"\u0130\u0131<I>"},
      // The two letters outside ASCII that fold into it.
      {u"k", "gi", u"<k><K><\u212A>"},
      {u"\u212A", "gi", u"<k><K><\u212A>"},
      {u"K+", "gi", u"<kK\u212A>"},
      {u"s", "gi", u"<s><S><\u017F>"},
      {u"[s]", "gi", u"<s><S><\u017F>"},
      {u"[^S]", "gi", u"s\u017F<t>"},
      {u"[j-l]", "gi", u"<j><K><\u212A>\u017F"},
      {u"[A-Z]+", "gi", u"<azAZ\u212A\u017F>"},
      {u"[\\wk]+", "gi", u"<az\u212A>\u017F"},
      {u"k", "g", u"<k>K\u212A"},
      {u"[@-`]", "gi", u"<A><\u212A>"},
  });
}

TEST(RegExpEngine, unpaired_surrogates_are_ordinary_units) {
  const std::u16string high{0xD83D};
  const std::u16string low{0xDE00};
  const auto engine = MakeRegExpEngine();
  for (const bool ignore_case : {false, true}) {
    const RegExpOptions options{.global = true, .ignore_case = ignore_case};
    EXPECT_EQ(engine->Replace(high, options, high + low, u"x"), u"x" + low);
    EXPECT_EQ(engine->Replace(u".", options, high + low, u"x"), u"xx");
    EXPECT_EQ(engine->Replace(u"[^a]", options, low + high, u"x"), u"xx");
    EXPECT_EQ(engine->Replace(u"[\\ud800-\\udbff]", options, low + high, u"x"), low + u"x");
    EXPECT_EQ(engine->Replace(u"\\uffff", options, std::u16string{0xFFFF}, u"x"), u"x");
    EXPECT_EQ(engine->Replace(u"a", options, high + u"a", low), high + low);
  }
}

TEST(RegExpEngine, character_escapes) {
  CheckMatches({
      {u"\\f\\n\\r\\t\\v", "", u"<\f\n\r\t\v>"},
      {u"\\x41\\u0042", "", u"<AB>"},
      {u"\\x4a\\u00E9", "", u"<J\u00e9>"},
      {u"\\x4", "", u"<x4>"},
      {u"\\x4g", "", u"<x4g>"},
      {u"\\xg", "", u"<xg>"},
      {u"\\x", "", u"<x>"},
      {u"\\u12", "", u"<u12>"},
      {u"\\u004x", "", u"<u004x>"},
      {u"\\u00411", "", u"<A1>"},
      {u"\\cJ", "", u"a<\n>"},
      {u"\\cj", "", u"a<\n>"},
      {u"\\c", "", u"a<c>"},
      {u"\\c1", "", u"a<c1>"},
      {u"\\c\u012a", "", u"a<c\u012a>"},
      {u"\\cA+", "", u"<\x01\x01>"},
      {u"\\0", "", std::u16string(u"a<") + char16_t{0} + u">"},
      {u"\\012", "", u"<\n>"},
      {u"\\12", "", u"<\n>"},
      {u"\\101", "", u"<A>"},
      {u"\\1011", "", u"<A1>"},
      {u"\\377", "", u"<\u00ff>"},
      {u"\\400", "", u"< 0>"},
      {u"\\18", "",
       u"<\x01"
       u"8>"},
      {u"\\8", "", u"<8>"},
      {u"\\9", "", u"<9>"},
      {u"\\.\\*\\+\\?\\(\\)\\[\\]\\{\\}\\|\\^\\$\\\\\\/", "", u"<.*+?()[]{}|^$\\/>"},
      {u"\\A\\Z\\z\\Q\\E\\e\\a\\h\\R\\K\\G\\X\\N\\p", "", u"<AZzQEeahRKGXNp>"},
      {u"\\pL\\H\\V\\g1\\k\\o\\y\\_\\-\\ ", "", u"<pLHVg1koy_- >"},
      {u"\\Qa+\\E", "", u"<QaaE>"},
      {u"\\\u00e9", "", u"<\u00e9>"},
  });
}

TEST(RegExpEngine, back_references) {
  CheckMatches({
      {u"(a)\\1", "", u"a <aa>"},
      {u"(a|b)\\1", "g", u"<aa>ba<bb>"},
      {u"(a)|b\\1", "", u"<b>"},
      {u"(a)?b\\1c", "", u"<bc>"},
      {u"(?:(a)|b)\\1", "", u"<b>a"},
      {u"(a*)\\1", "", u"<aaaa>a"},
      {u"(a\\1)", "", u"<a>a"},
      {u"((a)\\2)\\1", "", u"<aaaa>"},
      {u"(a)\\1*", "", u"<aaa>"},
      {u"(a)\\1{2}b", "", u"a<aaab>"},
      // A forward reference and a number without a group are octal escapes.
      {u"\\1(a)", "",
       u"a<\x01"
       u"a>"},
      {u"(a)\\2", "", u"<a\x02>"},
      {u"(a)\\8", "", u"<a8>"},
      {u"(?:a)\\1", "", u"<a\x01>"},
      // Two digits where that many groups stand before, else one digit and a plain one.
      {u"(a)(b)(c)(d)(e)(f)(g)(h)(i)(j)\\10", "", u"<abcdefghijj>"},
      {u"(a)\\10", "", u"<aa0>"},
      {u"(a)\\123", "", u"<aa23>"},
      {u"(a)\\0", "", std::u16string(u"<a") + char16_t{0} + u">"},
      {u"(a)\\1x", "", u"<aax>"},
  });
}

TEST(RegExpEngine, classes_in_brackets) {
  CheckMatches({
      {u"[abc]+", "", u"x<cab>d"},
      {u"[^abc]+", "", u"cab<d\n>a"},
      {u"[a-c]+", "", u"<abc>d"},
      {u"[]a]+", "", u"<]a>b"},
      {u"[^]a]+", "", u"]a<b>"},
      {u"[]-a]+", "", u"<]^_`a>b\\"},
      {u"[a-]+", "", u"<a->b"},
      {u"[-a]+", "", u"<-a>b"},
      {u"[a-]]", "", u"<a]>-]"},
      {u"[a-b-c]+", "", u"<ab-c>d"},
      {u"[+--]+", "", u"<+,->."},
      {u"[--/]+", "", u"<-./>0"},
      {u"[a^]+", "", u"<^a>b"},
      {u"[^^]+", "", u"^<a>"},
      {u"[.*+?|(){}$]+", "", u"<.*+?|(){}$>a"},
      {u"[[:alpha:]]", "", u"<a]>b"},
      {u"[[]", "", u"<[>"},
      {u"[[a]+", "", u"<a[>]"},
      {u"[\\]]+", "", u"<]>["},
      {u"[\\\\]", "", u"<\\>"},
      {u"[\\b]", "", u"b<\b>"},
      {u"[\\B]", "", u"\b<B>"},
      {u"[\\n\\t]+", "", u"n<\n\t>"},
      {u"[\\x41-\\x43]+", "", u"<ABC>D"},
      {u"[\\u0041-C]+", "", u"<ABC>D"},
      {u"[\\101-\\103]+", "", u"<ABC>D"},
      {u"[\\1]", "", u"1<\x01>"},
      {u"[\\8]", "", u"<8>"},
      {u"[\\c]", "", u"<c>"},
      {u"[\\cA]", "", u"c<\x01>"},
      {u"[\\x]", "", u"<x>"},
      {u"[\\Q\\E\\z\\p]+", "", u"<QEzp>"},
      {u"[a\\-z]+", "", u"<a-z>b"},
      {u"[\\d-z]+", "", u"<1-z>a"},
      {u"[a-\\d]+", "", u"<1-a>b"},
      {u"[\\w-.]+", "", u"<a-b.c>+"},
      {u"[\\w-a]+", "", u"<b-a>+"},
      {u"[\\s-\\d]+", "", u"<1 ->a"},
      {u"[\\D]+", "", u"1<ab>"},
      {u"[^\\d]+", "", u"1<ab>"},
      {u"[\\d\\D]+", "", u"<1a\n>"},
      {u"[^\\d\\s]+", "", u"1 <ab>"},
      {u"^[\\w-\\.]+@([\\w-]+\\.)+[\\w-]{2,4}$", "i", u"<john.doe-x@mail.example.com>"},
      {u"^[\\w-\\.]+@([\\w-]+\\.)+[\\w-]{2,4}$", "i", u"john doe@example.com"},
  });
}

TEST(RegExpEngine, groups_and_look_ahead) {
  CheckMatches({
      {u"(?:ab)+", "", u"<abab>a"},
      {u"a(?=b)", "g", u"<a>ba"},
      {u"a(?!b)", "g", u"ab<a>"},
      {u"(?=(a+))a*b\\1", "", u"baa<aba>c"},
      {u"(?=ba)x?b", "", u"a<b>a"},
      {u"(?=ba)x?^b", "", u"<b>a"},
      {u"(?!a)", "", u"a<>"},
      {u"(?=a)*b", "", u"a<b>"},
      {u"(?=a)+a", "", u"b<a>"},
      {u"(?=a)?b", "", u"<b>"},
      {u"(?=a){2}a", "", u"<a>"},
      {u"(?!b)*a", "", u"<a>"},
      {u"(?:)", "", u"<>a"},
      {u"()", "g", u"<>a<>"},
      {u"(|a)b", "", u"<ab>"},
      {u"^(?=.*\\d)(?=.*[a-z]).{4,8}$", "i", u"<abc123>"},
      {u"^(?=.*\\d)(?=.*[a-z]).{4,8}$", "i", u"abcdef"},
      {u"((((((((((a))))))))))\\10", "", u"<aa>"},
  });
}

TEST(RegExpEngine, Test_takes_no_notice_of_global) {
  const auto engine = MakeRegExpEngine();
  EXPECT_TRUE(engine->Test(u"a", OptionsFrom("g"), u"ba"));
  EXPECT_TRUE(engine->Test(u"a", OptionsFrom(""), u"ba"));
  EXPECT_FALSE(engine->Test(u"a", OptionsFrom("g"), u"b"));
}

TEST(RegExpEngine, views_without_an_address_are_empty_texts) {
  const auto engine = MakeRegExpEngine();
  EXPECT_TRUE(engine->Test({}, {}, {}));
  EXPECT_EQ(engine->Replace({}, {}, {}, {}), u"");
  EXPECT_EQ(engine->Replace(u"a", {}, u"bab", {}), u"bb");
  EXPECT_EQ(engine->Replace(u"^$", {}, {}, u"x"), u"x");
}

}  // namespace
}  // namespace vandpublic
