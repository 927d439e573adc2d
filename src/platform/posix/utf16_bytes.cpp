// Copies whole texts, and swaps the halves where the file's order is not the machine's.
#include "platform/posix/utf16_bytes.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace vandpublic {
namespace {

void SwapHalves(std::u16string& text) noexcept {
  std::transform(text.begin(), text.end(), text.begin(), [](char16_t unit) {
    return static_cast<char16_t>(((unit & 0xFF) << 8) | (unit >> 8));
  });
}

}  // namespace

std::optional<std::endian> MarkedByteOrder(std::string_view bytes) noexcept {
  if (bytes.starts_with("\xFF\xFE")) return std::endian::little;
  if (bytes.starts_with("\xFE\xFF")) return std::endian::big;
  return std::nullopt;
}

std::u16string Utf16FromBytes(std::string_view bytes, std::endian order) {
  std::u16string text(bytes.size() / 2, u'\0');
  if (!text.empty()) std::memcpy(text.data(), bytes.data(), text.size() * 2);
  if (order != std::endian::native) SwapHalves(text);
  return text;
}

std::string Utf16ToBytes(std::u16string_view text, std::endian order) {
  std::u16string units(text);
  if (order != std::endian::native) SwapHalves(units);
  std::string bytes(units.size() * 2, '\0');
  if (!bytes.empty()) std::memcpy(bytes.data(), units.data(), bytes.size());
  return bytes;
}

}  // namespace vandpublic
