#include "runtime/checked.h"

#include <gtest/gtest.h>

#include <cstdint>

#include "support/test_component.h"

namespace vandpublic {
namespace {

const Raised kOverflow = PlainFault(FaultNumber::Overflow);

TEST(Checked, Cast_accepts_exactly_the_range_of_the_type) {
  EXPECT_EQ(CheckedCast<Integer>(32767), 32767);
  EXPECT_EQ(CheckedCast<Integer>(-32768), -32768);
  EXPECT_EQ(RaisedBy([] { CheckedCast<Integer>(32768); }), kOverflow);
  EXPECT_EQ(RaisedBy([] { CheckedCast<Integer>(-32769); }), kOverflow);
  EXPECT_EQ(CheckedCast<Byte>(255), 255);
  EXPECT_EQ(RaisedBy([] { CheckedCast<Byte>(256); }), kOverflow);
  EXPECT_EQ(RaisedBy([] { CheckedCast<Byte>(-1); }), kOverflow);
}

TEST(Checked, Cast_compares_by_value_across_signedness) {
  EXPECT_EQ(RaisedBy([] { CheckedCast<Long>(std::uint64_t{0xFFFFFFFF}); }), kOverflow);
  EXPECT_EQ(RaisedBy([] { CheckedCast<std::uint32_t>(-1); }), kOverflow);
  EXPECT_EQ(CheckedCast<Long>(std::uint64_t{0x7FFFFFFF}), 0x7FFFFFFF);
}

TEST(Checked, Add_overflows_past_the_type_of_its_operands) {
  EXPECT_EQ(CheckedAdd<Integer>(32766, 1), 32767);
  EXPECT_EQ(RaisedBy([] { CheckedAdd<Integer>(32767, 1); }), kOverflow);
  EXPECT_EQ(RaisedBy([] { CheckedAdd<Integer>(-32768, -1); }), kOverflow);
  EXPECT_EQ(CheckedAdd<Long>(2147483646, 1), 2147483647);
  EXPECT_EQ(RaisedBy([] { CheckedAdd<Long>(2147483647, 1); }), kOverflow);
  EXPECT_EQ(RaisedBy([] { CheckedAdd<Byte>(255, 1); }), kOverflow);
}

TEST(Checked, Multiply_overflows_past_the_type_of_its_operands) {
  EXPECT_EQ(CheckedMultiply<Long>(0x7FFFFFF, 16), 0x7FFFFFF0);
  EXPECT_EQ(RaisedBy([] { CheckedMultiply<Long>(0x8000000, 16); }), kOverflow);
  EXPECT_EQ(CheckedMultiply<Integer>(16383, 2), 32766);
  EXPECT_EQ(RaisedBy([] { CheckedMultiply<Integer>(16384, 2); }), kOverflow);
  EXPECT_EQ(RaisedBy([] { CheckedMultiply<Integer>(-32768, -1); }), kOverflow);
}

}  // namespace
}  // namespace vandpublic
