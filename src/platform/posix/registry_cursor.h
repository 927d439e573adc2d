// A place in the text of a registry file, and the problems met on the way.
#ifndef VANDPUBLIC_PLATFORM_POSIX_REGISTRY_CURSOR_H
#define VANDPUBLIC_PLATFORM_POSIX_REGISTRY_CURSOR_H

#include <cstddef>
#include <string_view>
#include <vector>

#include "platform/posix/registry_text.h"

namespace vandpublic {

// A copy remembers the place; assigning it goes back there.
class RegistryCursor {
 public:
  explicit RegistryCursor(std::u16string_view text) noexcept : text_(text) {}

  std::size_t line() const noexcept { return line_; }
  bool AtEnd() const noexcept { return place_ == text_.size(); }
  bool AtLineEnd() const noexcept { return AtEnd() || Peek() == u'\r' || Peek() == u'\n'; }
  // Nothing but blanks and a comment follows on this line.
  bool AtLastWord() noexcept;

  char16_t Peek() const noexcept { return text_[place_]; }  // not at the end
  char16_t Next() noexcept { return text_[place_++]; }      // not at a line end
  void SkipBlanks() noexcept;
  bool Take(char16_t c) noexcept;
  // The word in any case; it has ASCII letters only.
  bool TakeWord(std::u16string_view word) noexcept;
  // One hexadecimal digit's value; -1 when there is none.
  int TakeHexDigit() noexcept;
  bool AtHexDigit() const noexcept { return RegistryCursor(*this).TakeHexDigit() >= 0; }

  // The rest of the line without its end; the cursor is then at its end.
  std::u16string_view TakeRestOfLine() noexcept;
  // To the start of the next line, from wherever on this one.
  void SkipLine() noexcept;
  // The same, and past all lines of bytes that continue this one.
  void SkipContinuedLine() noexcept;
  // At a line end: goes past it and gives it, CR LF as the two that it is.
  std::u16string_view TakeLineEnd() noexcept;

 private:
  std::u16string_view text_;
  std::size_t place_ = 0;
  std::size_t line_ = 1;
};

// Where problems go: into a list up to a bound, or nowhere.
class RegistryProblems {
 public:
  explicit RegistryProblems(std::vector<RegistryDiagnostic>* list) noexcept : list_(list) {}
  void Add(std::size_t line, std::string_view message);

 private:
  static constexpr std::size_t kMost = 1000;

  std::vector<RegistryDiagnostic>* list_;
};

}  // namespace vandpublic

#endif
