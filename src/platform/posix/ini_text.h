// Initialisation files as text: sections of key=value lines, read and edited as the platform's
// profile functions do it. Nothing here touches a file.
//
// Reading. Section and key are compared without case, blanks and tabs around them do not count.
// The first section of the name is the only one searched, the first line of the key in it the only
// one used; a line without "=" counts as such a line, and hides later ones. CR LF, a lone CR or a
// lone LF ends a line; the last line needs no end. A line that begins with ";" is a comment, and
// nothing else is: the value of "K=V ; x" is "V ; x". A section's name runs to the last "]" of its
// line; what follows is ignored. Lines before the first section belong to none.
//
// Encodings. A file is bytes in the ANSI page, unless it begins with the mark of UTF-16 (either
// byte order) or of UTF-8. An edited file keeps its encoding. An odd last byte of a UTF-16 file is
// half a character: it is ignored, and an edit drops it.
#ifndef VANDPUBLIC_PLATFORM_POSIX_INI_TEXT_H
#define VANDPUBLIC_PLATFORM_POSIX_INI_TEXT_H

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/code_page.h"

namespace vandpublic {

inline constexpr std::size_t kIniResultLimit = 255;  // bytes

// One key of one section, in the ANSI page.
struct IniKey {
  std::string_view section;
  std::string_view key;
};

// The value in the ANSI page, without blanks and tabs around it, and then without one pair of
// matching single or double quotes around it; blanks inside those stay. "K=" has the empty value.
// A zero byte ends the value. Without section, key or "=": the default without its last blanks,
// its quotes kept. Either is cut to 255 bytes, be it in the middle of a character.
//
//   ReadIniText("[S]\nK = 'a '\n", {"s", "k"}, "", page) == "a "
std::string ReadIniText(std::string_view file, const IniKey& key, std::string_view default_value,
                        const CodePage& page);

// The file with the key set. Every other line stays as it is, its end included.
//
// The key's line keeps its place, its indentation and the name as it is spelled there; what
// follows the name becomes "=", the value, CR LF. A new key goes past the section's last line that
// is not blank, a new section to the end of the file; a last line without an end gets CR LF first.
//
// The value loses blanks, tabs and line ends in front, none behind. Everything else is written as
// given, so some texts do not come back: a value with a line end inside comes back up to it, its
// rest makes lines of its own; a value in quotes comes back without them; of a key with "=" inside
// the part before it is the name, and a key that begins with ";" is a comment, so each save of
// either adds a line.
std::string EditIniText(std::string_view file, const IniKey& key, std::string_view value,
                        const CodePage& page);

}  // namespace vandpublic

#endif
