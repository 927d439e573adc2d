// Dates, and conversions to the types of columns.
#include <gtest/gtest.h>

#include <cmath>

#include "platform/posix/ado/column_values.h"
#include "platform/posix/ado/dates.h"
#include "support/test_component.h"

namespace vandpublic::ado {
namespace {

struct DateCase {
  const char* text;
  double days;
};

TEST(Dates, Are_days_since_1899_and_read_back) {
  constexpr DateCase kCases[] = {
      {"1899-12-30 00:00:00", 0},
      {"1899-12-31 12:00:00", 1.5},
      {"1899-12-29 06:00:00", -1.25},
      {"2024-02-29 18:00:00", 45351.75},
      {"0100-01-01 00:00:00", -657434},
      {"9999-12-31 23:59:59", 2958465.999988426},
      {"2024-03-05 14:07:09.25", 45356.588301504630},
  };
  for (const DateCase& test : kCases) {
    SCOPED_TRACE(test.text);
    const auto date = ParseDate(test.text);
    ASSERT_TRUE(date);
    EXPECT_NEAR(date->days, test.days, 1e-9);
    const auto time = ToCivilTime(*date);
    ASSERT_TRUE(time);
    EXPECT_EQ(TimestampText(*time), test.text);
  }
}

TEST(Dates, May_be_a_day_or_a_time_alone) {
  EXPECT_EQ(ParseDate("2024-02-29")->days, 45351);
  EXPECT_EQ(ParseDate("12:00")->days, 0.5);
  EXPECT_EQ(ParseDate("18:00:00")->days, 0.75);
  EXPECT_EQ(ParseDate("2024-02-29T06:00:00")->days, 45351.25);
}

TEST(Dates, That_are_none_are_refused) {
  for (const char* text : {"",
                           "0000-00-00",
                           "2023-02-29",
                           "2024-13-01",
                           "24:00:00",
                           "12:60",
                           "10000-01-01",
                           "0099-12-31",
                           "2024-02-29 ",
                           "2024-02-29 12",
                           "infinity",
                           "2024/02/29",
                           "2024-02-29 12:00:00.",
                           "-1",
                           "2024-",
                           "2024-02",
                           "2024-02-",
                           "2024-00-01",
                           "2024-01-00",
                           "2024-02-29x12:00",
                           "2024-02-29 12:",
                           "2024-02-29 12:00:",
                           "2024-02-29 12:00x",
                           "2024-02-29 12:00:00.5x",
                           "12:",
                           "12:00:",
                           "12:00:60",
                           "12:00x"}) {
    EXPECT_FALSE(ParseDate(text)) << text;
  }
  for (const double days : {-657435.0, 2958466.0, 1e300, -1e300, std::nan("")})
    EXPECT_FALSE(ToCivilTime(Date{days})) << days;
}

TEST(Dates, Round_up_over_midnight) {
  const auto time = ToCivilTime(Date{0.9999999999999});
  ASSERT_TRUE(time);
  EXPECT_EQ(TimestampText(*time), "1899-12-31 00:00:00");
}

TEST(Dates, Have_no_more_than_nanoseconds) {
  EXPECT_EQ(ParseDate("12:00:00.1234567899")->days, ParseDate("12:00:00.123456789")->days);
  CivilTime time;
  time.hour = 6;
  time.nanosecond = 250'000'000;
  EXPECT_EQ(TimeOnlyText(time), "06:00:00.25");
}

TEST(Times, That_are_none_have_no_milliseconds) {
  EXPECT_EQ(MillisecondsOf(23, 59, 59), 86399000);
  const int times[][3] = {{-1, 0, 0}, {24, 0, 0}, {0, -1, 0}, {0, 60, 0}, {0, 0, -1}, {0, 0, 60}};
  for (const auto& [hour, minute, second] : times)
    EXPECT_FALSE(MillisecondsOf(hour, minute, second)) << hour << ":" << minute << ":" << second;
}

struct SizeCase {
  DataType type;
  Variant value;
  Long size;
};

TEST(ColumnValue, Has_the_size_that_its_type_counts_in) {
  const SizeCase cases[] = {
      {DataType::Char, "abc", 3},
      {DataType::VarChar, "abc", 3},
      {DataType::LongVarChar, "abc", 3},
      {DataType::WChar, "abc", 6},
      {DataType::VarWChar, "abc", 6},
      {DataType::LongVarWChar, "abc", 6},
      {DataType::Binary, ByteArray({1}), 1},
      {DataType::VarBinary, ByteArray({1}), 1},
      {DataType::Double, 0.5, 8},
      {DataType::Double, NullValue{}, 0},
      {DataType::Double, Variant(), 0},
  };
  for (const SizeCase& test : cases) {
    const Column column{"", test.type, 8};
    EXPECT_EQ(ActualSizeOf(column, test.value), test.size) << static_cast<Long>(test.type);
    const bool text = test.value.Get<String>() != nullptr;
    EXPECT_EQ(IsText(test.type), text) << static_cast<Long>(test.type);
    EXPECT_EQ(IsBinary(test.type), test.value.AsByteArray() != nullptr);
  }
}

struct ConversionCase {
  DataType type;
  Variant value;
  Variant converted;
};

TEST(ColumnValue, Has_the_type_of_its_column) {
  const ConversionCase cases[] = {
      {DataType::SmallInt, "12", Integer{12}},
      {DataType::Integer, 2.5, Long{2}},
      {DataType::Single, Long{3}, 3.0f},
      {DataType::Double, Currency{25000}, 2.5},
      {DataType::Currency, "1.25", Currency{12500}},
      {DataType::Currency, Currency{7}, Currency{7}},
      {DataType::Numeric, *Decimal::Parse("0.5"), *Decimal::Parse("0.5")},
      {DataType::DBTime, "12:00", Date{0.5}},
      {DataType::Date, Date{2}, Date{2}},
      {DataType::Boolean, Long{5}, true},
      {DataType::UnsignedTinyInt, Long{255}, Byte{255}},
      {DataType::BigInt, Long{-7}, *Decimal::Parse("-7")},
      {DataType::Numeric, " 1234.50 ", *Decimal::Parse("1234.50")},
      {DataType::Binary, ByteArray({1}, 5), ByteArray({1})},
      {DataType::DBDate, "2024-02-29", Date{45351}},
      {DataType::DBTimeStamp, 1.5, Date{1.5}},
      {DataType::VarWChar, Long{5}, "5"},
      {DataType::Integer, NullValue{}, NullValue{}},
  };
  for (const ConversionCase& test : cases) {
    const Column column{"", test.type};
    EXPECT_EQ(ToColumnValue(column, test.value), test.converted) << static_cast<Long>(test.type);
  }
}

TEST(ColumnValue, That_does_not_fit_is_the_wrong_type) {
  const std::pair<DataType, Variant> cases[] = {
      {DataType::SmallInt, Long{40000}},
      {DataType::Single, 1e300},
      {DataType::Single, "x"},
      {DataType::Integer, "x"},
      {DataType::Currency, 1e30},
      {DataType::Numeric, "1e5"},
      {DataType::Numeric, ""},
      {DataType::Binary, "01"},
      {DataType::LongVarBinary, Long{1}},
      {DataType::DBDate, "tomorrow"},
      {DataType::DBTimeStamp, 1e10},
      {DataType::VarWChar, ByteArray({1})},
      {DataType::Boolean, "perhaps"},
      {DataType::UnsignedTinyInt, Long{256}},
  };
  for (const auto& [type, value] : cases) {
    const Column column{"", type};
    EXPECT_EQ(RaisedBy([&column, &unfit = value] { ToColumnValue(column, unfit); }),
              (Raised{static_cast<Long>(0x800A0D5D), "ADODB.Field",
                      "Application uses a value of the wrong type for the current operation."}))
        << static_cast<Long>(type);
  }
}

}  // namespace
}  // namespace vandpublic::ado
