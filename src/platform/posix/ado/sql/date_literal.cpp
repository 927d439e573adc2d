// A date literal is a list of numbers and words; what they are shows by their places.
#include "platform/posix/ado/sql/date_literal.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "platform/posix/ado/dates.h"

namespace vandpublic::ado {
namespace {

constexpr int kFirstYearOfTwoDigits = 30;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

struct Part {
  int number = -1;  // of a number, or of a month's name
  std::size_t digits = 0;
  char mark = '\0';  // behind the part: '/', '-', ':' and the like, ' ' where there is none
  enum { Number, Month, Am, Pm } kind = Number;
};

std::optional<Part> WordPart(std::string word) {
  std::transform(word.begin(), word.end(), word.begin(),
                 [](char c) { return static_cast<char>(c | 0x20); });
  Part part;
  if (word == "am" || word == "pm") {
    part.kind = word == "am" ? Part::Am : Part::Pm;
    return part;
  }
  static constexpr std::array<std::string_view, 12> kMonths = {
      "january", "february", "march",     "april",   "may",      "june",
      "july",    "august",   "september", "october", "november", "december"};
  const auto month = std::find_if(kMonths.begin(), kMonths.end(), [&](std::string_view name) {
    return word.size() >= 3 && name.starts_with(word);
  });
  if (month == kMonths.end()) return std::nullopt;
  part.kind = Part::Month;
  part.number = static_cast<int>(month - kMonths.begin()) + 1;
  return part;
}

// The parts of the text; nothing where there are other characters or too many of them.
std::optional<std::vector<Part>> Split(std::string_view text) {
  std::vector<Part> parts;
  std::size_t at = 0;
  while (at < text.size()) {
    const std::size_t start = at;
    Part part;
    if (IsDigit(text[at])) {
      part.number = 0;
      for (; at < text.size() && IsDigit(text[at]); ++at) {
        part.number = 10 * part.number + (text[at] - '0');
        if (++part.digits > 4) return std::nullopt;
      }
    } else if (IsLetter(text[at])) {
      while (at < text.size() && IsLetter(text[at]))
        ++at;
      const auto word = WordPart(std::string(text.substr(start, at - start)));
      if (!word) return std::nullopt;
      part = *word;
    } else {
      return std::nullopt;
    }
    part.mark = ' ';
    for (; at < text.size() && !IsDigit(text[at]) && !IsLetter(text[at]); ++at) {
      const char c = text[at];
      if (c == ' ' || c == ',') continue;
      if ((c != '/' && c != '-' && c != ':' && c != '.') || part.mark != ' ') return std::nullopt;
      part.mark = c;
    }
    parts.push_back(part);
  }
  return parts;
}

std::optional<std::int64_t> TimeOf(std::vector<Part> parts) {
  bool is_pm = false;
  bool is_am = false;
  if (!parts.empty() && parts.back().kind != Part::Number) {
    is_pm = parts.back().kind == Part::Pm;
    is_am = parts.back().kind == Part::Am;
    if (!is_pm && !is_am) return std::nullopt;
    parts.pop_back();
  }
  if (parts.empty() || parts.size() > 3) return std::nullopt;
  std::array<int, 3> numbers{};
  for (std::size_t i = 0; i < parts.size(); ++i) {
    if (parts[i].kind != Part::Number) return std::nullopt;
    numbers[i] = parts[i].number;
  }
  if (is_pm || is_am) {
    if (numbers[0] < 1 || numbers[0] > 12) return std::nullopt;
    numbers[0] = numbers[0] % 12 + (is_pm ? 12 : 0);
  } else if (parts.size() == 1) {
    return std::nullopt;
  }
  return MillisecondsOf(numbers[0], numbers[1], numbers[2]);
}

int FullYear(const Part& part) {
  if (part.digits > 2) return part.number;
  return part.number + (part.number < kFirstYearOfTwoDigits ? 2000 : 1900);
}

std::optional<std::int64_t> DayOf(const std::vector<Part>& parts) {
  if (parts.size() != 3) return std::nullopt;
  const Part& a = parts[0];
  const Part& b = parts[1];
  const Part& c = parts[2];
  if (c.kind != Part::Number) return std::nullopt;
  if (a.kind == Part::Month && b.kind == Part::Number) {
    return DayNumber(FullYear(c), a.number, b.number);
  }
  if (a.kind != Part::Number) return std::nullopt;
  if (b.kind == Part::Month) return DayNumber(FullYear(c), b.number, a.number);
  if (b.kind != Part::Number) return std::nullopt;
  if (a.digits > 2) return DayNumber(a.number, b.number, c.number);
  const auto month_first = DayNumber(FullYear(c), a.number, b.number);
  // A date that only makes sense with the day first is taken so, as the original does.
  return month_first ? month_first : DayNumber(FullYear(c), b.number, a.number);
}

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

// Without the mark of an ODBC escape or of FoxPro's strict dates.
std::string_view WithoutMarks(std::string_view text) {
  text = Trimmed(text);
  if (text.starts_with('^')) return Trimmed(text.substr(1));
  const std::size_t quote = text.find('\'');
  if (quote == std::string_view::npos || !text.ends_with('\'') || quote + 1 >= text.size()) {
    return text;
  }
  const std::string_view mark = Trimmed(text.substr(0, quote));
  if (mark != "d" && mark != "t" && mark != "ts" && mark != "D" && mark != "T" && mark != "TS") {
    return text;
  }
  return Trimmed(text.substr(quote + 1, text.size() - quote - 2));
}

}  // namespace

std::optional<double> ParseDateLiteral(std::string_view text) {
  text = WithoutMarks(text);
  if (text.find_first_not_of("/-.: ") == std::string_view::npos) return 0.0;
  auto parts = Split(text);
  if (!parts) return std::nullopt;

  // The time begins at the first number before a colon, or before AM or PM.
  auto time =
      std::find_if(parts->begin(), parts->end(), [](const Part& p) { return p.mark == ':'; });
  if (time == parts->end() && parts->size() >= 2 && parts->back().kind != Part::Number &&
      parts->back().kind != Part::Month) {
    time = parts->end() - 2;
  }
  const std::vector<Part> date_parts(parts->begin(), time);
  std::int64_t milliseconds = 0;
  if (time != parts->end()) {
    const auto parsed = TimeOf({time, parts->end()});
    if (!parsed) return std::nullopt;
    milliseconds = *parsed;
  }
  if (date_parts.empty()) return JoinDayAndTime(0, milliseconds).days;
  const auto day = DayOf(date_parts);
  if (!day) return std::nullopt;
  return JoinDayAndTime(*day, milliseconds).days;
}

}  // namespace vandpublic::ado
