// The quantifiers of the scripting dialect.
#ifndef VANDPUBLIC_PLATFORM_POSIX_REGEXP_REPEAT_H
#define VANDPUBLIC_PLATFORM_POSIX_REGEXP_REPEAT_H

#include <string>

#include "platform/posix/regexp_reader.h"

namespace vandpublic {

inline constexpr unsigned kRegExpRepeatLimit = 65535;  // the largest number in a quantifier
inline constexpr unsigned kRegExpRepeatWithoutEnd = ~0U;

struct RegExpRepeat {
  unsigned min = 1;
  unsigned max = 1;  // kRegExpRepeatWithoutEnd when there is none
  bool lazy = false;
};

// Reads *, +, ?, {n}, {n,} or {n,m}, and a ? after it, if one stands next. Anything else, such as
// "{" or "{,3}", is left where it is. Raises 5017 for a max below the min and for a number above
// the limit.
bool ReadRegExpRepeat(RegExpReader& reader, RegExpRepeat& repeat);

// Writes a quantifier for the matcher.
void AppendRegExpRepeat(std::u16string& text, const RegExpRepeat& repeat);

}  // namespace vandpublic

#endif
