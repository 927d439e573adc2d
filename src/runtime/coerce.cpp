// Automation's conversions. Everything numeric goes through a double, which holds every 32-bit
// integer exactly; only 64-bit amounts and decimals keep more digits than that, and they are read
// from their own texts where exactness matters.
#include "runtime/coerce.h"

#include <charconv>
#include <chrono>
#include <cmath>
#include <limits>
#include <string>

#include "runtime/errors.h"
#include "runtime/utf8.h"

namespace vandpublic {
namespace {

constexpr double kCurrencyScale = 10000.0;
constexpr double kSecondsPerDay = 86400.0;

std::optional<double> ParseRadix(std::u16string_view digits, int radix) {
  if (digits.empty()) return std::nullopt;
  double value = 0;
  for (const char16_t c : digits) {
    int digit = radix;
    if (c >= u'0' && c <= u'9') digit = c - u'0';
    if (c >= u'A' && c <= u'F') digit = c - u'A' + 10;
    if (c >= u'a' && c <= u'f') digit = c - u'a' + 10;
    if (digit >= radix) return std::nullopt;
    value = value * radix + digit;
  }
  // &HFFFFFFFF is the 32-bit pattern -1, as in the classic languages.
  constexpr double kTwoTo31 = 2147483648.0;
  if (value >= kTwoTo31 && value < 2 * kTwoTo31) value -= 2 * kTwoTo31;
  return value;
}

// Of a number that from_chars finds out of range: whether it is too small rather than too large.
bool IsTooSmall(std::string_view text) {
  const std::size_t exponent = text.find_first_of("eE");
  if (exponent != std::string_view::npos) return text.substr(exponent + 1).starts_with('-');
  return text.substr(0, text.find('.')).find_first_of("123456789") == std::string_view::npos;
}

// True for what from_chars reads but a classic number is not: "inf", "nan" and the like.
bool HasForeignLetter(std::string_view text) {
  return text.find_first_not_of("0123456789+-.eE") != std::string_view::npos;
}

double NumberFromText(const String& text) {
  if (const auto number = ParseNumber(text.view())) return *number;
  RaiseFault(FaultNumber::TypeMismatch);
}

struct AsDouble {
  double operator()(std::monostate) const { return 0; }
  double operator()(NullValue) const { RaiseFault(FaultNumber::InvalidUseOfNull); }
  double operator()(Integer v) const { return v; }
  double operator()(Long v) const { return v; }
  double operator()(float v) const { return v; }
  double operator()(double v) const { return v; }
  double operator()(Currency v) const { return static_cast<double>(v.scaled) / kCurrencyScale; }
  double operator()(Date v) const { return v.days; }
  double operator()(const String& v) const { return NumberFromText(v); }
  double operator()(bool v) const { return v ? -1 : 0; }
  double operator()(const Decimal& v) const { return NumberFromText(String(v.text())); }
  double operator()(Byte v) const { return v; }
  template <class Other>
  double operator()(const Other&) const {
    RaiseFault(FaultNumber::TypeMismatch);
  }
};

template <class T>
T ToWhole(const Variant& value) {
  const double number = ToDouble(value);
  if (std::isnan(number)) RaiseFault(FaultNumber::Overflow);
  const double whole = std::nearbyint(number);  // the default mode rounds halves to even
  if (whole < std::numeric_limits<T>::min() || whole > std::numeric_limits<T>::max()) {
    RaiseFault(FaultNumber::Overflow);
  }
  return static_cast<T>(whole);
}

template <class Real>
std::string RealText(Real value, int digits) {
  if (value == 0) return "0";  // negative zero too
  char buffer[64];
  const auto end =
      std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, digits).ptr;
  std::string text(buffer, end);
  for (char& c : text) {
    if (c == 'e') c = 'E';
  }
  return text;
}

std::string CurrencyText(Currency value) {
  const bool negative = value.scaled < 0;
  auto magnitude = static_cast<std::uint64_t>(value.scaled);
  if (negative) magnitude = 0 - magnitude;
  std::string text = std::to_string(magnitude / 10000);
  std::string fraction = std::to_string(10000 + magnitude % 10000).substr(1);
  fraction.erase(fraction.find_last_not_of('0') + 1);
  if (!fraction.empty()) text += "." + fraction;
  return negative ? "-" + text : text;
}

// The years that a date can have, 100 to 9999.
constexpr double kFirstDay = -657434;
constexpr double kLastDay = 2958465;

std::string TwoDigits(unsigned value) { return std::to_string(100 + value).substr(1); }

std::string DateText(Date value) {
  using std::chrono::days;
  constexpr std::chrono::sys_days kEpoch{std::chrono::year{1899} / 12 / 30};
  // Before the epoch the fraction still counts forwards from the day's midnight.
  double day = std::trunc(value.days);
  double seconds = std::round(std::fabs(value.days - day) * kSecondsPerDay);
  if (seconds == kSecondsPerDay) {
    day += 1;
    seconds = 0;
  }
  if (!(day >= kFirstDay && day <= kLastDay)) RaiseFault(FaultNumber::Overflow);
  const std::chrono::year_month_day date{kEpoch + days{static_cast<long>(day)}};
  const auto moment = static_cast<unsigned>(seconds);
  const std::string year = std::to_string(10000 + static_cast<int>(date.year())).substr(1);
  return year + "-" + TwoDigits(static_cast<unsigned>(date.month())) + "-" +
         TwoDigits(static_cast<unsigned>(date.day())) + " " + TwoDigits(moment / 3600) + ":" +
         TwoDigits(moment / 60 % 60) + ":" + TwoDigits(moment % 60);
}

struct AsText {
  String operator()(std::monostate) const { return {}; }
  String operator()(NullValue) const { RaiseFault(FaultNumber::InvalidUseOfNull); }
  String operator()(Integer v) const { return std::to_string(v); }
  String operator()(Long v) const { return std::to_string(v); }
  String operator()(float v) const { return RealText(v, 7); }
  String operator()(double v) const { return RealText(v, 15); }
  String operator()(Currency v) const { return CurrencyText(v); }
  String operator()(Date v) const { return DateText(v); }
  String operator()(const String& v) const { return v; }
  String operator()(bool v) const { return v ? u"True" : u"False"; }
  String operator()(const Decimal& v) const { return v.text(); }
  String operator()(Byte v) const { return std::to_string(v); }
  template <class Other>
  String operator()(const Other&) const {
    RaiseFault(FaultNumber::TypeMismatch);
  }
};

template <class T>
constexpr T kMost = std::numeric_limits<T>::max();

template <class Narrow, class Wide>
Variant Next(Narrow value) {
  if (value == kMost<Narrow>) return static_cast<Wide>(static_cast<Wide>(value) + 1);
  return static_cast<Narrow>(value + 1);
}

struct AddOne {
  Variant operator()(std::monostate) const { return Integer{1}; }
  Variant operator()(Integer v) const { return Next<Integer, Long>(v); }
  Variant operator()(Long v) const { return Next<Long, double>(v); }
  Variant operator()(float v) const { return v + 1; }
  Variant operator()(double v) const { return v + 1; }
  Variant operator()(Currency v) const {
    Currency next;
    if (__builtin_add_overflow(v.scaled, std::int64_t{10000}, &next.scaled)) {
      RaiseFault(FaultNumber::Overflow);
    }
    return next;
  }
  Variant operator()(Date v) const { return Date{v.days + 1}; }
  Variant operator()(bool v) const { return static_cast<Integer>(v ? 0 : 1); }
  Variant operator()(const Decimal& v) const {
    if (auto next = v.PlusOne()) return *std::move(next);
    return AsDouble{}(v) + 1;
  }
  Variant operator()(Byte v) const { return Next<Byte, Integer>(v); }
  template <class Other>
  Variant operator()(const Other& v) const {
    return AsDouble{}(v) + 1;
  }
};

}  // namespace

