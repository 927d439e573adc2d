// What a hostile or careless pattern may cost: an error, soon, and little stack.
#include <gtest/gtest.h>
#include <pthread.h>

#include <ctime>
#include <functional>
#include <random>
#include <vector>

#include "platform/posix/regexp_dialect.h"
#include "platform/posix/regexp_pcre2.h"
#include "platform/posix/regexp_test_support.h"
#include "runtime/utf8.h"

namespace vandpublic {
namespace {

constexpr int kOutOfStackSpace = 28;
constexpr RegExpOptions kDefault{};

// Processor time of this thread, so that a busy machine does not make a test fail.
double CpuSeconds() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9;
}

struct HostileRow {
  std::u16string pattern;
  std::u16string subject;
};

// Returns how many of the rows took the engine to a limit. Each must end in 5 s of processor
// time (the limit is about one, and sanitizers do not slow the library down).
int CountLimited(RegExpEngine& engine, const std::vector<HostileRow>& rows) {
  int limited = 0;
  for (const auto& row : rows) {
    const double before = CpuSeconds();
    const int number = FaultNumberOf([&] { engine.Test(row.pattern, kDefault, row.subject); });
    EXPECT_LT(CpuSeconds() - before, 5.0) << ToUtf8(row.pattern.substr(0, 60));
    EXPECT_TRUE(number == 0 || number == kOutOfStackSpace) << ToUtf8(row.pattern.substr(0, 60));
    if (number == kOutOfStackSpace) ++limited;
  }
  return limited;
}

TEST(RegExpLimits, exponential_patterns_end_in_an_error) {
  const auto engine = MakeRegExpEngine();
  const std::vector<HostileRow> rows = {
      {u"(a+)+$", std::u16string(30, u'a') + u"b"},
      {u"(a+)+$", std::u16string(40, u'a') + u"b"},
      {u"(a|aa)+$", std::u16string(60, u'a') + u"b"},
      {u"(?:a*)*[bc]", std::u16string(40, u'a')},
      {u"((a*)*)*[bc]", std::u16string(40, u'a')},
      {u"(\\w+\\s?)+$", Repeated(u"word", 20) + u"!"},
      {Repeated(u"(a|a)", 40) + u"[bc]", std::u16string(60, u'a')},
      {Repeated(u"(?=a|a)(?:aa|a)", 40) + u"[bc]", std::u16string(100, u'a')},
      {Repeated(u"()", 2000) + Repeated(u"(?:a|a)", 30) + u"[bc]", std::u16string(40, u'a')},
  };
  EXPECT_EQ(CountLimited(*engine, rows), static_cast<int>(rows.size()));
}

// No single start takes too many steps here, but all starts together take too long. The subjects
// are long enough for machine code.
TEST(RegExpLimits, patterns_that_take_too_long_in_all_end_in_an_error) {
  const auto engine = MakeRegExpEngine();
  const std::vector<HostileRow> rows = {
      {u"[ab]*[ab]*[ab]*[cd]", std::u16string(20000, u'a')},
      {Repeated(u"(a|a)", 18) + u"[bc]", std::u16string(60000, u'a')},
      {u"(?:(?!a*b)a)*[bc]", std::u16string(100000, u'a')},
      {u"[ab]{60000}[cd]", std::u16string(300000, u'a')},
  };
  EXPECT_EQ(CountLimited(*engine, rows), static_cast<int>(rows.size()));
}

TEST(RegExpLimits, patterns_that_only_look_hostile_give_their_answer) {
  const auto engine = MakeRegExpEngine();
  EXPECT_FALSE(engine->Test(u"(a*)*b", kDefault, std::u16string(40, u'a') + u"c"));
  EXPECT_TRUE(engine->Test(u"(a*)*b", kDefault, std::u16string(40, u'a') + u"b"));
  EXPECT_TRUE(engine->Test(u"(a+)+$", kDefault, std::u16string(1000, u'a')));
  EXPECT_FALSE(engine->Test(u"(a+)+$", kDefault, std::u16string(16, u'a') + u"b"));
}

TEST(RegExpLimits, an_engine_works_on_after_a_limit) {
  const auto engine = MakeRegExpEngine();
  const std::u16string hostile = std::u16string(40, u'a') + u"b";
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(FaultNumberOf([&] { engine->Test(u"(a+)+$", kDefault, hostile); }), 28);
    EXPECT_TRUE(engine->Test(u"(a+)+$", kDefault, u"aaa"));
    EXPECT_EQ(engine->Replace(u"(a+)+$", kDefault, u"baa", u"[$1]"), u"b[aa]");
  }
}

