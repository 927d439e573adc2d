// What the user gets to read: the texts of a message box, made safe to show.
#ifndef VANDPUBLIC_PLATFORM_POSIX_BOX_TEXT_H
#define VANDPUBLIC_PLATFORM_POSIX_BOX_TEXT_H

#include <cstddef>
#include <string>
#include <string_view>

namespace vandpublic {

// A longer text is cut here and ends in "...": no screen shows more, and the button must be seen.
inline constexpr std::size_t kLongestBoxText = 2000;  // 16-bit units

// The text in UTF-8 up to its first zero, each line end as one LF. Other control characters (which
// could steer a terminal) become "?"; tabs stay.
std::string BoxText(std::u16string_view text);

// The same on one line: line ends and tabs become spaces.
std::string BoxTitle(std::u16string_view title);

}  // namespace vandpublic

#endif