std::optional<double> ParseNumber(std::u16string_view text) {
  const std::u16string_view trimmed = TrimSpaces(text);
  if (trimmed.size() > 2 && trimmed[0] == u'&') {
    if (trimmed[1] == u'H' || trimmed[1] == u'h') return ParseRadix(trimmed.substr(2), 16);
    if (trimmed[1] == u'O' || trimmed[1] == u'o') return ParseRadix(trimmed.substr(2), 8);
  }
  const std::string ascii = ToUtf8(trimmed);
  if (ascii.empty() || HasForeignLetter(ascii)) return std::nullopt;
  const bool explicit_plus = ascii.front() == '+';  // from_chars knows no plus sign
  const char* const begin = ascii.data() + (explicit_plus ? 1 : 0);
  if (explicit_plus && (*begin == '-' || *begin == '+')) return std::nullopt;
  const char* const end = ascii.data() + ascii.size();
  double number = 0;
  const auto [stop, error] = std::from_chars(begin, end, number);
  const bool out_of_range = error == std::errc::result_out_of_range;
  if ((error != std::errc{} && !out_of_range) || stop != end) return std::nullopt;
  if (!out_of_range) return number;
  if (IsTooSmall(ascii)) return 0;
  RaiseFault(FaultNumber::Overflow);
}

double ToDouble(const Variant& value) { return value.Visit(AsDouble{}); }
Byte ToByte(const Variant& value) {
  // True is a pattern of ones; a byte keeps the eight that it has room for.
  if (const auto* truth = value.Get<bool>()) return *truth ? 0xFF : 0;
  return ToWhole<Byte>(value);
}
Integer ToInteger(const Variant& value) { return ToWhole<Integer>(value); }

Long ToLong(const Variant& value) {
  if (const auto* number = value.Get<Long>()) return *number;
  if (const auto* number = value.Get<Integer>()) return *number;
  return ToWhole<Long>(value);
}

bool ToBoolean(const Variant& value) {
  if (const auto* text = value.Get<String>()) {
    const std::string ascii = ToUtf8(TrimSpaces(text->view()));
    if (SameName(ascii, "True")) return true;
    if (SameName(ascii, "False")) return false;
  }
  return ToDouble(value) != 0;
}

String ToText(const Variant& value) { return value.Visit(AsText{}); }

void Increment(Variant& value) {
  // The two types that subscripts have in practice are stepped in place.
  if (auto* number = value.Get<Long>(); number != nullptr && *number < kMost<Long>) {
    ++*number;
  } else if (auto* small = value.Get<Integer>(); small != nullptr && *small < kMost<Integer>) {
    ++*small;
  } else {
    value = value.Visit(AddOne{});
  }
}

}  // namespace vandpublic