TEST(RegExpLimits, patterns_too_large_to_compile_are_syntax_errors) {
  const auto engine = MakeRegExpEngine();
  const std::vector<std::u16string> patterns = {
      Repeated(u"(", 201) + Repeated(u")", 201),
      Repeated(u"(", 1000000),
      Repeated(u"(?:", 1000000) + Repeated(u")*", 1000000),
      Repeated(u"(?=", 5000) + Repeated(u")", 5000),
      Repeated(u"abc", 300000),
      Repeated(u"ab|", 300000),
      Repeated(u"(a)", 50000),
      Repeated(u"[\\u0100-\\uffff]", 10000),
      u"(((a{1,1000}){1,1000}){1,1000}){1,1000}",
      u"(?:(?:a{0,100}){0,100}){0,100}",
  };
  for (const auto& pattern : patterns) {
    const double before = CpuSeconds();
    for (const std::string options : {"", "i"}) {
      EXPECT_EQ(FaultNumberOf([&] { engine->Test(pattern, OptionsFrom(options), u"a"); }), 5017)
          << ToUtf8(pattern.substr(0, 60));
    }
    EXPECT_LT(CpuSeconds() - before, 2.0) << ToUtf8(pattern.substr(0, 60));
  }
  EXPECT_EQ(FaultNumberOf([&] { engine->Test(Repeated(u"[", 100000), {}, u""); }), 5019);
  EXPECT_TRUE(engine->Test(Repeated(u"(", 200) + u"a" + Repeated(u")*", 200), {}, u"a"));
}

constexpr std::size_t kSmallStack = 0x40000;  // 256 KiB

// Runs the action on a thread with a small stack; a stack that is too small ends the process.
void RunOnSmallStack(std::function<void()> action) {
  pthread_attr_t attributes;
  ASSERT_EQ(pthread_attr_init(&attributes), 0);
  ASSERT_EQ(pthread_attr_setstacksize(&attributes, kSmallStack), 0);
  const auto run = [](void* what) -> void* {
    (*static_cast<std::function<void()>*>(what))();
    return nullptr;
  };
  pthread_t thread{};
  ASSERT_EQ(pthread_create(&thread, &attributes, run, &action), 0);
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
}

TEST(RegExpLimits, a_million_units_need_no_more_than_a_small_stack) {
  RunOnSmallStack([] {
    const auto engine = MakeRegExpEngine();
    const std::u16string text(1000000, u'a');
    for (const std::u16string pattern : {u"^[0-9A-F]+$", u"^(a|b)*$", u"^(?:a|b)*?$", u"^(?:ab?)+$",
                                         u"^.*$", u"^(a+)+$", u"^a*?$", u"^(?:(?=a)a)*$"}) {
      EXPECT_TRUE(engine->Test(pattern, kDefault, text)) << ToUtf8(pattern);
    }
    EXPECT_EQ(engine->Replace(u"a", kDefault, text, u"bc").size(), 2000000U);
    EXPECT_EQ(engine->Replace(u"(?:a|b)+", kDefault, text, u"$&$&").size(), 2000000U);
    EXPECT_EQ(engine->Replace(u"", kDefault, text, u"-").size(), 2000001U);
    EXPECT_EQ(FaultNumberOf([&] { engine->Test(u"^(a|b|(c)|(d)|(e)|(f))*$", {}, text); }), 28);
    EXPECT_EQ(FaultNumberOf([&] { engine->Test(u"(a+)+[bc]", kDefault, text); }), 28);
  });
}

TEST(RegExpLimits, the_deepest_pattern_needs_no_more_than_a_small_stack) {
  RunOnSmallStack([] {
    const auto engine = MakeRegExpEngine();
    const std::u16string text(20000, u'a');
    for (const std::u16string open : {u"(", u"(?:", u"(?=", u"(?:a|"}) {
      const std::u16string pattern =
          Repeated(open, kRegExpNestingLimit) + u"a" + Repeated(u")*", kRegExpNestingLimit);
      EXPECT_TRUE(engine->Test(pattern, kDefault, text)) << ToUtf8(open);
    }
  });
}

// Anything may come in as a pattern. What is not an error must keep two promises: $& puts back
// what was there, and Test tells whether Replace finds something.
TEST(RegExpLimits, random_units_never_do_harm) {
  const std::u16string units =
      std::u16string(
          u"aabbkSs01289\\\\\\\\(((()))[[]]{{}},,--^^$$||**++??..:=!<>xucdDwWsSBn \n\r") +
      u"\u00e9\u00c9\u0416\u212a\u017f\uffff" + char16_t{0} + char16_t{0xD800} + char16_t{0xDC00};
  std::mt19937 random(5017);
  const auto random_text = [&](std::size_t longest) {
    std::u16string text;
    for (auto left = random() % (longest + 1); left != 0; --left) {
      text += units[random() % units.size()];
    }
    return text;
  };
  const auto engine = MakeRegExpEngine();
  int compiled = 0;
  for (int round = 0; round < 30000; ++round) {
    const std::u16string pattern = random_text(16);
    const std::u16string subject = random_text(40);
    const auto bits = random();
    const RegExpOptions options{
        .global = (bits & 1) != 0, .ignore_case = (bits & 2) != 0, .multiline = (bits & 4) != 0};
    const int number = FaultNumberOf([&] {
      const bool found = engine->Test(pattern, options, subject);
      ASSERT_EQ(engine->Replace(pattern, options, subject, u"$&"), subject) << ToUtf8(pattern);
      ASSERT_EQ(engine->Replace(pattern, options, subject, u"\u20ac").find(u'\u20ac') !=
                    std::u16string::npos,
                found)
          << ToUtf8(pattern);
      ++compiled;
    });
    ASSERT_FALSE(HasFatalFailure());
    ASSERT_TRUE(number == 0 || (number >= 5017 && number <= 5021) || number == 28)
        << number << " for " << ToUtf8(pattern);
  }
  EXPECT_GT(compiled, 3000) << "nearly all patterns were errors: the test says little";
}

}  // namespace
}  // namespace vandpublic
