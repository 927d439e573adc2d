// Done here and not by the system's conversions, which depend on the user's decimal separator.
#include "platform/windows/automation/decimal_values.h"

#include <array>
#include <cstdint>

#include "runtime/errors.h"

namespace vandpublic {
namespace {

// Lowest first.
using Limbs = std::array<std::uint32_t, 3>;

void MultiplyBy10AndAdd(Limbs& limbs, std::uint32_t digit) noexcept {
  std::uint64_t carry = digit;
  for (std::uint32_t& limb : limbs) {
    carry += std::uint64_t{limb} * 10;
    limb = static_cast<std::uint32_t>(carry);
    carry >>= 32;
  }
}

// Divides; the remainder.
std::uint32_t DivideBy10(Limbs& limbs) noexcept {
  std::uint64_t rest = 0;
  for (std::size_t i = limbs.size(); i-- > 0;) {
    rest = rest << 32 | limbs[i];
    limbs[i] = static_cast<std::uint32_t>(rest / 10);
    rest %= 10;
  }
  return static_cast<std::uint32_t>(rest);
}

}  // namespace

DECIMAL ToDecimalValue(const Decimal& number) noexcept {
  Limbs limbs{};
  BYTE scale = 0;
  bool behind_point = false;
  for (const char c : number.text()) {
    if (c == '.') behind_point = true;
    if (c < '0' || c > '9') continue;
    MultiplyBy10AndAdd(limbs, static_cast<std::uint32_t>(c - '0'));
    if (behind_point) ++scale;
  }
  DECIMAL value{};
  value.scale = scale;
  value.sign = number.text().starts_with('-') ? BYTE{DECIMAL_NEG} : BYTE{0};
  value.Hi32 = limbs[2];
  value.Lo64 = std::uint64_t{limbs[1]} << 32 | limbs[0];
  return value;
}

Decimal FromDecimalValue(const DECIMAL& value) {
  Limbs limbs = {static_cast<std::uint32_t>(value.Lo64),
                 static_cast<std::uint32_t>(value.Lo64 >> 32),
                 static_cast<std::uint32_t>(value.Hi32)};
  std::string digits;  // last first
  while (limbs != Limbs{} || digits.size() <= value.scale)
    digits += static_cast<char>('0' + DivideBy10(limbs));
  if (value.scale > 0) digits.insert(value.scale, ".");
  if ((value.sign & DECIMAL_NEG) != 0) digits += '-';
  const auto number = Decimal::Parse(std::string(digits.rbegin(), digits.rend()));
  if (!number) RaiseFault(FaultNumber::Overflow);
  return *number;
}

}  // namespace vandpublic
