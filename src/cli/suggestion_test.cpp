#include "cli/suggestion.h"

#include <gtest/gtest.h>

namespace vandpublic {
namespace {

const std::vector<std::string_view> kNames = {"IsHex", "HexToDec", "HexToBit", "DES", "DES3"};

TEST(Suggestion, finds_the_name_a_slip_away) {
  EXPECT_EQ(NearestName("IsHx", kNames), "IsHex");
  EXPECT_EQ(NearestName("ishexx", kNames), "IsHex");
  EXPECT_EQ(NearestName("IsXeh", kNames), std::nullopt);
  EXPECT_EQ(NearestName("HxeToDec", kNames), "HexToDec");
  EXPECT_EQ(NearestName("HEXTOBYT", kNames), "HexToBit");
}

TEST(Suggestion, takes_the_nearer_of_two) { EXPECT_EQ(NearestName("DES33", kNames), "DES3"); }

TEST(Suggestion, gives_nothing_for_another_word) {
  EXPECT_EQ(NearestName("Foo", kNames), std::nullopt);
  EXPECT_EQ(NearestName("", kNames), std::nullopt);
  EXPECT_EQ(NearestName(std::string(100000, 'x'), kNames), std::nullopt);
  EXPECT_EQ(DidYouMean("Foo", kNames), "");
}

TEST(Suggestion, reads_as_a_question) {
  EXPECT_EQ(DidYouMean("IsHx", kNames), "; did you mean 'IsHex'?");
}

}  // namespace
}  // namespace vandpublic
