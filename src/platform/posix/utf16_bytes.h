// UTF-16 as it stands in files: two bytes a unit, in either order, after a mark that tells which.
#ifndef VANDPUBLIC_PLATFORM_POSIX_UTF16_BYTES_H
#define VANDPUBLIC_PLATFORM_POSIX_UTF16_BYTES_H

#include <bit>
#include <optional>
#include <string>
#include <string_view>

namespace vandpublic {

inline constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

// The order that the first two bytes tell, FF FE or FE FF; nothing when they are no mark.
std::optional<std::endian> MarkedByteOrder(std::string_view bytes) noexcept;

// An odd last byte is ignored. The mark is no part of either text.
std::u16string Utf16FromBytes(std::string_view bytes, std::endian order);
std::string Utf16ToBytes(std::u16string_view text, std::endian order);

}  // namespace vandpublic

#endif
