#include "runtime/optional_ref.h"

#include <gtest/gtest.h>

#include "runtime/string_value.h"
#include "runtime/variant.h"

namespace vandpublic {
namespace {

Integer AddOneTo(OptionalRef<Integer> total = 40) { return ++*total; }

TEST(OptionalRef, What_is_written_reaches_the_variable_of_the_caller) {
  Integer n = 5;
  EXPECT_EQ(AddOneTo(n), 6);
  EXPECT_EQ(n, 6);
}

TEST(OptionalRef, An_omitted_one_starts_at_the_default_in_each_call) {
  EXPECT_EQ(AddOneTo(), 41);
  EXPECT_EQ(AddOneTo(), 41);
  EXPECT_EQ(AddOneTo(Integer{7}), 8);
}

TEST(OptionalRef, IsBound_tells_a_variable_of_the_caller_from_a_private_one) {
  Integer n = 5;
  EXPECT_TRUE(OptionalRef<Integer>(n).IsBound());
  EXPECT_FALSE(OptionalRef<Integer>(5).IsBound());
}

TEST(OptionalRef, A_copy_of_a_bound_one_is_bound_to_the_same_variable) {
  Integer n = 5;
  const OptionalRef<Integer> first(n);
  const OptionalRef<Integer> second(first);
  *second = 9;
  EXPECT_EQ(n, 9);
  EXPECT_TRUE(second.IsBound());
}

TEST(OptionalRef, A_copy_of_a_private_one_has_its_own_value) {
  const OptionalRef<Integer> first(5);
  const OptionalRef<Integer> second(first);
  *second = 9;
  EXPECT_EQ(*first, 5);
  EXPECT_FALSE(second.IsBound());
}

TEST(OptionalRef, The_start_value_is_converted_to_the_type_of_the_variable) {
  const OptionalRef<String> text = u"abc";
  EXPECT_EQ(text->Length(), 3u);
  const OptionalRef<Variant> number = Integer{3};
  EXPECT_EQ(number->Type(), VarType::Integer);
}

}  // namespace
}  // namespace vandpublic
