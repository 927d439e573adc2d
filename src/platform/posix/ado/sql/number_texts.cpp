// Numbers in texts, character by character: a memo may be far longer than the number in it.
#include "platform/posix/ado/sql/number_texts.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "runtime/coerce.h"

namespace vandpublic::ado {
namespace {

std::size_t SkipDigits(std::u16string_view text, std::size_t at, std::u16string_view digits) {
  return std::min(text.find_first_not_of(digits, at), text.size());
}

// How much of the text, which has no blanks in front, is a number.
std::size_t NumberLength(std::u16string_view text) {
  constexpr std::u16string_view kDecimal = u"0123456789";
  if (text.starts_with(u"&H") || text.starts_with(u"&h")) {
    return SkipDigits(text, 2, u"0123456789abcdefABCDEF");
  }
  if (text.starts_with(u"&O") || text.starts_with(u"&o")) return SkipDigits(text, 2, u"01234567");
  std::size_t end = SkipDigits(text, text.find_first_not_of(u"+-") == 1 ? 1 : 0, kDecimal);
  if (end < text.size() && text[end] == u'.') end = SkipDigits(text, end + 1, kDecimal);
  if (end == text.size() || (text[end] != u'e' && text[end] != u'E')) return end;
  const std::size_t exponent = std::min(text.find_first_not_of(u"+-", end + 1), text.size());
  const std::size_t behind = SkipDigits(text, exponent, kDecimal);
  return exponent <= end + 2 && behind > exponent ? behind : end;
}

}  // namespace

double LeadingNumber(std::u16string_view text) {
  return ParseNumber(text.substr(0, NumberLength(text))).value_or(0);
}

std::string FixedText(double number, std::size_t width, std::size_t decimals) {
  constexpr std::size_t kMostDecimals = 18;
  std::array<char, 400> text{};
  for (std::size_t places = std::min(decimals, kMostDecimals);; --places) {
    const double scale = std::pow(10.0, static_cast<double>(places));
    const double rounded = std::round(number * scale) / scale;
    // Adding nothing takes the sign of a negative zero away.
    const double shown = (std::isfinite(rounded) ? rounded : number) + 0.0;
    const auto end = std::to_chars(text.data(), text.data() + text.size(), shown,
                                   std::chars_format::fixed, static_cast<int>(places))
                         .ptr;
    const auto size = static_cast<std::size_t>(end - text.data());
    if (size <= width || places == 0) return {text.data(), size};
  }
}

}  // namespace vandpublic::ado
