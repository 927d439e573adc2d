// String's conversions between units, storage bytes and UTF-8.
#include "runtime/string_value.h"

#include "runtime/utf8.h"

namespace vandpublic {

String::String(std::string_view utf8) : units_(FromUtf8(utf8)) {}

String String::Absent() {
  String text;
  text.absent_ = true;
  return text;
}

String String::FromBytes(std::string_view bytes) {
  const auto byte = [&bytes](std::size_t i) { return static_cast<Byte>(bytes[i]); };
  String text;
  text.units_.resize(bytes.size() / 2);
  for (std::size_t i = 0; i < text.units_.size(); ++i) {
    text.units_[i] = static_cast<char16_t>(byte(2 * i) | (byte(2 * i + 1) << 8));
  }
  if (bytes.size() % 2 != 0) text.half_unit_ = byte(bytes.size() - 1);
  return text;
}

Byte String::ByteAt(std::size_t index) const noexcept {
  const std::size_t unit = index / 2;
  if (unit == units_.size()) return half_unit_.value_or(0);
  return static_cast<Byte>(index % 2 == 0 ? units_[unit] : units_[unit] >> 8);
}

std::string String::ToBytes() const {
  std::string bytes(ByteLength(), '\0');
  for (std::size_t i = 0; i < units_.size(); ++i) {
    bytes[2 * i] = static_cast<char>(units_[i]);
    bytes[2 * i + 1] = static_cast<char>(units_[i] >> 8);
  }
  if (half_unit_) bytes.back() = static_cast<char>(*half_unit_);
  return bytes;
}

std::string String::ToUtf8() const { return vandpublic::ToUtf8(units_); }

std::u16string_view TrimSpaces(std::u16string_view text) noexcept {
  const std::size_t first = text.find_first_not_of(u' ');
  if (first == std::u16string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(u' ') - first + 1);
}

}  // namespace vandpublic
