// Character classes in brackets: read in the scripting dialect, written for the matcher.
#ifndef VANDPUBLIC_PLATFORM_POSIX_REGEXP_CLASS_H
#define VANDPUBLIC_PLATFORM_POSIX_REGEXP_CLASS_H

#include <cstddef>
#include <string>

#include "platform/posix/regexp_escape.h"
#include "platform/posix/regexp_reader.h"

namespace vandpublic {

// A piece of matcher text that stands for one character of the subject. A quantifier goes between
// the two parts.
struct RegExpItem {
  std::u16string text;
  std::u16string_view suffix;  // switches case folding on again, or is empty
};

// Reads a class whose "[" has just been taken, up to and with its "]". A "]" directly after "[" or
// "[^" is a member; so is a "-" that has a fixed class beside it or stands at either end. Raises
// 5019 when the "]" is missing, 5021 for a range that runs backwards, 5017 for a backslash at the
// end of the pattern.
//
// Adds to `folded_units` the number of characters whose other case the matcher has to look up.
RegExpItem ReadCharacterClass(RegExpReader& reader, RegExpFolding folding,
                              std::size_t& folded_units);

// One of the six fixed classes outside brackets.
RegExpItem MakeFixedClass(char16_t letter, RegExpFolding folding);

// Appends one character outside brackets.
void AppendCharacter(std::u16string& text, char16_t unit, RegExpFolding folding);

}  // namespace vandpublic

#endif
