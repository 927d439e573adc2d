// FillByteArrWithHexStr and CpyByteArray do a whole run at once where nothing can fail. Here they
// are compared with the same work position by position: the array, the position with its type, and
// the error, whatever the lengths, bounds, kinds of position and places of a fault.
#include <gtest/gtest.h>

#include <limits>

#include "convert/hex_digits.h"
#include "runtime/coerce.h"
#include "support/test_component.h"

namespace vandpublic {
namespace {

constexpr Long kMostLong = std::numeric_limits<Long>::max();
constexpr Integer kMostInteger = std::numeric_limits<Integer>::max();

// The work as it is told: the value first, then the subscript, then the position.
void FillSlowly(ByteArray& array, const std::u16string& digits, Variant& position) {
  for (std::size_t i = 0; i < digits.size(); i += 2) {
    const int high = UpperHexDigitValue(digits[i]);
    const int low = UpperHexDigitValue(digits[i + 1]);
    if (high < 0 || low < 0) RaiseFault(FaultNumber::Overflow);
    array.At(ToLong(position)) = static_cast<Byte>(16 * high + low);
    Increment(position);
  }
}

void CopySlowly(ByteArray& to, const ByteArray& from, Integer length, Variant& position,
                Integer start) {
  for (Long i = 0; i < length; ++i) {
    const Byte value = from.At(std::int64_t{start} + i);
    to.At(ToLong(position)) = value;
    Increment(position);
  }
}

// Positions of every kind around a subscript, those at the ends of their types included.
std::vector<Variant> PositionsAround(Long subscript) {
  std::vector<Variant> positions;
  for (const int step : {-1, 0, 1, 2, 40}) {
    const std::int64_t value = std::int64_t{subscript} + step;
    if (std::in_range<Long>(value)) positions.emplace_back(static_cast<Long>(value));
    if (std::in_range<Integer>(value)) positions.emplace_back(static_cast<Integer>(value));
    if (std::in_range<Byte>(value)) positions.emplace_back(static_cast<Byte>(value));
    positions.emplace_back(static_cast<double>(value));
  }
  positions.emplace_back("1");
  positions.emplace_back(Variant());
  positions.emplace_back(NullValue());
  return positions;
}

constexpr Long kLowerBounds[] = {-5, 0, 3, kMostInteger - 69, kMostInteger - 35, kMostLong - 69};

class AtOnceTest : public testing::Test {
 protected:
  void ExpectSameFill(const ByteArray& start, const std::u16string& digits,
                      const Variant& position) {
    ByteArray slow = start;
    Variant slow_position = position;
    const bool fails = RaisedBy([&] { FillSlowly(slow, digits, slow_position); }).number != 0;

    ByteArray fast = start;
    Variant fast_position = position;
    String text = digits;
    const Raised raised =
        RaisedBy([&] { component_.object.FillByteArrWithHexStr(fast, text, fast_position); });
    ASSERT_EQ(raised.number != 0, fails);
    ASSERT_EQ(fast, slow);
    ASSERT_EQ(fast_position, slow_position);
    ASSERT_EQ(fast_position.Type(), slow_position.Type());
  }

  void ExpectSameCopy(const ByteArray& start, ByteArray& source, int count, const Variant& position,
                      int source_start) {
    auto length = static_cast<Integer>(count);
    const auto from = static_cast<Integer>(source_start);
    ByteArray slow = start;
    Variant slow_position = position;
    const Raised expected =
        RaisedBy([&] { CopySlowly(slow, source, length, slow_position, from); });

    ByteArray fast = start;
    Variant fast_position = position;
    const Raised raised = RaisedBy(
        [&] { component_.object.CpyByteArray(fast, source, length, fast_position, from); });
    ASSERT_EQ(raised, expected);
    ASSERT_EQ(fast, slow);
    ASSERT_EQ(fast_position, slow_position);
    ASSERT_EQ(fast_position.Type(), slow_position.Type());
  }

  TestComponent component_;
};

TEST_F(AtOnceTest, Filling_gives_the_same_whatever_bounds_and_position) {
  for (const Long lower : kLowerBounds) {
    const ByteArray array = ByteArray::WithBounds(lower, lower + 69);
    for (const Variant& position : PositionsAround(lower)) {
      for (const std::size_t pairs : {0u, 1u, 16u, 30u, 33u, 68u, 69u, 70u, 71u}) {
        SCOPED_TRACE(testing::Message() << lower << " " << pairs);
        ASSERT_NO_FATAL_FAILURE(ExpectSameFill(array, std::u16string(2 * pairs, u'A'), position));
      }
    }
  }
}

TEST_F(AtOnceTest, Filling_stops_at_the_same_digit) {
  const ByteArray array = ByteArray::WithBounds(2, 101);
  for (std::size_t place = 0; place < 200; ++place) {
    std::u16string digits(200, u'5');
    digits[place] = u'b';
    for (const Variant& position : {Variant(Integer{2}), Variant(Long{2}), Variant(Integer{50})}) {
      SCOPED_TRACE(place);
      ASSERT_NO_FATAL_FAILURE(ExpectSameFill(array, digits, position));
    }
  }
}

TEST_F(AtOnceTest, Filling_an_array_without_elements_is_the_same_as_filling_one_that_fits) {
  for (const Long lower : {0, 7}) {
    ByteArray none(std::vector<Byte>(), lower);
    String text = "01020304";
    Variant position = Integer{1};
    const Raised raised =
        RaisedBy([&] { component_.object.FillByteArrWithHexStr(none, text, position); });
    EXPECT_EQ(raised, MemberError(0x31, "FillByteArrWithHexStr", ""));
    EXPECT_EQ(Hex(none), "00 01 02 03");
    EXPECT_EQ(position, Variant(Integer{4}));
  }
}

TEST_F(AtOnceTest, Copying_gives_the_same_whatever_bounds_and_position) {
  for (const Long lower : kLowerBounds) {
    const ByteArray array = ByteArray::WithBounds(lower, lower + 69);
    for (const Long source_lower : {-3, 0, 4}) {
      ByteArray source = Counting(60, source_lower, 1);
      for (const Variant& position : PositionsAround(lower)) {
        for (const int length : {-1, 0, 1, 30, 33, 59, 60, 61}) {
          for (const int from : {-4, -3, 0, 4, 20}) {
            SCOPED_TRACE(testing::Message() << lower << " " << source_lower << " " << length);
            ASSERT_NO_FATAL_FAILURE(ExpectSameCopy(array, source, length, position, from));
          }
        }
      }
    }
  }
}

TEST_F(AtOnceTest, Copying_within_one_array_goes_byte_by_byte) {
  ByteArray array = Counting(8, 0, 1);
  Integer length = 7;
  Variant position = Integer{1};
  component_.object.CpyByteArray(array, array, length, position, Integer{0});
  EXPECT_EQ(Hex(array), "01 01 01 01 01 01 01 01");
  EXPECT_EQ(position, Variant(Integer{8}));
}

TEST_F(AtOnceTest, Copying_from_or_to_no_array_is_a_fault_as_before) {
  ByteArray none;
  ByteArray some = Counting(4);
  for (const int length : {0, 1}) {
    ASSERT_NO_FATAL_FAILURE(ExpectSameCopy(none, some, length, Integer{0}, 0));
    ASSERT_NO_FATAL_FAILURE(ExpectSameCopy(some, none, length, Integer{0}, 0));
  }
}

}  // namespace
}  // namespace vandpublic
