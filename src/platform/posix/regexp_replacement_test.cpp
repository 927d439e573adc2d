// The replacement text: through the engine, and the limit of its growth.
#include "platform/posix/regexp_replacement.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "platform/posix/regexp_pcre2.h"
#include "platform/posix/regexp_test_support.h"
#include "runtime/utf8.h"

namespace vandpublic {
namespace {

struct ReplaceRow {
  std::u16string pattern;
  std::string options;
  std::u16string source;
  std::u16string replacement;
  std::u16string result;
};

TEST(RegExpReplace, replacement_references) {
  const std::u16string ten_groups = u"(a)(b)(c)(d)(e)(f)(g)(h)(i)(j)";
  const std::vector<ReplaceRow> rows = {
      {u"b", "", u"abc", u"[$&]", u"a[b]c"},
      {u"b", "", u"abc", u"[$`]", u"a[a]c"},
      {u"b", "", u"abc", u"[$']", u"a[c]c"},
      {u"b", "", u"abc", u"$$", u"a$c"},
      {u"b", "", u"abc", u"$$1", u"a$1c"},
      {u"b", "", u"abc", u"$", u"a$c"},
      {u"b", "", u"abc", u"x$", u"ax$c"},
      {u"b", "", u"abc", u"$$$", u"a$$c"},
      {u"b", "", u"abc", u"$x", u"a$xc"},
      {u"b", "", u"abc", u"$<n>${1}", u"a$<n>${1}c"},
      {u"b", "", u"abc", u"\\1\\n", u"a\\1\\nc"},
      {u"b", "", u"abc", u"", u"ac"},
      {u"b", "", u"abc", u"$1", u"a$1c"},
      {u"b", "", u"abc", u"$11", u"a$11c"},
      {u"(b)", "", u"abc", u"[$1]", u"a[b]c"},
      {u"(b)", "", u"abc", u"[$01]", u"a[b]c"},
      {u"(b)", "", u"abc", u"$10", u"ab0c"},
      {u"(b)", "", u"abc", u"$1x", u"abxc"},
      {u"(b)", "", u"abc", u"$3", u"a$3c"},
      {u"(b)", "", u"abc", u"$0", u"a$0c"},
      {u"(b)", "", u"abc", u"$00", u"a$00c"},
      {u"(b)", "", u"abc", u"$02", u"a$02c"},
      {u"(b)", "", u"abc", u"$001", u"a$001c"},
      {u"(b)", "", u"abc", u"$99", u"a$99c"},
      {u"(b)", "", u"abc", u"$1$1", u"abbc"},
      {u"(b)(c)", "", u"abc", u"$2$1", u"acb"},
      {u"(b)|(x)", "", u"abc", u"[$2]", u"a[]c"},
      {u"(x)?b", "", u"abc", u"[$1]", u"a[]c"},
      {u"(x)*b", "", u"abc", u"[$1]", u"a[]c"},
      {ten_groups, "", u"abcdefghij", u"$10", u"j"},
      {ten_groups, "", u"abcdefghij", u"$11", u"a1"},
      {ten_groups, "", u"abcdefghij", u"$101", u"j1"},
      {ten_groups, "", u"abcdefghij", u"$09", u"i"},
      {Repeated(u"()", 98) + u"(b)", "", u"abc", u"$99", u"abc"},
      // Each match sees the whole source before and after it, not what has become of it.
      {u"b", "g", u"abab", u"[$`|$']", u"a[a|ab]a[aba|]"},
      {u"(\\w+) (\\w+)", "", u"John Smith", u"$2, $1", u"Smith, John"},
      {u"\\u00e9", "i", u"caf\u00c9", u"$&$&", u"caf\u00c9\u00c9"},
  };
  const auto engine = MakeRegExpEngine();
  for (const auto& row : rows) {
    EXPECT_EQ(
        ToUtf8(engine->Replace(row.pattern, OptionsFrom(row.options), row.source, row.replacement)),
        ToUtf8(row.result))
        << ToUtf8(row.pattern) << "  " << ToUtf8(row.replacement);
  }
}

TEST(RegExpReplace, which_matches_are_replaced) {
  const std::vector<ReplaceRow> rows = {
      {u"a", "", u"aaa", u"b", u"baa"},
      {u"a", "g", u"aaa", u"b", u"bbb"},
      {u"a", "gi", u"aA", u"x", u"xx"},
      {u"a*", "g", u"baaac", u"-", u"-b--c-"},
      {u"a*", "", u"baaac", u"-", u"-baaac"},
      {u"a*?", "g", u"ab", u"-", u"-a-b-"},
      {u"", "g", u"ab", u"-", u"-a-b-"},
      {u"", "g", u"", u"-", u"-"},
      {u"", "", u"", u"-", u"-"},
      {u"x", "g", u"", u"-", u""},
      {u"x", "g", u"abc", u"-", u"abc"},
      {u"$", "g", u"ab", u"-", u"ab-"},
      {u"^", "g", u"ab", u"-", u"-ab"},
      {u"\\b", "g", u"a bc", u"|", u"|a| |bc|"},
      {u"(?=b)", "g", u"abb", u"-", u"a-b-b"},
      {u"aa", "g", u"aaaaa", u"b", u"bba"},
      {u"\\s+", "g", u" a  b ", u"", u"ab"},
  };
  const auto engine = MakeRegExpEngine();
  for (const auto& row : rows) {
    EXPECT_EQ(
        ToUtf8(engine->Replace(row.pattern, OptionsFrom(row.options), row.source, row.replacement)),
        ToUtf8(row.result))
        << ToUtf8(row.pattern) << " in " << ToUtf8(row.source);
  }
}

TEST(RegExpReplace, a_result_within_the_limit_is_complete_and_one_beyond_it_is_an_error) {
  const std::array<std::size_t, 4> bounds = {1, 2, 1, 2};
  const RegExpMatch match{u"abc", bounds};
  std::u16string result = u"12";
  AppendReplacement(result, u"$`-$1", match, 5);
  EXPECT_EQ(result, u"12a-b");
  EXPECT_EQ(FaultNumberOf([&] { AppendReplacement(result, u"$&", match, 5); }), 7);
  EXPECT_EQ(FaultNumberOf([&] { AppendReplacement(result, u"x", match, 5); }), 7);
  EXPECT_EQ(result, u"12a-b");
}

TEST(RegExpReplace, a_replacement_that_grows_without_measure_is_an_error) {
  const auto engine = MakeRegExpEngine();
  const std::u16string source(200000, u'a');
  EXPECT_EQ(FaultNumberOf([&] { engine->Replace(u"", {}, source, u"$`$'"); }), 7);
  EXPECT_EQ(engine->Replace(u"a", {}, source, u"ab").size(), 400000U) << "and it still works";
}

}  // namespace
}  // namespace vandpublic
