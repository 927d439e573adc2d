// The backslash escapes of the scripting dialect that stand for one character or for one of the
// six fixed classes.
#ifndef VANDPUBLIC_PLATFORM_POSIX_REGEXP_ESCAPE_H
#define VANDPUBLIC_PLATFORM_POSIX_REGEXP_ESCAPE_H

#include <string>

#include "platform/posix/regexp_reader.h"

namespace vandpublic {

// How a pattern treats case, and with it how its pieces have to be written for the matcher.
enum class RegExpFolding {
  None,   // case matters
  Ascii,  // case is ignored, and nothing in the pattern can stand for a character above 127
  Full,   // case is ignored by the simple folding of all 16-bit characters
};

// True for d, D, w, W, s and S.
bool IsFixedClassLetter(char16_t letter) noexcept;

// Reads the rest of an escape whose backslash has just been taken, and returns the character it
// stands for: \f \n \r \t \v, \cX, \xHH, \uHHHH, an octal number of up to three digits (at most
// 377), or any other unit as itself. An incomplete \c, \x or \u is the plain letter. Raises 5017
// when nothing follows the backslash. Does not know \b, the fixed classes and back references.
char16_t ReadCharacterEscape(RegExpReader& reader);

// Appends a unit so that it stands for itself outside brackets (Literal) or inside them (Member).
void AppendLiteral(std::u16string& text, char16_t unit);
void AppendMember(std::u16string& text, char16_t unit);

// The members of a fixed class, as text to stand inside brackets. They are ASCII sets, or the
// complements of such, in every folding.
std::u16string_view FixedClassMembers(char16_t letter, RegExpFolding folding) noexcept;

}  // namespace vandpublic

#endif
