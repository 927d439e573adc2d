// Decimal numbers, digit by digit.
#include <algorithm>

#include "runtime/variant.h"

namespace vandpublic {
namespace {

constexpr std::size_t kMostDigits = 28;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// The digits of a whole number, one more.
std::string StepUp(std::string digits) {
  for (std::size_t i = digits.size(); i-- > 0;) {
    if (digits[i] != '9') {
      ++digits[i];
      return digits;
    }
    digits[i] = '0';
  }
  return "1" + digits;
}

// One less, for what is not 0.
std::string StepDown(std::string digits) {
  std::size_t i = digits.find_last_not_of('0');
  --digits[i];
  while (++i < digits.size())
    digits[i] = '9';
  return digits;
}

// One minus a fraction that is not 0.
std::string OneMinus(std::string fraction) {
  for (char& digit : fraction)
    digit = static_cast<char>('9' - digit + '0');
  return StepUp(std::move(fraction));
}

}  // namespace

std::optional<Decimal> Decimal::Parse(std::string_view text) {
  std::string_view rest = text;
  const bool minus = rest.starts_with('-');
  if (minus || rest.starts_with('+')) rest.remove_prefix(1);
  const std::size_t point = rest.find('.');
  std::string_view whole = rest.substr(0, point);
  const std::string_view fraction =
      point == std::string_view::npos ? std::string_view() : rest.substr(point + 1);
  if (!std::all_of(whole.begin(), whole.end(), IsDigit)) return std::nullopt;
  if (!std::all_of(fraction.begin(), fraction.end(), IsDigit)) return std::nullopt;
  if (whole.empty() && fraction.empty()) return std::nullopt;

  whole.remove_prefix(std::min(whole.find_first_not_of('0'), whole.size()));
  if (whole.size() + fraction.size() > kMostDigits) return std::nullopt;
  const bool zero = whole.empty() && fraction.find_first_not_of('0') == std::string_view::npos;
  std::string normal(minus && !zero ? "-" : "");
  normal += whole.empty() ? "0" : whole;
  if (!fraction.empty()) (normal += ".") += fraction;
  return Decimal(std::move(normal));
}

std::optional<Decimal> Decimal::PlusOne() const {
  const bool minus = text_.front() == '-';
  const std::size_t start = minus ? 1 : 0;
  const std::size_t point = std::min(text_.find('.'), text_.size());
  const std::string whole = text_.substr(start, point - start);
  const std::string fraction = text_.substr(point);  // with its point, or empty
  if (!minus) return Parse(StepUp(whole) + fraction);
  if (whole != "0") return Parse("-" + StepDown(whole) + fraction);
  return Parse("." + OneMinus(fraction.substr(1)));
}

}  // namespace vandpublic
