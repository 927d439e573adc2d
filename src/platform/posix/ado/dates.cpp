// Calendar arithmetic on dates.
#include "platform/posix/ado/dates.h"

#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>

namespace vandpublic::ado {
namespace {

constexpr std::chrono::sys_days kDayZero{std::chrono::year{1899} / 12 / 30};
constexpr int kFirstYear = 100;
constexpr int kLastYear = 9999;

// Reads a number of one to `most` digits from the front of the text.
std::optional<unsigned> TakeNumber(std::string_view& text, std::size_t most) {
  unsigned value = 0;
  const char* const end = text.data() + std::min(text.size(), most);
  const auto read = std::from_chars(text.data(), end, value);
  if (read.ec != std::errc()) return std::nullopt;
  text.remove_prefix(static_cast<std::size_t>(read.ptr - text.data()));
  return value;
}

bool TakeSign(std::string_view& text, char sign) {
  if (!text.starts_with(sign)) return false;
  text.remove_prefix(1);
  return true;
}

// ".25" as nanoseconds; further digits are dropped.
bool TakeFraction(std::string_view& text, std::uint32_t& nanosecond) {
  std::uint32_t unit = 100'000'000;
  if (text.empty()) return false;
  for (; !text.empty() && text.front() >= '0' && text.front() <= '9'; text.remove_prefix(1)) {
    nanosecond += unit * static_cast<std::uint32_t>(text.front() - '0');
    unit /= 10;
  }
  return true;
}

bool TakeTime(std::string_view& text, CivilTime& time) {
  const auto hour = TakeNumber(text, 2);
  if (!hour || !TakeSign(text, ':')) return false;
  const auto minute = TakeNumber(text, 2);
  if (!minute) return false;
  time.hour = *hour;
  time.minute = *minute;
  if (!TakeSign(text, ':')) return true;
  const auto second = TakeNumber(text, 2);
  if (!second) return false;
  time.second = *second;
  return !TakeSign(text, '.') || TakeFraction(text, time.nanosecond);
}

bool TakeDay(std::string_view& text, CivilTime& time) {
  const auto year = TakeNumber(text, 4);
  if (!year || !TakeSign(text, '-')) return false;
  const auto month = TakeNumber(text, 2);
  if (!month || !TakeSign(text, '-')) return false;
  const auto day = TakeNumber(text, 2);
  if (!day) return false;
  time.year = static_cast<int>(*year);
  time.month = *month;
  time.day = *day;
  return true;
}

template <class... Numbers>
std::string Formatted(const char* format, Numbers... numbers) {
  char buffer[64];
  const int length = std::snprintf(buffer, sizeof buffer, format, numbers...);
  return {buffer, static_cast<std::size_t>(length)};
}

}  // namespace

std::optional<std::int64_t> DayNumber(int year, int month, int day) noexcept {
  if (year < kFirstYear || year > kLastYear || month < 1 || day < 1) return std::nullopt;
  const std::chrono::year_month_day date{std::chrono::year{year},
                                         std::chrono::month{static_cast<unsigned>(month)},
                                         std::chrono::day{static_cast<unsigned>(day)}};
  if (!date.ok()) return std::nullopt;
  return (std::chrono::sys_days{date} - kDayZero).count();
}

std::optional<std::int64_t> MillisecondsOf(int hour, int minute, int second) noexcept {
  if (hour < 0 || hour > 23 || minute < 0 || minute > 59 || second < 0 || second > 59) {
    return std::nullopt;
  }
  return ((hour * 60LL + minute) * 60 + second) * 1000;
}

Date JoinDayAndTime(std::int64_t day, std::int64_t milliseconds) noexcept {
  const auto days = static_cast<double>(day);
  const double fraction =
      static_cast<double>(milliseconds) / static_cast<double>(kMillisecondsOfDay);
  return Date{day < 0 ? days - fraction : days + fraction};
}

std::optional<Date> ToDate(const CivilTime& time) {
  const auto day = DayNumber(time.year, static_cast<int>(time.month), static_cast<int>(time.day));
  const auto milliseconds = MillisecondsOf(
      static_cast<int>(time.hour), static_cast<int>(time.minute), static_cast<int>(time.second));
  if (!day || !milliseconds) return std::nullopt;
  return JoinDayAndTime(*day, *milliseconds + (time.nanosecond + 500'000) / 1'000'000);
}

std::optional<CivilTime> ToCivilTime(Date date, std::int64_t unit) {
  constexpr double kFarthest = 3e6;
  if (!(std::fabs(date.days) < kFarthest)) return std::nullopt;
  double day = std::trunc(date.days);
  const std::int64_t units_of_day = kMillisecondsOfDay / unit;  // without a rest
  const double units = std::fabs(date.days - day) * static_cast<double>(units_of_day);
  std::int64_t part = std::llround(units) * unit;
  if (part >= kMillisecondsOfDay) {
    part -= kMillisecondsOfDay;
    ++day;
  }
  const std::chrono::year_month_day civil{kDayZero + std::chrono::days{static_cast<int>(day)}};
  const int year = static_cast<int>(civil.year());
  if (year < kFirstYear || year > kLastYear) return std::nullopt;
  CivilTime time;
  time.year = year;
  time.month = static_cast<unsigned>(civil.month());
  time.day = static_cast<unsigned>(civil.day());
  const std::int64_t seconds = part / 1000;
  time.hour = static_cast<unsigned>(seconds / 3600);
  time.minute = static_cast<unsigned>(seconds / 60 % 60);
  time.second = static_cast<unsigned>(seconds % 60);
  time.nanosecond = static_cast<std::uint32_t>(part % 1000 * 1'000'000);
  return time;
}

std::optional<Date> ParseDate(std::string_view text) {
  CivilTime time;
  std::string_view rest = text;
  if (!TakeDay(rest, time)) {
    rest = text;
    time = {};
    if (!TakeTime(rest, time) || !rest.empty()) return std::nullopt;
    return ToDate(time);
  }
  if (rest.empty()) return ToDate(time);
  if (!TakeSign(rest, ' ') && !TakeSign(rest, 'T')) return std::nullopt;
  if (!TakeTime(rest, time) || !rest.empty()) return std::nullopt;
  return ToDate(time);
}

std::string DateOnlyText(const CivilTime& time) {
  return Formatted("%04d-%02u-%02u", time.year, time.month, time.day);
}

std::string TimeOnlyText(const CivilTime& time) {
  std::string text = Formatted("%02u:%02u:%02u", time.hour, time.minute, time.second);
  if (time.nanosecond == 0) return text;
  text += Formatted(".%09u", time.nanosecond);
  return text.substr(0, text.find_last_not_of('0') + 1);
}

std::string TimestampText(const CivilTime& time) {
  return DateOnlyText(time) + " " + TimeOnlyText(time);
}

}  // namespace vandpublic::ado
