// Numbers at the beginning of texts, and numbers with a fixed count of places as texts.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_SQL_NUMBER_TEXTS_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_SQL_NUMBER_TEXTS_H

#include <cstddef>
#include <string>
#include <string_view>

namespace vandpublic::ado {

// The number at the beginning of a text that has no blanks in front: decimal, with a point and an
// exponent, or behind "&H" and "&O". 0 where there is none; fault 6 past the range of a double.
//
//   LeadingNumber(u"12.5 kg")  // 12.5
double LeadingNumber(std::u16string_view text);

// The number with that many places behind the point, at most 18, halves rounded away from zero. A
// width that has no room for all of them gets fewer; the text is longer than the width where the
// whole part alone is.
//
//   FixedText(3.14159, 6, 2)  // "3.14"
//   FixedText(123.456, 5, 2)  // "123.5"
std::string FixedText(double number, std::size_t width, std::size_t decimals);

}  // namespace vandpublic::ado

#endif
