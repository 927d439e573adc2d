// Bytes as hexadecimal text, two digits each.
#ifndef VANDPUBLIC_CLI_HEX_TEXT_H
#define VANDPUBLIC_CLI_HEX_TEXT_H

#include <charconv>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/basic_types.h"

namespace vandpublic {

// Upper case: "0AFF".
inline std::string ToHexText(std::span<const Byte> bytes) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string text;
  text.reserve(2 * bytes.size());
  for (const Byte byte : bytes) {
    text.push_back(kDigits[byte >> 4]);
    text.push_back(kDigits[byte & 15]);
  }
  return text;
}

// Either case. Nothing for an odd count of digits or any other character.
inline std::optional<std::vector<Byte>> FromHexText(std::string_view text) {
  if (text.size() % 2 != 0) return std::nullopt;
  std::vector<Byte> bytes(text.size() / 2);
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const char* const digits = text.data() + 2 * i;
    if (std::from_chars(digits, digits + 2, bytes[i], 16).ptr != digits + 2) return std::nullopt;
  }
  return bytes;
}

}  // namespace vandpublic

#endif
