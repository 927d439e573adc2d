// UTF-8 by hand: the component's texts hold any 16-bit units, which the platform's converters
// refuse or read by the locale.
#include "runtime/utf8.h"

#include <cstddef>

namespace vandpublic {
namespace {

constexpr char16_t kReplacement = 0xFFFD;

constexpr bool IsHighSurrogate(char16_t unit) { return (unit & 0xFC00) == 0xD800; }
constexpr bool IsLowSurrogate(char16_t unit) { return (unit & 0xFC00) == 0xDC00; }

void AppendCodePoint(std::string& out, char32_t c) {
  const auto push = [&out](char32_t byte) { out.push_back(static_cast<char>(byte)); };
  if (c < 0x80) {
    push(c);
  } else if (c < 0x800) {
    push(0xC0 | (c >> 6));
    push(0x80 | (c & 0x3F));
  } else if (c < 0x10000) {
    push(0xE0 | (c >> 12));
    push(0x80 | ((c >> 6) & 0x3F));
    push(0x80 | (c & 0x3F));
  } else {
    push(0xF0 | (c >> 18));
    push(0x80 | ((c >> 12) & 0x3F));
    push(0x80 | ((c >> 6) & 0x3F));
    push(0x80 | (c & 0x3F));
  }
}

struct Decoded {
  char32_t code_point;
  std::size_t length;  // 0: malformed
};

Decoded DecodeOne(std::string_view text) {
  const auto byte = [&text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned lead = byte(0);
  std::size_t length = 0;
  char32_t c = 0;
  if (lead >= 0xC2 && lead <= 0xDF) {
    length = 2;
    c = lead & 0x1F;
  } else if ((lead & 0xF0) == 0xE0) {
    length = 3;
    c = lead & 0x0F;
  } else if (lead >= 0xF0 && lead <= 0xF4) {
    length = 4;
    c = lead & 0x07;
  }
  if (length == 0 || text.size() < length) return {0, 0};
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xC0) != 0x80) return {0, 0};
    c = (c << 6) | (byte(i) & 0x3Fu);
  }
  const bool overlong = (length == 3 && c < 0x800) || (length == 4 && c < 0x10000);
  const bool surrogate = c >= 0xD800 && c <= 0xDFFF;
  if (overlong || surrogate || c > 0x10FFFF) return {0, 0};
  return {c, length};
}

}  // namespace

std::string ToUtf8(std::u16string_view text) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    char32_t c = text[i];
    if (IsHighSurrogate(text[i]) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
      c = 0x10000 + ((c & 0x3FF) << 10) + (text[++i] & 0x3FFu);
    } else if (IsHighSurrogate(text[i]) || IsLowSurrogate(text[i])) {
      c = kReplacement;
    }
    AppendCodePoint(out, c);
  }
  return out;
}

std::u16string FromUtf8(std::string_view text) {
  std::u16string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) {
    const auto lead = static_cast<unsigned char>(text[i]);
    if (lead < 0x80) {
      out.push_back(lead);
      ++i;
      continue;
    }
    const Decoded decoded = DecodeOne(text.substr(i));
    if (decoded.length == 0) {
      out.push_back(kReplacement);
      ++i;
      continue;
    }
    i += decoded.length;
    if (decoded.code_point < 0x10000) {
      out.push_back(static_cast<char16_t>(decoded.code_point));
    } else {
      const char32_t offset = decoded.code_point - 0x10000;
      out.push_back(static_cast<char16_t>(0xD800 + (offset >> 10)));
      out.push_back(static_cast<char16_t>(0xDC00 + (offset & 0x3FF)));
    }
  }
  return out;
}

bool IsWellFormed(std::u16string_view text) noexcept {
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (IsLowSurrogate(text[i])) return false;
    if (!IsHighSurrogate(text[i])) continue;
    if (++i == text.size() || !IsLowSurrogate(text[i])) return false;
  }
  return true;
}

}  // namespace vandpublic
