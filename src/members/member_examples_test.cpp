// The table of examples; what they print is checked by running them.
#include "members/member_examples.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "members/member_text.h"

namespace vandpublic {
namespace {

TEST(MemberExamples, Each_stands_with_a_method_and_ends_with_a_line_end) {
  std::size_t examples = 0;
  for (const MemberInfo& member : MemberTable()) {
    for (const MemberExample& example : ExamplesOf(member)) {
      ++examples;
      EXPECT_EQ(example.member, member.name);
      EXPECT_EQ(member.kind, SlotKind::Method);
      EXPECT_TRUE(example.output.ends_with('\n')) << example.command;
    }
  }
  EXPECT_GT(examples, 30U);
}

TEST(MemberExamples, None_is_cut_off_from_its_member) {
  // Those of a member stand together, and every one belongs to some member.
  std::size_t examples = 0;
  for (const MemberInfo& member : MemberTable())
    examples += ExamplesOf(member).size();
  EXPECT_EQ(examples, AllExamples().size());
}

TEST(MemberExamples, Lines_look_like_a_shell_session) {
  const MemberInfo& member = MemberTable()[*FindSlot("HexToBit", SlotKind::Method)];
  EXPECT_THAT(ExampleLines(member),
              testing::ElementsAre("$ vandpublic call HexToBit A --refs", "rbyt_Bit0 = 0",
                                   "rbyt_Bit1 = 1", "rbyt_Bit2 = 0", "rbyt_Bit3 = 1"));
  EXPECT_THAT(ExampleLines({.name = "Weigh"}), testing::IsEmpty());
}

}  // namespace
}  // namespace vandpublic
