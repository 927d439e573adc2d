// Calendar arithmetic by the standard library's Gregorian calendar.
#include "platform/posix/ado/sql/day_numbers.h"

#include <chrono>
#include <cmath>

namespace vandpublic::ado {
namespace {

using std::chrono::sys_days;
using std::chrono::year_month_day;

constexpr std::chrono::sys_days kDayZero{std::chrono::year{1899} / 12 / 30};

constexpr double kFirstDay = -657434;  // 1 January 100
constexpr double kDayAfterLast = 2958466;

constexpr std::int64_t kSecondsOfDay = 86'400;

}  // namespace

std::optional<std::int64_t> DayNumber(CivilDate date) noexcept {
  if (date.year < 100 || date.year > 9999 || date.month < 1 || date.day < 1) return std::nullopt;
  const year_month_day day{std::chrono::year{date.year},
                           std::chrono::month{static_cast<unsigned>(date.month)},
                           std::chrono::day{static_cast<unsigned>(date.day)}};
  if (!day.ok()) return std::nullopt;
  return (sys_days{day} - kDayZero).count();
}

std::optional<std::int64_t> MillisecondsOf(TimeOfDay time) noexcept {
  if (time.hour < 0 || time.hour > 23 || time.minute < 0 || time.minute > 59 || time.second < 0 ||
      time.second > 59) {
    return std::nullopt;
  }
  return ((time.hour * 60LL + time.minute) * 60 + time.second) * 1000;
}

double JoinDayAndTime(std::int64_t day, std::int64_t milliseconds) noexcept {
  const double fraction =
      static_cast<double>(milliseconds) / static_cast<double>(kMillisecondsOfDay);
  const auto days = static_cast<double>(day);
  return day < 0 ? days - fraction : days + fraction;
}

std::optional<DayAndTime> SplitDayNumber(double days) noexcept {
  if (!(days > kFirstDay - 1 && days < kDayAfterLast)) return std::nullopt;
  double day = std::trunc(days);
  auto seconds = static_cast<std::int64_t>(
      std::llround(std::abs(days - day) * static_cast<double>(kSecondsOfDay)));
  if (seconds == kSecondsOfDay) {
    seconds = 0;
    day += 1;
  }
  if (day >= kDayAfterLast || day < kFirstDay) return std::nullopt;

  const year_month_day date{kDayZero + std::chrono::days{static_cast<int>(day)}};
  return DayAndTime{{static_cast<int>(date.year()), static_cast<int>(unsigned{date.month()}),
                     static_cast<int>(unsigned{date.day()})},
                    {static_cast<int>(seconds / 3600), static_cast<int>(seconds / 60 % 60),
                     static_cast<int>(seconds % 60)}};
}

}  // namespace vandpublic::ado
