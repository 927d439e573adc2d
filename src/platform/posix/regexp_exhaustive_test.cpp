// Compares the engine with a tiny matcher: every pattern up to five units over a small alphabet,
// and random longer ones, against every short subject.
#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "platform/posix/regexp_pcre2.h"
#include "platform/posix/regexp_test_support.h"
#include "platform/posix/regexp_tiny_matcher.h"
#include "runtime/utf8.h"

namespace vandpublic {
namespace {

constexpr RegExpOptions kFirstOnly{.global = false, .ignore_case = false, .multiline = false};

std::vector<std::u16string> TextsUpTo(std::u16string_view alphabet, std::size_t longest) {
  std::vector<std::u16string> texts{u""};
  for (std::size_t i = 0; texts[i].size() < longest; ++i) {
    for (const char16_t unit : alphabet)
      texts.push_back(texts[i] + unit);
  }
  return texts;
}

// The subject with <match|group 1|group 2...> in place of the match.
std::u16string Mark(const TinyMatcher& matcher, std::u16string_view subject) {
  const auto captures = matcher.Search(subject);
  if (!captures) return std::u16string(subject);
  const auto [from, to] = *(*captures)[0];
  std::u16string marked(subject.substr(0, from));
  for (std::size_t group = 0; group <= matcher.GroupCount(); ++group) {
    marked += group == 0 ? u'<' : u'|';
    if (const auto& span = (*captures)[group]) {
      marked += subject.substr(span->first, span->second - span->first);
    }
  }
  marked += u'>';
  marked += subject.substr(to);
  return marked;
}

std::u16string MarkingReplacement(std::size_t groups) {
  std::u16string text = u"<$&";
  for (std::size_t group = 1; group <= groups; ++group) {
    text += {u'|', u'$', static_cast<char16_t>(u'0' + group)};
  }
  return text + u'>';
}

// Counts what it compares, so that a test can tell that it has compared something.
class Comparison {
 public:
  void Compare(const std::u16string& pattern, const std::vector<std::u16string>& subjects) {
    std::optional<TinyMatcher> matcher;
    try {
      matcher.emplace(pattern);
    } catch (const RuntimeFault& fault) {
      ++refused;
      ASSERT_EQ(FaultNumberOf([&] { engine_->Test(pattern, kFirstOnly, u""); }),
                static_cast<int>(fault.number()))
          << ToUtf8(pattern);
      return;
    }
    // Every other pattern is compared in machine code, to which a long subject makes the engine
    // turn. Line feeds, since hardly a pattern can lose itself in them.
    if (++accepted % 2 == 0) engine_->Test(pattern, kFirstOnly, long_subject_);
    const std::u16string replacement = MarkingReplacement(matcher->GroupCount());
    for (const auto& subject : subjects) {
      const std::u16string expected = Mark(*matcher, subject);
      if (expected != subject) ++matched;
      ASSERT_EQ(ToUtf8(engine_->Replace(pattern, kFirstOnly, subject, replacement)),
                ToUtf8(expected))
          << ToUtf8(pattern) << " on " << ToUtf8(subject);
    }
  }

  std::size_t matched = 0;
  std::size_t accepted = 0;
  std::size_t refused = 0;

 private:
  const std::u16string long_subject_ = std::u16string(20000, u'\n');
  std::unique_ptr<RegExpEngine> engine_ = MakeRegExpEngine();
};

TEST(RegExpExhaustive, short_patterns_agree_with_a_tiny_matcher) {
  Comparison comparison;
  const auto subjects = TextsUpTo(u"ab", 3);
  for (const auto& pattern : TextsUpTo(u"ab*?|().", 5)) {
    ASSERT_NO_FATAL_FAILURE(comparison.Compare(pattern, subjects));
  }
  EXPECT_GT(comparison.matched, 10000U);
  EXPECT_GT(comparison.refused, 1000U);
}

TEST(RegExpExhaustive, random_patterns_of_longer_pieces_agree_with_a_tiny_matcher) {
  const std::vector<std::u16string> pieces = {u"a",   u"b",   u"a",   u"b",   u".",  u"*", u"?",
                                              u"|",   u"(",   u")",   u")",   u")",  u"^", u"$",
                                              u"(?:", u"(?=", u"(?!", u"\\1", u"\\2"};
  Comparison comparison;
  const auto subjects = TextsUpTo(u"ab", 4);
  std::mt19937 random(20240315);
  for (int round = 0; round < 40000; ++round) {
    std::u16string pattern;
    for (auto left = random() % 12; left != 0; --left)
      pattern += pieces[random() % pieces.size()];
    ASSERT_NO_FATAL_FAILURE(comparison.Compare(pattern, subjects));
  }
  EXPECT_GT(comparison.matched, 10000U);
  EXPECT_GT(comparison.refused, 1000U);
}

}  // namespace
}  // namespace vandpublic
