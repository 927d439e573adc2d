// Automation's conversions between value types. A conversion raises 13 "Type mismatch" for what
// is no number, 94 "Invalid use of Null" for the null value, 6 "Overflow" past the target's range.
#ifndef VANDPUBLIC_RUNTIME_COERCE_H
#define VANDPUBLIC_RUNTIME_COERCE_H

#include <optional>
#include <string_view>

#include "variant.h"

namespace vandpublic {

// Numbers: fractions are rounded, halves to even (2.5 gives 2, 3.5 gives 4). True is -1, as a byte
// 255. Empty is 0. Text is read as ParseNumber reads it.
VANDPUBLIC_API Byte ToByte(const Variant& value);
VANDPUBLIC_API Integer ToInteger(const Variant& value);
VANDPUBLIC_API Long ToLong(const Variant& value);
VANDPUBLIC_API double ToDouble(const Variant& value);

// Any number but 0 is True; text may also be "True" or "False" in any case.
VANDPUBLIC_API bool ToBoolean(const Variant& value);

// Numbers in plain decimal (up to 15 digits, 7 for a Single, then with an exponent: "1E+20"),
// "True" and "False", dates as "2024-03-05 14:07:09" (fault 6 outside the years 100 to 9999). Empty
// is the empty string.
VANDPUBLIC_API String ToText(const Variant& value);

// Blanks around it, a sign, decimal digits with at most one point, an exponent; or "&H" and
// hexadecimal digits, "&O" and octal ones. The decimal separator is always ".". Nothing for other
// texts; fault 6 past the range of a double, 0 for what is smaller than the smallest one.
VANDPUBLIC_API std::optional<double> ParseNumber(std::u16string_view text);

// Adds one, keeping the type; past that type's range in the next wider one (byte, 16-bit, 32-bit or
// decimal, double). Empty becomes a 16-bit 1, numeric text a double, a truth value a 16-bit number.
// The value stays where it raises.
VANDPUBLIC_API void Increment(Variant& value);

}  // namespace vandpublic

#endif
