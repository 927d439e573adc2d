#include "runtime/variant.h"

#include <gtest/gtest.h>

#include "support/test_component.h"

namespace vandpublic {
namespace {

class VariantTest : public testing::Test {
 protected:
  ByteArray array_of_two_ = {1, 2};
  ByteTable table_2_by_3_{{0, 2}, {5, 3}};
};

TEST_F(VariantTest, Type_codes_are_those_of_the_platform) {
  struct Case {
    Variant value;
    int code;
  };
  const Case cases[] = {
      {Variant(), 0},
      {NullValue(), 1},
      {Integer{1}, 2},
      {Long{1}, 3},
      {1.0f, 4},
      {1.0, 5},
      {Currency{1}, 6},
      {Date{1}, 7},
      {String("a"), 8},
      {u"a", 8},
      {"a", 8},
      {ObjectRef(), 9},
      {true, 11},
      {*Decimal::Parse("1"), 14},
      {Byte{1}, 17},
      {ByteArray(), 0x2011},
      {ByteTable(), 0x2011},
      {ArrayShape{8, {}}, 0x2008},
      {ArrayShape{}, 0x200C},
      {Variant::Referring(array_of_two_), 0x6011},
      {Variant::Referring(table_2_by_3_), 0x6011},
  };
  for (const Case& one : cases)
    EXPECT_EQ(static_cast<int>(one.value.Type()), one.code);
}

TEST_F(VariantTest, Null_and_empty_are_two_things) {
  EXPECT_TRUE(Variant().IsEmpty());
  EXPECT_FALSE(Variant().IsNull());
  EXPECT_TRUE(Variant(NullValue()).IsNull());
  EXPECT_FALSE(Variant(NullValue()).IsEmpty());
}

TEST_F(VariantTest, Get_wants_the_exact_type) {
  Variant value = Long{5};
  EXPECT_EQ(value.Get<Integer>(), nullptr);
  ASSERT_NE(value.Get<Long>(), nullptr);
  *value.Get<Long>() = 6;
  EXPECT_EQ(*std::as_const(value).Get<Long>(), 6);
}

TEST_F(VariantTest, A_referring_one_writes_to_the_array_of_the_caller) {
  ByteArray array = {1, 2};
  Variant reference = Variant::Referring(array);
  reference.AsByteArray()->At(1) = 9;
  EXPECT_EQ(Hex(array), "01 09");

  ByteTable table({0, 1}, {0, 1});
  Variant table_reference = Variant::Referring(table);
  table_reference.AsByteTable()->At(0, 0) = 9;
  EXPECT_EQ(table.At(0, 0), 9);
}

TEST_F(VariantTest, AsByteArray_and_AsByteTable_find_what_is_held_or_referred_to) {
  Variant held = ByteArray{1};
  EXPECT_NE(held.AsByteArray(), nullptr);
  EXPECT_NE(std::as_const(held).AsByteArray(), nullptr);
  EXPECT_EQ(held.AsByteTable(), nullptr);
  const Variant referring = Variant::Referring(array_of_two_);
  EXPECT_EQ(referring.AsByteArray(), &array_of_two_);

  Variant held_table = ByteTable({0, 1}, {0, 1});
  EXPECT_NE(held_table.AsByteTable(), nullptr);
  EXPECT_NE(std::as_const(held_table).AsByteTable(), nullptr);
  EXPECT_EQ(held_table.AsByteArray(), nullptr);
  const Variant referring_table = Variant::Referring(table_2_by_3_);
  EXPECT_EQ(referring_table.AsByteTable(), &table_2_by_3_);

  EXPECT_EQ(Variant(1.0).AsByteArray(), nullptr);
  EXPECT_EQ(Variant(1.0).AsByteTable(), nullptr);
}

TEST_F(VariantTest, Bound_tells_the_bounds_of_each_dimension) {
  struct Case {
    Variant value;
    Integer dimension;
    std::optional<ArrayBound> bound;
  };
  const ArrayShape cube{3, {{0, 1}, {-5, 2}, {7, 3}}};
  const Case cases[] = {
      {Variant(), 1, {}},
      {Long{5}, 1, {}},
      {"text", 1, {}},
      {ByteArray(), 1, {}},
      {ByteArray{1, 2}, 0, {}},
      {ByteArray{1, 2}, 1, ArrayBound{0, 2}},
      {ByteArray{1, 2}, 2, {}},
      {ByteArray(std::vector<Byte>(), 0), 1, ArrayBound{0, 0}},
      {ByteArray(std::vector<Byte>{1}, -9), 1, ArrayBound{-9, 1}},
      {Variant::Referring(array_of_two_), 1, ArrayBound{0, 2}},
      {ByteTable(), 1, {}},
      {ByteTable({0, 2}, {5, 3}), 0, {}},
      {ByteTable({0, 2}, {5, 3}), 1, ArrayBound{0, 2}},
      {ByteTable({0, 2}, {5, 3}), 2, ArrayBound{5, 3}},
      {ByteTable({0, 2}, {5, 3}), 3, {}},
      {Variant::Referring(table_2_by_3_), 2, ArrayBound{5, 3}},
      {ArrayShape{}, 1, {}},
      {cube, -1, {}},
      {cube, 0, {}},
      {cube, 1, ArrayBound{0, 1}},
      {cube, 3, ArrayBound{7, 3}},
      {cube, 4, {}},
      {cube, 32767, {}},
  };
  for (const Case& one : cases) {
    EXPECT_EQ(one.value.Bound(one.dimension), one.bound)
        << static_cast<int>(one.value.Type()) << " dimension " << one.dimension;
  }
}

TEST_F(VariantTest, Equality_counts_the_type) {
  EXPECT_EQ(Variant(Long{1}), Variant(Long{1}));
  EXPECT_FALSE(Variant(Long{1}) == Variant(Integer{1}));
  EXPECT_EQ(Variant(NullValue()), Variant(NullValue()));
  EXPECT_EQ(Variant(Currency{5}), Variant(Currency{5}));
  EXPECT_FALSE(Variant(Date{5}) == Variant(Date{6}));
  EXPECT_EQ(Variant(ByteArray{1}), Variant(ByteArray{1}));
  EXPECT_FALSE(Variant(ByteArray{1}) == Variant::Referring(array_of_two_));
}

TEST_F(VariantTest, Visit_hands_out_the_value_as_the_type_it_has) {
  const auto is_empty = [](const auto& value) {
    return std::is_same_v<std::decay_t<decltype(value)>, std::monostate>;
  };
  EXPECT_TRUE(Variant().Visit(is_empty));
  EXPECT_FALSE(Variant(1.0).Visit(is_empty));
}

TEST(Decimal, Parse_accepts_up_to_28_digits_and_one_point) {
  struct Case {
    const char* text;
    const char* parsed;  // null: refused
  };
  constexpr Case kCases[] = {
      {"0", "0"},
      {"-1234.50", "-1234.50"},
      {"+7", "7"},
      {"007", "7"},
      {".5", "0.5"},
      {"-.5", "-0.5"},
      {"5.", "5"},
      {"-0", "0"},
      {"-0.00", "0.00"},
      {"1234567890123456789012345678", "1234567890123456789012345678"},
      {"0000000000000000000000000000000001", "1"},
      {"12345678901234567890123456789", nullptr},
      {"0.12345678901234567890123456789", nullptr},
      {"", nullptr},
      {"-", nullptr},
      {".", nullptr},
      {"1.2.3", nullptr},
      {"1e5", nullptr},
      {" 1", nullptr},
      {"--1", nullptr},
  };
  for (const Case& one : kCases) {
    const auto decimal = Decimal::Parse(one.text);
    ASSERT_EQ(decimal.has_value(), one.parsed != nullptr) << one.text;
    EXPECT_EQ(decimal ? decimal->text() : "", one.parsed ? one.parsed : "") << one.text;
  }
}

}  // namespace
}  // namespace vandpublic
