// Single hexadecimal digits. Two readers differ on purpose: numbers accept both cases, the
// byte-array conversions upper case only.
#ifndef VANDPUBLIC_CONVERT_HEX_DIGITS_H
#define VANDPUBLIC_CONVERT_HEX_DIGITS_H

#include <string_view>

#include "runtime/basic_types.h"

namespace vandpublic {

inline constexpr std::u16string_view kHexDigits = u"0123456789ABCDEF";

// 0 to 15 for "0" to "9", "A" to "F" and "a" to "f", -1 for everything else.
constexpr int HexDigitValue(char16_t c) {
  if (c >= u'0' && c <= u'9') return c - u'0';
  if (c >= u'A' && c <= u'F') return c - u'A' + 10;
  if (c >= u'a' && c <= u'f') return c - u'a' + 10;
  return -1;
}

// The same for upper case only.
constexpr int UpperHexDigitValue(char16_t c) {
  return c >= u'a' && c <= u'f' ? -1 : HexDigitValue(c);
}

// Writes two digits, most significant first.
constexpr void WriteHexByte(Byte value, char16_t* out) {
  out[0] = kHexDigits[value >> 4];
  out[1] = kHexDigits[value & 15];
}

}  // namespace vandpublic

#endif
