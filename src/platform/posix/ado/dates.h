// Dates as days since 30 December 1899, and as calendar date and time of day.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_DATES_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_DATES_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "runtime/variant.h"

namespace vandpublic::ado {

struct CivilTime {
  int year = 1899;
  unsigned month = 12;
  unsigned day = 30;
  unsigned hour = 0;
  unsigned minute = 0;
  unsigned second = 0;
  std::uint32_t nanosecond = 0;
};

inline constexpr std::int64_t kMillisecondsOfSecond = 1000;
inline constexpr std::int64_t kMillisecondsOfDay = 86'400'000;

// The whole days to a date; nothing for one that the calendar lacks or outside the years 100 to
// 9999.
std::optional<std::int64_t> DayNumber(int year, int month, int day) noexcept;
// The time of day in milliseconds; nothing for one that a day does not have.
std::optional<std::int64_t> MillisecondsOf(int hour, int minute, int second) noexcept;
// The date of a day and the milliseconds since its midnight. The fraction counts away from zero on
// both sides: -1.25 is 29 December 1899, 06:00.
Date JoinDayAndTime(std::int64_t day, std::int64_t milliseconds) noexcept;

// Nothing for what is no date between the years 100 and 9999, or no time of day.
std::optional<Date> ToDate(const CivilTime& time);
// Nothing outside the years 100 to 9999. Rounded to so many milliseconds; every
// date holds single ones, but FoxPro leaves its dates a thousandth short of the second.
std::optional<CivilTime> ToCivilTime(Date date, std::int64_t unit = 1);

// "2024-03-05", "2024-03-05 14:07:09" or "2024-03-05 14:07:09.25", also with a "T" between; or a
// time alone, on day 0.
std::optional<Date> ParseDate(std::string_view text);

// "2024-03-05", "14:07:09", and both with the fraction of the second where there is one.
std::string DateOnlyText(const CivilTime& time);
std::string TimeOnlyText(const CivilTime& time);
std::string TimestampText(const CivilTime& time);

}  // namespace vandpublic::ado

#endif
