#include "runners/expectation.h"

#include <gtest/gtest.h>

#include "platform/code_page.h"

namespace vandpublic {
namespace {

struct Comparison {
  const char* reply;
  const char* expected;  // null: no expectation
  bool good;
};

class Reply : public testing::TestWithParam<Comparison> {};

TEST_P(Reply, is_compared_with_what_is_expected) {
  const auto& [reply, expected, good] = GetParam();
  const auto wanted =
      expected == nullptr ? std::optional<Json>() : std::optional(Json::parse(expected));
  const std::string problem = ReplyProblem(Json::parse(reply), wanted);
  EXPECT_EQ(problem.empty(), good) << problem;
}

constexpr const char* kResult = R"({"result":{"vt":2,"value":5},"refs":{"a":1,"b":"x"}})";
constexpr const char* kError =
    R"({"error":{"number":-2147221485,"hex":"0x80040013","source":"s","description":"d"},)"
    R"("refs":{"a":1}})";
constexpr const char* kRefusal = R"({"protocol_error":"unknown member 'Foo'"})";

constexpr Comparison kComparisons[] = {
    {kResult, nullptr, true},
    {kError, nullptr, false},
    {kRefusal, nullptr, false},
    {kResult, R"({"result":{"value":5,"vt":2}})", true},
    {kResult, R"({"result":{"value":6,"vt":2}})", false},
    {kResult, R"({"result":null})", false},
    {kResult, R"({"refs":{"b":"x"}})", true},
    {kResult, R"({"refs":{"b":"y"}})", false},
    {kResult, R"({"refs":{"c":null}})", false},
    {kResult, R"({"result":{"vt":2,"value":5},"refs":{"a":2}})", false},
    {kResult, R"({"error":{"number":5}})", false},
    {kResult, R"({"protocol_error":true})", false},
    {kError, R"({"error":{"number":"0x80040013"}})", true},
    {kError, R"({"error":{"number":"0x80040012"}})", false},
    {kError, R"({"error":{"number":-2147221485,"source":"s","description":"d"},"refs":{"a":1}})",
     true},
    {kError, R"({"error":{"source":"S"}})", false},
    {kError, R"({"error":{"description":""}})", false},
    {kError, R"({"error":{"number":"0x80040013"},"refs":{"a":2}})", false},
    {kError, R"({"result":null})", false},
    {kError, R"({"refs":{"a":1}})", false},
    {kRefusal, R"({"protocol_error":true})", true},
    {kRefusal, R"({"protocol_error":"unknown member 'Foo'"})", true},
    {kRefusal, R"({"protocol_error":"unknown member 'Bar'"})", false},
    {kRefusal, R"({"error":{"number":5}})", false},
};
INSTANTIATE_TEST_SUITE_P(Expectation, Reply, testing::ValuesIn(kComparisons));

std::string Log(const std::string& bytes) {
  return LogProblem(bytes, {{"A.M.F", "one"}, {"A.M.G", "caf\xC3\xA9", "three"}},
                    *FindCodePage(1252), "2024-03-05 14:00:00", "2024-03-05 15:00:00");
}

const std::string kBlanks(20, ' ');
const std::string kFirst = "2024-03-05 14:07:09 A.M.F\r\n" + kBlanks + "one\r\n";
const std::string kSecond =
    "2024-03-05 14:07:10 A.M.G\r\n" + kBlanks + "caf\xE9\r\n" + kBlanks + "three\r\n";

TEST(Expectation, takes_the_log_as_it_must_be) { EXPECT_EQ(Log(kFirst + kSecond), ""); }

TEST(Expectation, finds_what_is_wrong_with_a_log) {
  EXPECT_NE(Log(""), "");
  EXPECT_NE(Log(kFirst), "");
  EXPECT_NE(Log(kSecond + kFirst), "");
  EXPECT_NE(Log(kFirst + kSecond + "\r\n"), "");
  EXPECT_NE(Log("\r\n" + kFirst + kSecond), "");
  EXPECT_NE(Log(kFirst + kSecond + kFirst), "");
  EXPECT_NE(Log((kFirst + kSecond).substr(0, kFirst.size() + kSecond.size() - 1)), "");
}

TEST(Expectation, checks_each_part_of_an_entry) {
  const auto with = [](std::string_view part, std::string_view other) {
    std::string log = kFirst + kSecond;
    log.replace(log.find(part), part.size(), other);
    return Log(log);
  };
  EXPECT_EQ(with("14:07:09", "14:07:08"), "");
  EXPECT_NE(with("14:07:09", "13:07:09"), "");
  EXPECT_NE(with("14:07:09", "15:07:09"), "");
  EXPECT_NE(with("2024-03-05", "2024/03/05"), "");
  EXPECT_NE(with("2024-03-05 14:07:09", "2024-03-05  4:07:09"), "");
  EXPECT_NE(with("\r\n", "\n"), "");
  EXPECT_NE(with(" one", "  one"), "");
  EXPECT_NE(with("  one", " one"), "");
  EXPECT_NE(with("one\r\n", "one \r\n"), "");
  EXPECT_NE(with("\xE9", "\xC3\xA9"), "");
}

TEST(Expectation, knows_the_time) {
  const std::string now = Now();
  EXPECT_EQ(now.size(), 19u);
  EXPECT_EQ(now.substr(0, 2), "20");
}

}  // namespace
}  // namespace vandpublic
