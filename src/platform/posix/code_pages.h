// The Windows code pages on a system that has none of its own.
#ifndef VANDPUBLIC_PLATFORM_POSIX_CODE_PAGES_H
#define VANDPUBLIC_PLATFORM_POSIX_CODE_PAGES_H

#include <memory>
#include <string_view>

#include "platform/code_page.h"

namespace vandpublic {

// The page with this number: 874, 932, 936, 949, 950 or 1250 to 1258; null for any other number.
// It converts exactly as Windows does with best fit switched off, private-use characters included.
//
// The first call for a page builds its tables, a millisecond or two; later calls share them. Safe
// in any thread. Raises AutomationError 429, naming the converter, where the C library cannot
// convert the page's charset; 1252 needs no converter.
//
//   std::string bytes = FindCodePage(1252)->Encode(u"caf\u00e9");  // 63 61 66 E9
std::shared_ptr<const CodePage> FindCodePage(int number);

// The page for the charset of a locale, as nl_langinfo(CODESET) names it: 936 for "GBK", 950 for
// "BIG5", 1251 for "CP1251". 1252 for every other name, "UTF-8" among them. Case does not count.
int CodePageOfCharset(std::string_view charset) noexcept;

// CodePageOfCharset for the locale that LC_ALL, LC_CTYPE or LANG names; 1252 when that locale is
// not installed. Neither uses nor changes the locale that the host has set.
int LocaleCodePage();

}  // namespace vandpublic

#endif
