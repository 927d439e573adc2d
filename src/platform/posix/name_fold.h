// Names as settings stores compare them: without case.
#ifndef VANDPUBLIC_PLATFORM_POSIX_NAME_FOLD_H
#define VANDPUBLIC_PLATFORM_POSIX_NAME_FOLD_H

#include <string>
#include <string_view>

namespace vandpublic {

// The upper case of each 16-bit unit by itself (Unicode's simple mapping), whatever the locale.
// Surrogates stay, and no unit outside ASCII becomes an ASCII letter: a dotless i is not an "I".
//
//   FoldName(u"caf\u00e9") == u"CAF\u00c9"
std::u16string FoldName(std::u16string_view name);

// FoldName(a) == FoldName(b), without the copies.
bool SameName(std::u16string_view a, std::u16string_view b) noexcept;

}  // namespace vandpublic

#endif
