#include "platform/random.h"

#include <gtest/gtest.h>

#include <array>

namespace vandpublic {
namespace {

TEST(RandomSource, Every_new_one_starts_with_the_same_sequence) {
  const auto first = MakeRandomSource();
  const auto second = MakeRandomSource();
  for (int i = 0; i < 100; ++i)
    EXPECT_EQ(first->Next(), second->Next());
}

TEST(RandomSource, A_seed_starts_its_own_sequence) {
  const auto random = MakeRandomSource();
  random->Seed(1);
  const double one = random->Next();
  random->Seed(2);
  EXPECT_NE(random->Next(), one);
  random->Seed(1);
  EXPECT_EQ(random->Next(), one);
}

TEST(RandomSource, Values_fill_the_range_from_0_to_below_1_evenly) {
  const auto random = MakeRandomSource();
  constexpr int kDraws = 16000;
  std::array<int, 16> counts{};
  for (int i = 0; i < kDraws; ++i) {
    const double value = random->Next();
    ASSERT_GE(value, 0.0);
    ASSERT_LT(value, 1.0);
    ++counts.at(static_cast<std::size_t>(value * 16));
  }
  // Six standard deviations; the sequence is fixed, so this holds always or never.
  for (const int count : counts)
    EXPECT_NEAR(count, kDraws / 16, 190);
}

}  // namespace
}  // namespace vandpublic
