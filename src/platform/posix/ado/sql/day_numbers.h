// Dates as day numbers, the form in which automation keeps them: days since 30 December 1899, the
// time of day as the fraction.
//
// The fraction counts away from zero on both sides: -1.25 is 29 December 1899, 06:00.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_SQL_DAY_NUMBERS_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_SQL_DAY_NUMBERS_H

#include <cstdint>
#include <optional>

namespace vandpublic::ado {

inline constexpr std::int64_t kMillisecondsOfDay = 86'400'000;

struct CivilDate {
  int year = 1899;  // 100 to 9999
  int month = 12;
  int day = 30;

  bool operator==(const CivilDate&) const = default;
};

struct TimeOfDay {
  int hour = 0;
  int minute = 0;
  int second = 0;

  bool operator==(const TimeOfDay&) const = default;
};

// The day number of a date; nothing for a day that the calendar does not have.
std::optional<std::int64_t> DayNumber(CivilDate date) noexcept;

// Nothing for a time that a day does not have.
std::optional<std::int64_t> MillisecondsOf(TimeOfDay time) noexcept;

// A day and the milliseconds passed since its midnight, as one number.
double JoinDayAndTime(std::int64_t day, std::int64_t milliseconds) noexcept;

struct DayAndTime {
  CivilDate date;
  TimeOfDay time;  // rounded to the second
};

// Nothing outside the years 100 to 9999, infinities and non-numbers included.
std::optional<DayAndTime> SplitDayNumber(double days) noexcept;

}  // namespace vandpublic::ado

#endif
