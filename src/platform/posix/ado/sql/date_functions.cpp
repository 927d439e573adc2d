// Dates as their day numbers, by the calendar and the clock.
#include "platform/posix/ado/sql/date_functions.h"

#include <algorithm>
#include <string>

#include "platform/platform.h"
#include "platform/posix/ado/dates.h"
#include "platform/posix/ado/sql/date_literal.h"
#include "runtime/coerce.h"
#include "runtime/errors.h"

namespace vandpublic::ado::date_functions {
namespace {

double MillisecondsNow(const LocalTime& now) {
  const auto milliseconds = MillisecondsOf(now.hour, now.minute, std::min(now.second, 59));
  return static_cast<double>(milliseconds.value_or(0));
}

// A date as a number, or as text in any of the forms of a literal; fault 13 for what is no date.
double DaysOf(const Variant& value) {
  const auto* const text = value.Get<String>();
  if (text == nullptr) return ToDouble(value);
  const auto days = ParseDateLiteral(text->ToUtf8());
  if (!days) RaiseFault(FaultNumber::TypeMismatch);
  return *days;
}

CivilTime SplitArgument(SqlArguments a) {
  const auto split = ToCivilTime(Date{DaysOf(a[0])}, kMillisecondsOfSecond);
  if (!split) RaiseFault(FaultNumber::InvalidProcedureCall);
  return *split;
}

// FoxPro's empty date stands for no day at all.
bool IsEmptyDate(SqlArguments a, Dialect dialect) {
  const double days = DaysOf(a[0]);
  return dialect == Dialect::FoxPro && days >= 0 && days < 1;
}

template <auto Part>
Variant DayPart(SqlArguments a, Dialect dialect) {
  if (IsEmptyDate(a, dialect)) return 0.0;
  return static_cast<double>(SplitArgument(a).*Part);
}

template <auto Part>
Variant TimePart(SqlArguments a) {
  return static_cast<double>(SplitArgument(a).*Part);
}

}  // namespace

Variant Today(SqlArguments, Dialect) {
  const LocalTime now = SystemPlatform()->clock->Now();
  return static_cast<double>(DayNumber(now.year, now.month, now.day).value_or(0));
}

Variant TimeNow(SqlArguments, Dialect) {
  return MillisecondsNow(SystemPlatform()->clock->Now()) / static_cast<double>(kMillisecondsOfDay);
}

Variant Now(SqlArguments, Dialect) {
  const LocalTime now = SystemPlatform()->clock->Now();
  const auto day = DayNumber(now.year, now.month, now.day).value_or(0);
  return JoinDayAndTime(day, static_cast<std::int64_t>(MillisecondsNow(now))).days;
}

Variant ToDate(SqlArguments a, Dialect) { return DaysOf(a[0]); }

// "20240305", eight blanks for the empty date.
Variant DateDigits(SqlArguments a, Dialect dialect) {
  if (IsEmptyDate(a, dialect)) return String(std::u16string(8, u' '));
  const CivilTime date = SplitArgument(a);
  const unsigned number = (static_cast<unsigned>(date.year) * 100 + date.month) * 100 + date.day;
  const std::string digits = std::to_string(number);
  return String(std::string(8 - std::min<std::size_t>(digits.size(), 8), '0') + digits);
}

Variant Year(SqlArguments a, Dialect dialect) { return DayPart<&CivilTime::year>(a, dialect); }

Variant Month(SqlArguments a, Dialect dialect) { return DayPart<&CivilTime::month>(a, dialect); }

Variant Day(SqlArguments a, Dialect dialect) { return DayPart<&CivilTime::day>(a, dialect); }

Variant Hour(SqlArguments a, Dialect) { return TimePart<&CivilTime::hour>(a); }
Variant Minute(SqlArguments a, Dialect) { return TimePart<&CivilTime::minute>(a); }
Variant Second(SqlArguments a, Dialect) { return TimePart<&CivilTime::second>(a); }

}  // namespace vandpublic::ado::date_functions
