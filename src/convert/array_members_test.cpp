// ArraySize and CpyByteArray.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "convert/array_size.h"
#include "support/test_component.h"

namespace vandpublic {
namespace {

using testing::ElementsAre;

TEST(ArraySize, It_counts_the_elements_of_one_dimension) {
  struct Case {
    Variant array;
    Integer dimension;
    Long size;
  };
  const Case cases[] = {
      {ByteArray(std::vector<Byte>(5), 1), 1, 5},
      {ByteArray(), 1, 0},
      {ByteArray(std::vector<Byte>()), 1, 0},
      {ByteArray{1, 2}, 2, 0},
      {ByteTable({0, 4}, {0, 16}), 1, 4},
      {ByteTable({0, 4}, {0, 16}), 2, 16},
      {ByteTable({0, 4}, {0, 16}), 3, 0},
      {ArrayShape{8, {{-3, 7}, {1, 2}}}, 2, 2},
      {ArrayShape{}, 1, 0},
      {Long{5}, 1, 0},
      {"text", 1, 0},
      {Variant(), 1, 0},
      {NullValue(), 32767, 0},
  };
  TestComponent component;
  for (const Case& one : cases) {
    Variant array = one.array;
    EXPECT_EQ(component.object.ArraySize(array, one.dimension), one.size);
  }
  EXPECT_EQ(component.Log(), "");
}

TEST(ArraySize, The_first_dimension_is_the_default) {
  TestComponent component;
  Variant table = ByteTable({0, 4}, {0, 16});
  EXPECT_EQ(component.object.ArraySize(table), 4);
  ByteArray array = {1, 2, 3};
  EXPECT_EQ(SizeOf(component.object, array), 3);
}

TEST(ArraySize, A_dimension_below_1_is_refused_before_the_array_is_looked_at) {
  for (const Integer dimension : {Integer{0}, Integer{-1}, Integer{-32768}}) {
    TestComponent component;
    Variant number = Long{5};
    EXPECT_EQ(RaisedBy([&] { component.object.ArraySize(number, dimension); }),
              MemberError(0x03, "ArraySize", "Invalid input dimension."));
    EXPECT_THAT(component.LogLines(),
                ElementsAre("2024-03-05 14:07:09 VandPublic.clsCommon.ArraySize",
                            std::string(20, ' ') + "Invalid input dimension."));
  }
}

class CpyByteArrayTest : public testing::Test {
 protected:
  // Copies and notes what was returned and raised.
  void Copy(ByteArray& destination, ByteArray& source, Integer length, Variant start,
            Integer source_start) {
    start_ = std::move(start);
    source_start_ = source_start;
    length_ = length;
    returned_ = true;
    raised_ = RaisedBy([&] {
      returned_ =
          component_.object.CpyByteArray(destination, source, length_, start_, source_start_);
    });
  }

