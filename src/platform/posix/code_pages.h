// The Windows code pages on a system that has none of its own, and the one that the locale asks
// for.
//
// The first call of FindCodePage for a page builds its tables, a millisecond or two; later calls
// share them. It raises AutomationError 429, naming the converter, where the C library cannot
// convert the page's charset; 1252 needs no converter.
#ifndef VANDPUBLIC_PLATFORM_POSIX_CODE_PAGES_H
#define VANDPUBLIC_PLATFORM_POSIX_CODE_PAGES_H

#include <string_view>

#include "platform/code_page.h"

namespace vandpublic {

// The page for the charset of a locale, as nl_langinfo(CODESET) names it: 936 for "GBK", 950 for
// "BIG5", 1251 for "CP1251". 1252 for every other name, "UTF-8" among them. Case does not count.
int CodePageOfCharset(std::string_view charset) noexcept;

// CodePageOfCharset for the locale that LC_ALL, LC_CTYPE or LANG names; 1252 when that locale is
// not installed. Neither uses nor changes the locale that the host has set.
int LocaleCodePage();

}  // namespace vandpublic

#endif
