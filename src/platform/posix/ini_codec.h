// The encodings that an initialisation file can have, each with the way from and to the ANSI page.
#ifndef VANDPUBLIC_PLATFORM_POSIX_INI_CODEC_H
#define VANDPUBLIC_PLATFORM_POSIX_INI_CODEC_H

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "platform/code_page.h"
#include "runtime/utf8.h"

namespace vandpublic {

// A codec has a unit type, three conversions, and LastBracket: the place of the last "]" of a line,
// npos without one.

// A file without a mark: bytes in the ANSI page, which are never converted, so that also those
// that mean nothing there come through as they are.
class AnsiCodec {
 public:
  using Char = char;

  explicit AnsiCodec(const CodePage& page) : page_(page) {}

  std::string FromAnsi(std::string_view text) const { return std::string(text); }
  std::string ToAnsi(std::string_view text) const { return std::string(text); }
  std::u16string ToUtf16(std::string_view text) const { return page_.Decode(text); }

  std::size_t LastBracket(std::string_view line) const {
    const std::size_t last = line.rfind(']');
    const bool plain = last == std::string_view::npos || last == 0 || IsAscii(line[last - 1]);
    return plain ? last : LastBracketCharacter(line);
  }

 private:
  static constexpr bool IsAscii(char c) noexcept { return static_cast<unsigned char>(c) < 0x80; }

  // In a double-byte page the byte of "]" can be the second half of a character, which only shows
  // from the start of the line.
  std::size_t LastBracketCharacter(std::string_view line) const {
    std::size_t last = std::string_view::npos;
    for (std::size_t i = 0; i < line.size(); ++i) {
      if (line[i] == ']') last = i;
      if (IsLead(line[i])) ++i;
    }
    return last;
  }

  // A lead byte makes one character of itself and whatever follows.
  bool IsLead(char c) const {
    if (IsAscii(c)) return false;
    std::optional<bool>& known = lead_[static_cast<unsigned char>(c)];
    if (!known) known = page_.Decode(std::string{c, 'A'}).size() == 1;
    return *known;
  }

  const CodePage& page_;
  mutable std::array<std::optional<bool>, 256> lead_;
};

class Utf8Codec {
 public:
  using Char = char;

  explicit Utf8Codec(const CodePage& page) : page_(page) {}

  std::string FromAnsi(std::string_view text) const { return ToUtf8(page_.Decode(text)); }
  std::string ToAnsi(std::string_view text) const { return page_.Encode(FromUtf8(text)); }
  std::u16string ToUtf16(std::string_view text) const { return FromUtf8(text); }
  std::size_t LastBracket(std::string_view line) const { return line.rfind(']'); }

 private:
  const CodePage& page_;
};

class Utf16Codec {
 public:
  using Char = char16_t;

  explicit Utf16Codec(const CodePage& page) : page_(page) {}

  std::u16string FromAnsi(std::string_view text) const { return page_.Decode(text); }
  std::string ToAnsi(std::u16string_view text) const { return page_.Encode(text); }
  std::u16string ToUtf16(std::u16string_view text) const { return std::u16string(text); }
  std::size_t LastBracket(std::u16string_view line) const { return line.rfind(u']'); }

 private:
  const CodePage& page_;
};

}  // namespace vandpublic

#endif