  TestComponent component_;
  ByteArray destination_ = ByteArray::WithBounds(0, 7);
  ByteArray source_ = Counting(8, 0, 0xA0);
  Variant start_;
  Integer source_start_ = 0;
  Integer length_ = 0;
  bool returned_ = true;
  Raised raised_;
};

TEST_F(CpyByteArrayTest, It_copies_from_and_to_absolute_subscripts_and_returns_False) {
  Copy(destination_, source_, 3, Integer{2}, 4);
  EXPECT_EQ(Hex(destination_), "00 00 A4 A5 A6 00 00 00");
  EXPECT_EQ(raised_, kNothingRaised);
  EXPECT_FALSE(returned_);
  EXPECT_EQ(start_, Variant(Integer{5})) << "just past the last byte";
  EXPECT_EQ(source_start_, 4) << "stays";
  EXPECT_EQ(length_, 3);
}

TEST_F(CpyByteArrayTest, Starts_default_to_0) {
  Integer length = 2;
  EXPECT_FALSE(component_.object.CpyByteArray(destination_, source_, length));
  EXPECT_EQ(Hex(destination_), "A0 A1 00 00 00 00 00 00");
}

TEST_F(CpyByteArrayTest, Lower_bounds_are_respected) {
  ByteArray destination = ByteArray::WithBounds(1, 3);
  ByteArray source(std::vector<Byte>{1, 2, 3}, -5);
  Copy(destination, source, 2, Integer{2}, -4);
  EXPECT_EQ(Hex(destination), "00 02 03");
  EXPECT_EQ(raised_, kNothingRaised);
}

TEST_F(CpyByteArrayTest, A_length_of_0_or_less_copies_nothing) {
  for (const Integer length : {Integer{0}, Integer{-1}, Integer{-32768}}) {
    ByteArray nothing;
    Copy(nothing, nothing, length, "no number", 0);
    EXPECT_EQ(raised_, kNothingRaised);
    EXPECT_FALSE(returned_);
    EXPECT_EQ(start_, Variant("no number"));
  }
}

TEST_F(CpyByteArrayTest, Overlapping_runs_are_copied_byte_by_byte_upwards) {
  ByteArray array = {1, 2, 3, 4, 5};
  Copy(array, array, 4, Integer{1}, 0);
  EXPECT_EQ(Hex(array), "01 01 01 01 01");
  EXPECT_EQ(start_, Variant(Integer{5}));
}

TEST_F(CpyByteArrayTest, A_short_destination_is_a_plain_fault_after_what_fits) {
  Copy(destination_, source_, 8, Integer{4}, 0);
  EXPECT_EQ(raised_, PlainFault(FaultNumber::SubscriptOutOfRange));
  EXPECT_EQ(Hex(destination_), "00 00 00 00 A0 A1 A2 A3");
  EXPECT_EQ(start_, Variant(Integer{8}));
  EXPECT_EQ(component_.Log(), "");
}

TEST_F(CpyByteArrayTest, A_short_source_is_a_plain_fault_after_what_there_is) {
  Copy(destination_, source_, 3, Integer{0}, 6);
  EXPECT_EQ(raised_, PlainFault(FaultNumber::SubscriptOutOfRange));
  EXPECT_EQ(Hex(destination_), "A6 A7 00 00 00 00 00 00");
  EXPECT_EQ(start_, Variant(Integer{2}));
}

TEST_F(CpyByteArrayTest, Arrays_without_storage_are_a_plain_fault) {
  ByteArray nothing;
  Copy(nothing, source_, 1, Integer{0}, 0);
  EXPECT_EQ(raised_, PlainFault(FaultNumber::SubscriptOutOfRange));
  Copy(destination_, nothing, 1, Integer{0}, 0);
  EXPECT_EQ(raised_, PlainFault(FaultNumber::SubscriptOutOfRange));
}

TEST_F(CpyByteArrayTest, The_last_16_bit_source_subscript_does_not_wrap) {
  ByteArray source(std::vector<Byte>{1, 2, 3}, 32766);
  Copy(destination_, source, 3, Integer{0}, 32766);
  EXPECT_EQ(raised_, kNothingRaised);
  EXPECT_EQ(Hex(destination_), "01 02 03 00 00 00 00 00");
}

TEST_F(CpyByteArrayTest, The_start_may_be_any_kind_of_number) {
  struct Case {
    Variant start;
    Variant end;
  };
  const Case cases[] = {
      {Variant(), Integer{2}},
      {Byte{1}, Byte{3}},
      {Long{1}, Long{3}},
      {1.5, 3.5},  // the second byte goes to 2.5, which is 2 again
      {1.0f, 3.0f},
      {Currency{10000}, Currency{30000}},
      {Date{1}, Date{3}},
      {false, Integer{2}},
      {"1", 3.0},
      {*Decimal::Parse("1"), *Decimal::Parse("3")},
  };
  for (const Case& one : cases) {
    Copy(destination_, source_, 2, one.start, 0);
    EXPECT_EQ(raised_, kNothingRaised);
    EXPECT_EQ(start_, one.end) << static_cast<int>(one.start.Type());
  }
}

TEST_F(CpyByteArrayTest, A_fractional_start_is_rounded_to_even_at_each_byte) {
  Copy(destination_, source_, 3, 0.5, 0);
  // 0.5, 1.5 and 2.5 are the subscripts 0, 2 and 2.
  EXPECT_EQ(Hex(destination_), "A0 00 A2 00 00 00 00 00");
  EXPECT_EQ(start_, Variant(3.5));
}

TEST_F(CpyByteArrayTest, A_byte_start_widens_past_255) {
  ByteArray destination = ByteArray::WithBounds(254, 257);
  Copy(destination, source_, 4, Byte{254}, 0);
  EXPECT_EQ(raised_, kNothingRaised);
  EXPECT_EQ(start_, Variant(Integer{258}));
  EXPECT_EQ(Hex(destination), "A0 A1 A2 A3");
}

TEST_F(CpyByteArrayTest, A_start_that_is_no_number_is_a_plain_fault) {
  struct Case {
    Variant start;
    FaultNumber fault;
  };
  const Case cases[] = {
      {NullValue(), FaultNumber::InvalidUseOfNull}, {"x", FaultNumber::TypeMismatch},
      {ByteArray{1}, FaultNumber::TypeMismatch},    {1e10, FaultNumber::Overflow},
      {Long{-1}, FaultNumber::SubscriptOutOfRange},
  };
  for (const Case& one : cases) {
    Copy(destination_, source_, 1, one.start, 0);
    EXPECT_EQ(raised_, PlainFault(one.fault));
    EXPECT_EQ(start_, one.start);
  }
  EXPECT_EQ(Hex(destination_), "00 00 00 00 00 00 00 00");
  EXPECT_EQ(component_.Log(), "");
}

}  // namespace
}  // namespace vandpublic
