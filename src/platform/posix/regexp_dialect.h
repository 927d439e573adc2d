// Translates a regular expression of the scripting dialect into an equivalent pattern for PCRE2's
// 16-bit library.
#ifndef VANDPUBLIC_PLATFORM_POSIX_REGEXP_DIALECT_H
#define VANDPUBLIC_PLATFORM_POSIX_REGEXP_DIALECT_H

#include <string>
#include <string_view>

#include "platform/posix/regexp_escape.h"

namespace vandpublic {

// Group numbers are those of the source. The pattern is to be compiled without UTF mode, with
// line feed as the only line break, back references to unset groups matching the empty text, and
// case folding as told. Callouts without a number stand in it where a matcher that loses itself
// is sure to come by; a pattern that cannot lose itself has none.
struct TranslatedRegExp {
  std::u16string text;
  RegExpFolding folding;
};

// Groups may be nested this deep. The library compiles by recursion, about 700 bytes of stack for
// each level.
inline constexpr std::size_t kRegExpNestingLimit = 200;

// Raises the dialect's faults 5017 to 5021 at the first place that is wrong, 5017 also for nesting
// and quantifiers above the limits.
//
//   TranslateRegExp(u"^.*$", false, false).text == u"(?C)^.*\\z"
TranslatedRegExp TranslateRegExp(std::u16string_view pattern, bool ignore_case, bool multiline);

}  // namespace vandpublic

#endif
