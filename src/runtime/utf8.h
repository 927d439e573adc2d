// UTF-8 to and from the 16-bit code units that every text of the interface is made of.
#ifndef VANDPUBLIC_RUNTIME_UTF8_H
#define VANDPUBLIC_RUNTIME_UTF8_H

#include <string>
#include <string_view>

#include "basic_types.h"

namespace vandpublic {

// An unpaired surrogate becomes U+FFFD.
VANDPUBLIC_API std::string ToUtf8(std::u16string_view text);

// Each malformed byte becomes one U+FFFD; overlong forms and encoded surrogates are malformed.
VANDPUBLIC_API std::u16string FromUtf8(std::string_view text);

// True when every surrogate in the text stands in a pair, so that ToUtf8 loses nothing.
VANDPUBLIC_API bool IsWellFormed(std::u16string_view text) noexcept;

}  // namespace vandpublic

#endif
