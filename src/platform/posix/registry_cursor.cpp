// The small steps that the registry reader is made of.
#include "platform/posix/registry_cursor.h"

#include <string>

namespace vandpublic {
namespace {

constexpr bool IsBlank(char16_t c) noexcept { return c == u' ' || c == u'\t'; }

constexpr char16_t LowerAscii(char16_t c) noexcept {
  return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c - u'A' + u'a') : c;
}

}  // namespace

bool RegistryCursor::AtLastWord() noexcept {
  SkipBlanks();
  return AtLineEnd() || Peek() == u';';
}

void RegistryCursor::SkipBlanks() noexcept {
  while (!AtEnd() && IsBlank(Peek()))
    ++place_;
}

bool RegistryCursor::Take(char16_t c) noexcept {
  if (AtEnd() || Peek() != c) return false;
  ++place_;
  return true;
}

bool RegistryCursor::TakeWord(std::u16string_view word) noexcept {
  const std::u16string_view rest = text_.substr(place_);
  if (rest.size() < word.size()) return false;
  for (std::size_t i = 0; i < word.size(); ++i) {
    if (LowerAscii(rest[i]) != LowerAscii(word[i])) return false;
  }
  place_ += word.size();
  return true;
}

int RegistryCursor::TakeHexDigit() noexcept {
  if (AtEnd()) return -1;
  const char16_t c = LowerAscii(Peek());
  int value = -1;
  if (c >= u'0' && c <= u'9') value = c - u'0';
  if (c >= u'a' && c <= u'f') value = c - u'a' + 10;
  if (value >= 0) ++place_;
  return value;
}

std::u16string_view RegistryCursor::TakeRestOfLine() noexcept {
  const std::size_t begin = place_;
  while (!AtLineEnd())
    ++place_;
  return text_.substr(begin, place_ - begin);
}

std::u16string_view RegistryCursor::TakeLineEnd() noexcept {
  if (AtEnd()) return {};
  const std::size_t size = text_.substr(place_).starts_with(u"\r\n") ? 2 : 1;
  const std::u16string_view end = text_.substr(place_, size);
  place_ += size;
  ++line_;
  return end;
}

void RegistryCursor::SkipLine() noexcept {
  TakeRestOfLine();
  TakeLineEnd();
}

void RegistryCursor::SkipContinuedLine() noexcept {
  bool continued = true;
  while (continued) {
    std::u16string_view line = TakeRestOfLine();
    while (!line.empty() && IsBlank(line.back()))
      line.remove_suffix(1);
    TakeLineEnd();
    RegistryCursor next = *this;
    next.SkipBlanks();
    continued = line.ends_with(u'\\') && next.AtHexDigit();
  }
}

void RegistryProblems::Add(std::size_t line, std::string_view message) {
  if (list_ == nullptr || list_->size() > kMost) return;
  if (list_->size() == kMost) message = "more problems from here on are not listed";
  list_->push_back({line, std::string(message)});
}

}  // namespace vandpublic
