// What an engine remembers between calls must not show: compiled patterns and machine code.
#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

#include "platform/posix/regexp_pcre2.h"
#include "platform/posix/regexp_test_support.h"
#include "runtime/utf8.h"

namespace vandpublic {
namespace {

TEST(RegExpCache, threads_may_share_an_engine) {
  const auto engine = MakeRegExpEngine();
  std::vector<std::thread> threads;
  std::vector<int> wrong(4, 0);
  threads.reserve(wrong.size());
  for (int& count : wrong) {
    threads.emplace_back([&engine, &count] {
      for (int i = 0; i < 3000; ++i) {
        const auto digit = static_cast<char16_t>(u'0' + i % 10);
        const std::u16string pattern = std::u16string(u"(") + digit + u"+)";
        const std::u16string source = std::u16string(u"x") + digit + digit + u"y";
        const std::u16string expected = std::u16string(u"x[") + digit + digit + u"]y";
        if (engine->Replace(pattern, {}, source, u"[$1]") != expected) ++count;
        if (engine->Test(u"^(a|b)+$", {}, u"abc")) ++count;
      }
    });
  }
  for (auto& thread : threads) {
    thread.join();
  }
  EXPECT_EQ(wrong, std::vector<int>(4, 0));
}

TEST(RegExpCache, remembered_patterns_cannot_be_told_from_new_ones) {
  const auto engine = MakeRegExpEngine();
  for (int round = 0; round < 3; ++round) {
    for (int i = 0; i < 40; ++i) {
      const std::u16string pattern = u"^a{" + FromUtf8(std::to_string(i)) + u"}$";
      const auto length = static_cast<std::size_t>(i);
      ASSERT_TRUE(engine->Test(pattern, {}, std::u16string(length, u'A')));
      ASSERT_FALSE(engine->Test(pattern, {}, std::u16string(length + 1, u'A')));
    }
    ASSERT_TRUE(engine->Test(u"^A$", OptionsFrom("i"), u"a"));
    ASSERT_FALSE(engine->Test(u"^A$", OptionsFrom(""), u"a"));
    ASSERT_TRUE(engine->Test(u"^A$", OptionsFrom("m"), u"b\nA"));
    ASSERT_FALSE(engine->Test(u"^A$", OptionsFrom("g"), u"b\nA"));
    ASSERT_EQ(FaultNumberOf([&] { engine->Test(u"(", {}, u""); }), 5020);
  }
}

// The library's interpreter and its machine code are two matchers.
TEST(RegExpCache, machine_code_finds_what_the_interpreter_finds) {
  const std::u16string filling(20000, u'#');  // enough to make the engine turn to machine code
  for (const std::u16string pattern :
       {u"(\\w+)\\s(\\w+)", u"\\bk\\b", u"(a|b)+c", u"([a-z])\\1", u"^x*", u"$", u"[^#]+",
        u"\\u00e9|[\\w\u4e00]+", u"(?=b)b", u"(\\d{2,3}?)-?", u"(?:)"}) {
    const std::u16string subject = u"ab KK abc x\u00c9 12-345\u212a";
    const auto fresh = MakeRegExpEngine();
    const std::u16string expected = fresh->Replace(pattern, {}, subject, u"<$&>");
    const auto warm = MakeRegExpEngine();
    warm->Test(pattern, {}, filling);
    EXPECT_EQ(ToUtf8(warm->Replace(pattern, {}, subject, u"<$&>")), ToUtf8(expected))
        << ToUtf8(pattern);
  }
}

}  // namespace
}  // namespace vandpublic
