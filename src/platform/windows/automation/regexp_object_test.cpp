// The scripting engine's object behind the port. What its dialect is, is the engine's business;
// this is about the properties, the two operations, their texts and failures.
#include "platform/windows/automation/regexp_object.h"

#include <gtest/gtest.h>
#include <objbase.h>

#include <array>
#include <string>
#include <thread>

#include "support/test_component.h"

namespace vandpublic {
namespace {

class RegExpObjectsTest : public testing::Test {
 protected:
  std::shared_ptr<RegExpEngine> engine_ = MakeRegExpObjects();
};

TEST_F(RegExpObjectsTest, Each_option_reaches_the_engine) {
  EXPECT_EQ(engine_->Replace(u"a", {.global = true}, u"aAa", u"x"), u"xxx");
  EXPECT_EQ(engine_->Replace(u"a", {.global = false}, u"aAa", u"x"), u"xAa");
  EXPECT_EQ(engine_->Replace(u"a", {.ignore_case = false}, u"aAa", u"x"), u"xAx");
  EXPECT_FALSE(engine_->Test(u"^b", {.multiline = false}, u"a\nb"));
  EXPECT_TRUE(engine_->Test(u"^b", {.multiline = true}, u"a\nb"));
}

TEST_F(RegExpObjectsTest, Replacements_know_groups_and_the_match) {
  EXPECT_EQ(engine_->Replace(u"(\\d+)-(\\d+)", {}, u"12-34", u"$2-$1"), u"34-12");
  EXPECT_EQ(engine_->Replace(u"b", {}, u"abc", u"[$&]"), u"a[b]c");
  EXPECT_EQ(engine_->Replace(u"b", {}, u"abc", u"$$"), u"a$c");
}

TEST_F(RegExpObjectsTest, Texts_are_units_zeros_and_lone_surrogates_included) {
  const std::u16string source = {u'a', 0, 0xD800, u'b'};
  EXPECT_EQ(engine_->Replace(u"b", {}, source, u"c"), (std::u16string{u'a', 0, 0xD800, u'c'}));
  EXPECT_EQ(engine_->Replace(u"x", {}, u"", u"c"), u"");
}

TEST_F(RegExpObjectsTest, A_bad_pattern_fails_when_it_is_used) {
  for (const char16_t* const pattern : {u"(", u"[a", u"*a"}) {
    EXPECT_NE(RaisedBy([&] { engine_->Test(pattern, {}, u"a"); }), kNothingRaised)
        << ToUtf8(pattern);
    EXPECT_NE(RaisedBy([&] { engine_->Replace(pattern, {}, u"a", u""); }), kNothingRaised)
        << ToUtf8(pattern);
  }
  EXPECT_TRUE(engine_->Test(u"a", {}, u"a")) << "the next call is none the worse";
}

TEST_F(RegExpObjectsTest, A_bad_pattern_is_the_members_own_error) {
  TestComponent component{.services = {.regexp = engine_}};
  String description;
  const Raised raised =
      RaisedBy([&] { component.object.RegExpTest("a", "(", true, true, false, description); });
  EXPECT_EQ(raised, MemberError(0x01, "RegExpTest", raised.description));
  EXPECT_EQ(description.ToUtf8(), raised.description);
  EXPECT_FALSE(raised.description.empty());
  EXPECT_EQ(component.object.RegExpReplace("aA", "a", "x").ToUtf8(), "xx");
}

TEST_F(RegExpObjectsTest, Threads_without_COM_and_in_either_apartment_are_served) {
  constexpr DWORD kNoCom = 99;
  std::array<bool, 3> found{};
  constexpr std::array<DWORD, 3> kKinds = {kNoCom, COINIT_APARTMENTTHREADED, COINIT_MULTITHREADED};
  for (std::size_t i = 0; i < kKinds.size(); ++i) {
    std::thread([&, i] {
      if (kKinds[i] != kNoCom) CoInitializeEx(nullptr, kKinds[i]);
      found[i] = engine_->Test(u"b", {}, u"abc");
      if (kKinds[i] != kNoCom) CoUninitialize();
    }).join();
    EXPECT_TRUE(found[i]) << i;
  }
}

TEST_F(RegExpObjectsTest, A_thread_is_left_without_COM_as_it_was_found) {
  HRESULT second = E_FAIL;
  std::thread([&] {
    engine_->Test(u"b", {}, u"abc");
    // Had the engine left its own apartment behind, this would be RPC_E_CHANGED_MODE.
    second = CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    CoUninitialize();
  }).join();
  EXPECT_EQ(second, S_OK);
}

}  // namespace
}  // namespace vandpublic
