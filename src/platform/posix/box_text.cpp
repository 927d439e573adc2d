// Makes the texts of a message box safe to show.
#include "platform/posix/box_text.h"

#include <algorithm>

#include "runtime/utf8.h"

namespace vandpublic {
namespace {

bool IsControl(char16_t unit) noexcept { return unit < 0x20 || (unit >= 0x7F && unit <= 0x9F); }

bool IsHighSurrogate(char16_t unit) noexcept { return unit >= 0xD800 && unit <= 0xDBFF; }

// Up to the first zero, as the platform's own boxes take a text, and not too long.
std::u16string Shorten(std::u16string_view text) {
  text = text.substr(0, text.find(u'\0'));
  if (text.size() <= kLongestBoxText) return std::u16string(text);
  std::size_t length = kLongestBoxText;
  if (IsHighSurrogate(text[length - 1])) --length;
  return std::u16string(text.substr(0, length)) + u"...";
}

}  // namespace

std::string BoxText(std::u16string_view text) {
  const std::u16string source = Shorten(text);
  std::u16string shown;
  for (std::size_t i = 0; i < source.size(); ++i) {
    const char16_t unit = source[i];
    if (unit == u'\r') {
      if (i + 1 == source.size() || source[i + 1] != u'\n') shown.push_back(u'\n');
    } else if (unit == u'\n' || unit == u'\t' || !IsControl(unit)) {
      shown.push_back(unit);
    } else {
      shown.push_back(u'?');
    }
  }
  return ToUtf8(shown);
}

std::string BoxTitle(std::u16string_view title) {
  std::string line = BoxText(title);
  std::replace_if(
      line.begin(), line.end(), [](char c) { return c == '\n' || c == '\t'; }, ' ');
  return line;
}

}  // namespace vandpublic
