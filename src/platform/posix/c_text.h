// Texts that were C strings where they come from.
#ifndef VANDPUBLIC_PLATFORM_POSIX_C_TEXT_H
#define VANDPUBLIC_PLATFORM_POSIX_C_TEXT_H

#include <string_view>

namespace vandpublic {

// The platform's functions take texts that end at their first zero byte, so that is all they see.
inline std::string_view UpToZero(std::string_view text) noexcept {
  return text.substr(0, text.find('\0'));
}

}  // namespace vandpublic

#endif
