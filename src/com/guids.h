// The component's ids as COM has them, from their texts in members/identity.h.
#ifndef VANDPUBLIC_COM_GUIDS_H
#define VANDPUBLIC_COM_GUIDS_H

#include <windows.h>

#include <cstddef>
#include <string_view>

#include "members/identity.h"

namespace vandpublic {

constexpr unsigned HexDigit(char digit) {
  return static_cast<unsigned>(digit <= '9' ? digit - '0' : digit - 'A' + 10);
}

constexpr unsigned long HexNumberAt(std::string_view text, std::size_t start, std::size_t digits) {
  unsigned long number = 0;
  for (const char digit : text.substr(start, digits))
    number = number * 16 + HexDigit(digit);
  return number;
}

// From "28F9C989-9C3B-498B-9D24-9EFB7797B1B7".
constexpr GUID ParseGuid(std::string_view text) {
  GUID id{};
  id.Data1 = HexNumberAt(text, 0, 8);
  id.Data2 = static_cast<unsigned short>(HexNumberAt(text, 9, 4));
  id.Data3 = static_cast<unsigned short>(HexNumberAt(text, 14, 4));
  for (std::size_t i = 0; i < 8; ++i) {
    const std::size_t start = i < 2 ? 19 + 2 * i : 20 + 2 * i;
    id.Data4[i] = static_cast<unsigned char>(HexNumberAt(text, start, 2));
  }
  return id;
}

inline constexpr GUID kLibraryGuid = ParseGuid(kLibraryId);
inline constexpr GUID kInterfaceGuid = ParseGuid(kInterfaceId);
inline constexpr GUID kClassGuid = ParseGuid(kClassId);

}  // namespace vandpublic

#endif
