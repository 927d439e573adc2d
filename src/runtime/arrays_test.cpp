#include "runtime/arrays.h"

#include <gtest/gtest.h>

#include "support/test_component.h"

namespace vandpublic {
namespace {

constexpr Long kLeastLong = -2147483647 - 1;
constexpr Long kMostLong = 2147483647;

TEST(ArrayBound, Position_counts_from_the_lower_bound_and_faults_outside) {
  constexpr ArrayBound kBound{-2, 3};
  EXPECT_EQ(kBound.Position(-2), 0u);
  EXPECT_EQ(kBound.Position(0), 2u);
  EXPECT_EQ(RaisedBy([&] { kBound.Position(-3); }), PlainFault(FaultNumber::SubscriptOutOfRange));
  EXPECT_EQ(RaisedBy([&] { kBound.Position(1); }), PlainFault(FaultNumber::SubscriptOutOfRange));
}

TEST(ArrayBound, Position_does_not_wrap_at_the_ends_of_the_32_bit_range) {
  constexpr ArrayBound kLow{kLeastLong, 2};
  EXPECT_EQ(kLow.Position(kLeastLong + 1), 1u);
  EXPECT_EQ(RaisedBy([&] { kLow.Position(kMostLong); }),
            PlainFault(FaultNumber::SubscriptOutOfRange));
  constexpr ArrayBound kHigh{kMostLong, 1};
  EXPECT_EQ(kHigh.Position(kMostLong), 0u);
  EXPECT_EQ(RaisedBy([&] { kHigh.Position(kLeastLong); }),
            PlainFault(FaultNumber::SubscriptOutOfRange));
}

TEST(ByteArray, A_new_one_has_no_storage) {
  ByteArray array;
  EXPECT_FALSE(array.IsDimensioned());
  EXPECT_EQ(array.Count(), 0);
  EXPECT_TRUE(array.Elements().empty());
  EXPECT_EQ(RaisedBy([&] { array.At(0); }), PlainFault(FaultNumber::SubscriptOutOfRange));
  EXPECT_EQ(RaisedBy([&] { std::as_const(array).At(0); }),
            PlainFault(FaultNumber::SubscriptOutOfRange));
}

TEST(ByteArray, A_list_of_bytes_starts_at_subscript_0) {
  ByteArray array = {1, 2, 255};
  EXPECT_TRUE(array.IsDimensioned());
  EXPECT_EQ(array.LowerBound(), 0);
  EXPECT_EQ(array.Bound(), (ArrayBound{0, 3}));
  EXPECT_EQ(array.At(2), 255);
  array.At(2) = 7;
  EXPECT_EQ(std::as_const(array).At(2), 7);
}

TEST(ByteArray, Subscripts_are_absolute) {
  const ByteArray array(std::vector<Byte>{10, 20, 30}, -1);
  EXPECT_EQ(array.At(-1), 10);
  EXPECT_EQ(array.At(1), 30);
  EXPECT_EQ(RaisedBy([&] { array.At(2); }), PlainFault(FaultNumber::SubscriptOutOfRange));
}

TEST(ByteArray, No_elements_is_not_the_same_as_no_storage) {
  const ByteArray array{std::vector<Byte>()};
  EXPECT_TRUE(array.IsDimensioned());
  EXPECT_EQ(array.Count(), 0);
  EXPECT_FALSE(array == ByteArray());
}

TEST(ByteArray, The_last_subscript_must_be_a_32_bit_number) {
  EXPECT_EQ(ByteArray(std::vector<Byte>(2), kMostLong - 1).Count(), 2);
  EXPECT_EQ(RaisedBy([] { ByteArray(std::vector<Byte>(2), kMostLong); }),
            PlainFault(FaultNumber::Overflow));
  EXPECT_EQ(ByteArray(std::vector<Byte>(2), kLeastLong).At(kLeastLong + 1), 0);
}

TEST(ByteArray, WithBounds_makes_zeros) {
  const ByteArray array = ByteArray::WithBounds(3, 5);
  EXPECT_EQ(array.Bound(), (ArrayBound{3, 3}));
  EXPECT_EQ(Hex(array), "00 00 00");
}

TEST(ByteArray, Redimension_replaces_bounds_and_bytes) {
  ByteArray array = {1, 2, 3};
  array.Redimension(1, 2);
  EXPECT_EQ(array.Bound(), (ArrayBound{1, 2}));
  EXPECT_EQ(Hex(array), "00 00");
}

TEST(ByteArray, A_failed_Redimension_leaves_the_array_as_it_was) {
  ByteArray array = {1, 2, 3};
  EXPECT_EQ(RaisedBy([&] { array.Redimension(0, -1); }),
            PlainFault(FaultNumber::SubscriptOutOfRange));
  EXPECT_EQ(RaisedBy([&] { array.Redimension(5, 3); }),
            PlainFault(FaultNumber::SubscriptOutOfRange));
  EXPECT_EQ(RaisedBy([&] { array.Redimension(kLeastLong, kMostLong); }),
            PlainFault(FaultNumber::OutOfMemory));
  EXPECT_EQ(RaisedBy([&] { array.RedimensionPreserving(-1); }),
            PlainFault(FaultNumber::SubscriptOutOfRange));
  EXPECT_EQ(Hex(array), "01 02 03");
  EXPECT_EQ(array.LowerBound(), 0);
}

TEST(ByteArray, RedimensionPreserving_keeps_what_both_have_and_the_lower_bound) {
  ByteArray array(std::vector<Byte>{1, 2, 3}, 4);
  array.RedimensionPreserving(8);
  EXPECT_EQ(array.Bound(), (ArrayBound{4, 5}));
  EXPECT_EQ(Hex(array), "01 02 03 00 00");
  array.RedimensionPreserving(4);
  EXPECT_EQ(Hex(array), "01");
}

TEST(ByteArray, RedimensionPreserving_dimensions_an_array_without_storage) {
  ByteArray array;
  array.RedimensionPreserving(1);
  EXPECT_TRUE(array.IsDimensioned());
  EXPECT_EQ(Hex(array), "00 00");
}

TEST(ByteArray, Erase_takes_the_storage_away) {
  ByteArray array(std::vector<Byte>{1}, 5);
  array.Erase();
  EXPECT_EQ(array, ByteArray());
}

TEST(ByteArray, Equality_counts_the_lower_bound) {
  EXPECT_EQ((ByteArray{1, 2}), (ByteArray{1, 2}));
  EXPECT_FALSE((ByteArray{1, 2}) == ByteArray(std::vector<Byte>{1, 2}, 1));
  EXPECT_FALSE((ByteArray{1, 2}) == (ByteArray{1, 3}));
}

TEST(ByteTable, A_new_one_has_no_storage) {
  ByteTable table;
  EXPECT_FALSE(table.IsDimensioned());
  EXPECT_EQ(RaisedBy([&] { table.At(0, 0); }), PlainFault(FaultNumber::SubscriptOutOfRange));
}

TEST(ByteTable, The_last_subscript_runs_fastest) {
  ByteTable table({1, 2}, {-1, 3});
  EXPECT_TRUE(table.IsDimensioned());
  EXPECT_EQ(table.Rows(), (ArrayBound{1, 2}));
  EXPECT_EQ(table.Columns(), (ArrayBound{-1, 3}));
  table.At(2, -1) = 9;
  EXPECT_EQ(table.Elements()[3], 9);
  EXPECT_EQ(std::as_const(table).At(2, -1), 9);
  EXPECT_EQ(std::as_const(table).Elements().size(), 6u);
}

TEST(ByteTable, Each_subscript_is_checked_against_its_own_dimension) {
  const ByteTable table({0, 2}, {0, 3});
  for (const auto& at : {std::pair{-1, 0}, {2, 0}, {0, -1}, {0, 3}, {1, 3}}) {
    EXPECT_EQ(RaisedBy([&] { table.At(at.first, at.second); }),
              PlainFault(FaultNumber::SubscriptOutOfRange))
        << at.first << ", " << at.second;
  }
}

TEST(ByteTable, Every_dimension_needs_an_element) {
  EXPECT_EQ(RaisedBy([] {
              ByteTable({0, 0}, {0, 1});
            }),
            PlainFault(FaultNumber::SubscriptOutOfRange));
  EXPECT_EQ(RaisedBy([] {
              ByteTable({0, 1}, {0, -1});
            }),
            PlainFault(FaultNumber::SubscriptOutOfRange));
  EXPECT_EQ(RaisedBy([] {
              ByteTable({0, 100000}, {0, 100000});
            }),
            PlainFault(FaultNumber::OutOfMemory));
}

TEST(ArrayShape, Equality_counts_type_and_bounds) {
  EXPECT_EQ((ArrayShape{8, {{0, 1}}}), (ArrayShape{8, {{0, 1}}}));
  EXPECT_FALSE((ArrayShape{8, {{0, 1}}}) == (ArrayShape{12, {{0, 1}}}));
  EXPECT_FALSE((ArrayShape{8, {{0, 1}}}) == (ArrayShape{8, {{0, 1}, {0, 1}}}));
}

}  // namespace
}  // namespace vandpublic
