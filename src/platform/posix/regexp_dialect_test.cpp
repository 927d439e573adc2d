// How patterns are written for the matcher.
#include "platform/posix/regexp_dialect.h"

#include <gtest/gtest.h>

#include <vector>

#include "platform/posix/regexp_test_support.h"
#include "runtime/utf8.h"

namespace vandpublic {
namespace {

struct TranslationRow {
  std::u16string pattern;
  std::string options;
  std::u16string text;
};

void CheckTranslations(const std::vector<TranslationRow>& rows) {
  for (const auto& row : rows) {
    const RegExpOptions options = OptionsFrom(row.options);
    const auto translated = TranslateRegExp(row.pattern, options.ignore_case, options.multiline);
    EXPECT_EQ(ToUtf8(translated.text), ToUtf8(row.text)) << ToUtf8(row.pattern);
  }
}

TEST(RegExpDialect, what_the_matcher_would_read_differently_is_spelled_out) {
  CheckTranslations({
      {u"", "", u""},
      {u"a.b", "", u"a.b"},
      {u"^a$", "", u"^a\\z"},
      {u"^a$", "m", u"(?<![^\\n\\r])a(?![^\\n\\r])"},
      {u"a{,3}", "", u"a\\{,3}"},
      {u"\\Q\\x41\\u0042\\.", "", u"QAB\\."},
      {u"(a)\\1\\2", "", u"(a)\\g{1}\x02"},
      {u"[]^a-c\\d-]", "", u"[\\]\\^a-c\\d\\-]"},
      {u"[[:a]", "", u"[\\[:a]"},
      {u"\\w\\b", "", u"\\w\\b"},
      {u"\\w\\b", "i", u"\\w\\b"},
      {u"\\w\u4e00", "i", u"(?-i)[0-9A-Z_a-z](?i)\u4e00"},
      {u"\\d\\S\u4e00", "i", u"[0-9][^\\t-\\r ]\u4e00"},
      {u"[\\w\u4e00]", "i", u"(?:[\u4e00]|(?-i)[0-9A-Z_a-z])"},
      {u"[^\\w\u4e00]", "i", u"(?:(?=(?-i)[^0-9A-Z_a-z])[^\u4e00])"},
      {u"k", "i", u"[k\u212a]"},
      {u"[r-t]", "i", u"[r-t\u017f]"},
      {u"(?=a)", "", u"(*NO_START_OPT)(?=a)"},
      {u"(?!a)", "", u"(?!a)"},
  });
}

TEST(RegExpDialect, full_folding_is_only_for_patterns_that_may_need_it) {
  const auto folding = [](std::u16string_view pattern, bool ignore_case) {
    return TranslateRegExp(pattern, ignore_case, false).folding;
  };
  EXPECT_EQ(folding(u"\u00e9", false), RegExpFolding::None);
  EXPECT_EQ(folding(u"[a-z]\\w\\b\\n\\ca", true), RegExpFolding::Ascii);
  EXPECT_EQ(folding(u"\u00e9", true), RegExpFolding::Full);
  EXPECT_EQ(folding(u"\\xe9", true), RegExpFolding::Full);
  EXPECT_EQ(folding(u"\\u00e9", true), RegExpFolding::Full);
  EXPECT_EQ(folding(u"\\351", true), RegExpFolding::Full);
  EXPECT_EQ(folding(u"(.)\\1", true), RegExpFolding::Full);
}

TEST(RegExpDialect, callouts_stand_where_a_matcher_can_lose_itself) {
  CheckTranslations({
      {u"abc", "", u"abc"},
      {u"\\d{4}-\\d{2}", "", u"\\d{4}-\\d{2}"},
      {u"(a)b(?:c)", "", u"(a)b(?:c)"},
      // The first choice has the callout at the start, each later one its own.
      {u"a*b", "", u"(?C)a*b"},
      {u"a*b*c?", "", u"(?C)a*(?C)b*(?C)c?"},
      {u"a{2,3}b{0,1}c{1,}?", "", u"(?C)a{2,3}(?C)b?(?C)c+?"},
      {u"a|b", "", u"(?C)a|b"},
      {u"(a|b)(c|d)", "", u"(?C)(a|b)((?C)c|d)"},
      {u"a*(b|c|d)", "", u"(?C)a*((?C)b|c|d)"},
      {u"(a|b)*", "", u"(?C)((?C)a|b)*"},
      {u"(?:ab)*", "", u"(?C)(?:ab)*"},
      {u"(?:a*b)*", "", u"(?C)(?:(?C)a*b)*"},
      {u"(a+)\\1", "", u"(?C)(a+)(?C)\\g{1}"},
      {u"(a)\\1*", "", u"(?C)(a)\\g{1}*"},
      // So does much work without a choice.
      {u"a{64}b", "", u"(?C)a{64}b(?C)"},
      {u"(?:ab){40}", "", u"(?C)(?:(?C)ab){40}"},
      {Repeated(u"a", 64), "", Repeated(u"a", 64)},
      {Repeated(u"a", 66), "", u"(?C)" + Repeated(u"a", 65) + u"(?C)a"},
  });
}

}  // namespace
}  // namespace vandpublic
