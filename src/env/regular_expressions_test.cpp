// RegExpTest and RegExpReplace: what they hand to the engine and what they make of its errors.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/test_component.h"

namespace vandpublic {
namespace {

using testing::ElementsAre;

// Notes each call; raises when the pattern is "(".
class NotingEngine final : public RegExpEngine {
 public:
  bool Test(std::u16string_view pattern, RegExpOptions options,
            std::u16string_view source) override {
    Note(pattern, options, source);
    return source == u"yes";
  }
  std::u16string Replace(std::u16string_view pattern, RegExpOptions options,
                         std::u16string_view source, std::u16string_view replacement) override {
    Note(pattern, options, source);
    return std::u16string(replacement) + u"!";
  }

  std::string last;  // "pattern|source|" and a letter for each option that is on

 private:
  void Note(std::u16string_view pattern, RegExpOptions options, std::u16string_view source) {
    if (pattern == u"(") RaiseFault(FaultNumber::RegExpExpectedParenthesis);
    last = ToUtf8(pattern) + "|" + ToUtf8(source) + "|";
    if (options.global) last += 'g';
    if (options.ignore_case) last += 'i';
    if (options.multiline) last += 'm';
  }
};

class RegularExpressionsTest : public testing::Test {
 protected:
  RegularExpressionsTest() { services_.regexp = engine_; }

  std::shared_ptr<NotingEngine> engine_ = std::make_shared<NotingEngine>();
  FakePlatform services_;
};

TEST_F(RegularExpressionsTest, The_switches_reach_the_engine) {
  clsPublic object(services_.Make());
  EXPECT_TRUE(object.RegExpTest("yes", "p"));
  EXPECT_EQ(engine_->last, "p|yes|gi") << "the defaults";
  EXPECT_FALSE(object.RegExpTest("no", "p", false, false, true));
  EXPECT_EQ(engine_->last, "p|no|m");
  EXPECT_EQ(object.RegExpReplace("s", "p", "r").ToUtf8(), "r!");
  EXPECT_EQ(engine_->last, "p|s|gi");
  object.RegExpReplace("s", "p", "r", false, true, true);
  EXPECT_EQ(engine_->last, "p|s|im");
}

TEST_F(RegularExpressionsTest, An_error_of_the_engine_is_described_and_raised) {
  clsPublic object(services_.Make());
  const std::string composed = Composed(FaultNumber::RegExpExpectedParenthesis);
  String description = "old";
  EXPECT_EQ(RaisedBy([&] { object.RegExpTest("s", "(", true, true, false, description); }),
            MemberError(0x01, "RegExpTest", composed));
  EXPECT_EQ(description.ToUtf8(), composed);
  description = "old";
  EXPECT_EQ(RaisedBy([&] { object.RegExpReplace("s", "(", "r", true, true, false, description); }),
            MemberError(0x02, "RegExpReplace", composed));
  EXPECT_EQ(description.ToUtf8(), composed);
}

TEST_F(RegularExpressionsTest, Success_leaves_the_description) {
  clsPublic object(services_.Make());
  String description = "old";
  object.RegExpTest("yes", "p", true, true, false, description);
  object.RegExpReplace("s", "p", "r", true, true, false, description);
  EXPECT_EQ(description.ToUtf8(), "old");
}

}  // namespace
}  // namespace vandpublic
