#include "runtime/coerce.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/test_component.h"

namespace vandpublic {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
const double kNaN = std::nan("");

Decimal Dec(const char* text) { return *Decimal::Parse(text); }

// What a conversion gives, as a number, or the fault it raises.
struct Outcome {
  double number = 0;
  int fault = 0;

  bool operator==(const Outcome&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Outcome& outcome) {
  if (outcome.fault != 0) return out << "fault " << outcome.fault;
  return out << outcome.number;
}

template <class Conversion>
Outcome OutcomeOf(Conversion convert, const Variant& value) {
  Outcome outcome;
  outcome.fault = RaisedBy([&] { outcome.number = static_cast<double>(convert(value)); }).number;
  return outcome;
}

struct NumberCase {
  Variant value;
  Outcome as_byte;
  Outcome as_integer;
  Outcome as_long;
};

constexpr Outcome kOverflow{0, 6};
constexpr Outcome kMismatch{0, 13};
constexpr Outcome kNull{0, 94};

const NumberCase kNumberCases[] = {
    {Variant(), {0}, {0}, {0}},
    {NullValue(), kNull, kNull, kNull},
    {Integer{255}, {255}, {255}, {255}},
    {Integer{256}, kOverflow, {256}, {256}},
    {Integer{-1}, kOverflow, {-1}, {-1}},
    {Integer{-32768}, kOverflow, {-32768}, {-32768}},
    {Long{32767}, kOverflow, {32767}, {32767}},
    {Long{32768}, kOverflow, kOverflow, {32768}},
    {Long{-2147483647 - 1}, kOverflow, kOverflow, {-2147483648.0}},
    {Byte{200}, {200}, {200}, {200}},
    {true, {255}, {-1}, {-1}},
    {false, {0}, {0}, {0}},
    // Halves go to the even neighbour.
    {0.5, {0}, {0}, {0}},
    {1.5, {2}, {2}, {2}},
    {2.5, {2}, {2}, {2}},
    {3.5, {4}, {4}, {4}},
    {-0.5, {0}, {0}, {0}},
    {-1.5, kOverflow, {-2}, {-2}},
    {2.5f, {2}, {2}, {2}},
    {254.5, {254}, {254}, {254}},
    {255.49, {255}, {255}, {255}},
    {255.5, kOverflow, {256}, {256}},
    {32767.4, kOverflow, {32767}, {32767}},
    {32767.5, kOverflow, kOverflow, {32768}},
    {-32768.5, kOverflow, {-32768}, {-32768}},
    {2147483647.4, kOverflow, kOverflow, {2147483647}},
    {2147483647.5, kOverflow, kOverflow, kOverflow},
    {-2147483648.5, kOverflow, kOverflow, {-2147483648.0}},
    {-2147483649.0, kOverflow, kOverflow, kOverflow},
    {1e300, kOverflow, kOverflow, kOverflow},
    {kInfinity, kOverflow, kOverflow, kOverflow},
    {kNaN, kOverflow, kOverflow, kOverflow},
    {Currency{25000}, {2}, {2}, {2}},
    {Currency{25001}, {3}, {3}, {3}},
    {Currency{std::numeric_limits<std::int64_t>::max()}, kOverflow, kOverflow, kOverflow},
    {Date{36526.5}, kOverflow, kOverflow, {36526}},
    {Dec("2.5"), {2}, {2}, {2}},
    {Dec("-3.5"), kOverflow, {-4}, {-4}},
    {"12", {12}, {12}, {12}},
    {"  12.5 ", {12}, {12}, {12}},
    {"&HFF", {255}, {255}, {255}},
    {"twelve", kMismatch, kMismatch, kMismatch},
    {"", kMismatch, kMismatch, kMismatch},
    {"True", kMismatch, kMismatch, kMismatch},
    {"1e400", kOverflow, kOverflow, kOverflow},
    {ObjectRef(), kMismatch, kMismatch, kMismatch},
    {ByteArray{1}, kMismatch, kMismatch, kMismatch},
    {ByteTable({0, 1}, {0, 1}), kMismatch, kMismatch, kMismatch},
    {ArrayShape{}, kMismatch, kMismatch, kMismatch},
};

TEST(Coerce, Numbers_are_rounded_to_even_and_held_to_the_range_of_the_target) {
  for (std::size_t i = 0; i < std::size(kNumberCases); ++i) {
    const NumberCase& one = kNumberCases[i];
    EXPECT_EQ(OutcomeOf(ToByte, one.value), one.as_byte) << "case " << i;
    EXPECT_EQ(OutcomeOf(ToInteger, one.value), one.as_integer) << "case " << i;
    EXPECT_EQ(OutcomeOf(ToLong, one.value), one.as_long) << "case " << i;
  }
}

TEST(Coerce, ToDouble_rounds_nothing) {
  EXPECT_EQ(OutcomeOf(ToDouble, 2.5), (Outcome{2.5}));
  EXPECT_EQ(OutcomeOf(ToDouble, 0.1f), (Outcome{0.1f}));
  EXPECT_EQ(OutcomeOf(ToDouble, true), (Outcome{-1}));
  EXPECT_EQ(OutcomeOf(ToDouble, Currency{-12345}), (Outcome{-1.2345}));
  EXPECT_EQ(OutcomeOf(ToDouble, Date{1.25}), (Outcome{1.25}));
  EXPECT_EQ(OutcomeOf(ToDouble, Dec("-.25")), (Outcome{-0.25}));
  EXPECT_EQ(OutcomeOf(ToDouble, "1e300"), (Outcome{1e300}));
  EXPECT_EQ(OutcomeOf(ToDouble, NullValue()), kNull);
  EXPECT_EQ(OutcomeOf(ToDouble, ByteArray()), kMismatch);
}

TEST(Coerce, A_reference_to_an_array_is_no_number_either) {
  ByteArray array = {1};
  EXPECT_EQ(OutcomeOf(ToLong, Variant::Referring(array)), kMismatch);
  ByteTable table({0, 1}, {0, 1});
  EXPECT_EQ(OutcomeOf(ToLong, Variant::Referring(table)), kMismatch);
}

TEST(Coerce, ToBoolean_takes_every_number_but_0_and_the_two_words) {
  struct Case {
    Variant value;
    Outcome truth;
  };
  const Case cases[] = {
      {Variant(), {0}},
      {NullValue(), kNull},
      {Integer{0}, {0}},
      {Integer{-1}, {1}},
      {Integer{5}, {1}},
      {0.25, {1}},
      {Byte{0}, {0}},
      {true, {1}},
      {false, {0}},
      {"True", {1}},
      {" false ", {0}},
      {"TRUE", {1}},
      {"1", {1}},
      {"0.0", {0}},
      {"&H0", {0}},
      {"yes", kMismatch},
      {"", kMismatch},
      {Currency{1}, {1}},
      {ObjectRef(), kMismatch},
  };
  for (const Case& one : cases) {
    EXPECT_EQ(OutcomeOf(ToBoolean, one.value), one.truth) << static_cast<int>(one.value.Type());
  }
}

TEST(Coerce, ToText_writes_plain_decimals) {
  struct Case {
    Variant value;
    const char* text;
  };
  const Case cases[] = {
      {Variant(), ""},
      {Integer{-32768}, "-32768"},
      {Long{2147483647}, "2147483647"},
      {Byte{7}, "7"},
      {true, "True"},
      {false, "False"},
      {"a b", "a b"},
      {0.1, "0.1"},
      {0.1f, "0.1"},
      {-0.0, "0"},
      {-0.0f, "0"},
      {1.5, "1.5"},
      {1.0 / 3, "0.333333333333333"},
      {1.0f / 3, "0.3333333"},
      {123456789012345.0, "123456789012345"},
      {1e15, "1E+15"},
      {1e20, "1E+20"},
      {-2.5e-7, "-2.5E-07"},
      {Currency{0}, "0"},
      {Currency{12345}, "1.2345"},
      {Currency{-10000}, "-1"},
      {Currency{-1}, "-0.0001"},
      {Currency{123000}, "12.3"},
      {Currency{std::numeric_limits<std::int64_t>::min()}, "-922337203685477.5808"},
      {Dec("-1234.50"), "-1234.50"},
  };
  for (const Case& one : cases)
    EXPECT_EQ(ToText(one.value).ToUtf8(), one.text);
  EXPECT_EQ(ToText(Variant(String::FromBytes("abc"))).ByteLength(), 3u) << "kept as it is";
}

TEST(Coerce, ToText_refuses_what_has_no_text) {
  const auto length = [](const Variant& value) { return ToText(value).Length(); };
  EXPECT_EQ(OutcomeOf(length, NullValue()), kNull);
  EXPECT_EQ(OutcomeOf(length, ObjectRef()), kMismatch);
  EXPECT_EQ(OutcomeOf(length, ByteArray{1}), kMismatch);
  EXPECT_EQ(OutcomeOf(length, ArrayShape{}), kMismatch);
}

TEST(Coerce, ToText_writes_dates_of_the_years_100_to_9999) {
  struct Case {
    double days;
    const char* text;  // null: fault 6
  };
  constexpr double kSecond = 1.0 / 86400;
  const Case cases[] = {
      {0, "1899-12-30 00:00:00"},
      {45356 + (14 * 3600 + 7 * 60 + 9) * kSecond, "2024-03-05 14:07:09"},
      {-1, "1899-12-29 00:00:00"},
      {-1.25, "1899-12-29 06:00:00"},
      {0.75, "1899-12-30 18:00:00"},
      {1 - kSecond / 4, "1899-12-31 00:00:00"},
      {-657434, "0100-01-01 00:00:00"},
      {-657435, nullptr},
      {2958465 + 86399 * kSecond, "9999-12-31 23:59:59"},
      {2958466 - kSecond / 4, nullptr},
      {2958466, nullptr},
      {1e300, nullptr},
      {-1e300, nullptr},
      {kInfinity, nullptr},
      {kNaN, nullptr},
  };
  for (const Case& one : cases) {
    String text;
    const Raised raised = RaisedBy([&] { text = ToText(Date{one.days}); });
    if (one.text != nullptr) {
      EXPECT_EQ(text.ToUtf8(), one.text);
    } else {
      EXPECT_EQ(raised, PlainFault(FaultNumber::Overflow)) << one.days;
    }
  }
}

TEST(Coerce, ParseNumber_reads_classic_numbers_and_nothing_else) {
  struct Case {
    const char16_t* text;
    std::optional<double> number;
  };
  const Case cases[] = {
      {u"0", 0.0},
      {u"-12", -12.0},
      {u"+12", 12.0},
      {u" 12 ", 12.0},
      {u"12.", 12.0},
      {u".5", 0.5},
      {u"-.5", -0.5},
      {u"1e3", 1000.0},
      {u"1E+3", 1000.0},
      {u"1.5e-1", 0.15},
      {u"0.1e1", 1.0},
      {u"&HFF", 255.0},
      {u"&hff", 255.0},
      {u"&H7FFFFFFF", 2147483647.0},
      {u"&H80000000", -2147483648.0},
      {u"&HFFFFFFFF", -1.0},
      {u"&H100000000", 4294967296.0},
      {u"&O17", 15.0},
      {u"&o7", 7.0},
      {u"1e-400", 0.0},
      {u"-1e-400", 0.0},
      {u"", {}},
      {u"   ", {}},
      {u"+", {}},
      {u"-", {}},
      {u"+-1", {}},
      {u"++1", {}},
      {u"--1", {}},
      {u"- 1", {}},
      {u"1 2", {}},
      {u"1e", {}},
      {u"1.2.3", {}},
      {u"1,5", {}},
      {u"1d5", {}},
      {u"0x10", {}},
      {u"inf", {}},
      {u"nan", {}},
      {u"12a", {}},
      {u"\t1", {}},
      {u"&", {}},
      {u"&H", {}},
      {u"&HG", {}},
      {u"&H ", {}},
      {u"&O8", {}},
      {u"&X1", {}},
      {u"\uff11", {}},
  };
  for (const Case& one : cases)
    EXPECT_EQ(ParseNumber(one.text), one.number) << String(one.text).ToUtf8();
}

TEST(Coerce, ParseNumber_overflows_past_the_range_of_a_double) {
  const std::u16string zeros(400, u'0');
  EXPECT_EQ(RaisedBy([] { ParseNumber(u"1e400"); }), PlainFault(FaultNumber::Overflow));
  EXPECT_EQ(RaisedBy([] { ParseNumber(u"-1e400"); }), PlainFault(FaultNumber::Overflow));
  EXPECT_EQ(RaisedBy([&] { ParseNumber(u"1" + zeros); }), PlainFault(FaultNumber::Overflow));
  EXPECT_EQ(ParseNumber(u"0." + zeros + u"1"), 0.0);
  EXPECT_EQ(ParseNumber(u"1e400x"), std::nullopt);
}

TEST(Coerce, Increment_keeps_the_type_and_widens_past_its_range) {
  struct Case {
    Variant before;
    Variant after;
  };
  const Case cases[] = {
      {Variant(), Integer{1}},
      {Byte{0}, Byte{1}},
      {Byte{255}, Integer{256}},
      {Integer{-1}, Integer{0}},
      {Integer{32767}, Long{32768}},
      {Long{5}, Long{6}},
      {Long{2147483647}, 2147483648.0},
      {1.5f, 2.5f},
      {1.5, 2.5},
      {Currency{5}, Currency{10005}},
      {Date{1.5}, Date{2.5}},
      {true, Integer{0}},
      {false, Integer{1}},
      {"7", 8.0},
      {" 1.5 ", 2.5},
      {Dec("7"), Dec("8")},
      {Dec("9.50"), Dec("10.50")},
      {Dec("199"), Dec("200")},
      {Dec("-1"), Dec("0")},
      {Dec("-200.5"), Dec("-199.5")},
      {Dec("-1.25"), Dec("-0.25")},
      {Dec("-0.25"), Dec("0.75")},
      {Dec("-0.50"), Dec("0.50")},
      {Dec("9999999999999999999999999999"), 1e28},
  };
  for (const Case& one : cases) {
    Variant value = one.before;
    Increment(value);
    EXPECT_EQ(value, one.after) << static_cast<int>(one.before.Type()) << " "
                                << ToText(one.before).ToUtf8();
  }
}

TEST(Coerce, A_value_that_cannot_be_incremented_stays) {
  struct Case {
    Variant value;
    FaultNumber fault;
  };
  const Case cases[] = {
      {NullValue(), FaultNumber::InvalidUseOfNull},
      {"abc", FaultNumber::TypeMismatch},
      {ByteArray{1}, FaultNumber::TypeMismatch},
      {ObjectRef(), FaultNumber::TypeMismatch},
      {Currency{std::numeric_limits<std::int64_t>::max()}, FaultNumber::Overflow},
  };
  for (const Case& one : cases) {
    Variant value = one.value;
    EXPECT_EQ(RaisedBy([&] { Increment(value); }), PlainFault(one.fault));
    EXPECT_EQ(value, one.value);
  }
}

}  // namespace
}  // namespace vandpublic
