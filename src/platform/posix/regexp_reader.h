// A cursor over the units of a regular expression.
#ifndef VANDPUBLIC_PLATFORM_POSIX_REGEXP_READER_H
#define VANDPUBLIC_PLATFORM_POSIX_REGEXP_READER_H

#include <cstddef>
#include <string_view>

namespace vandpublic {

// Views the pattern, which must outlive it. Take and Peek(0) need a unit that is there: ask AtEnd
// first.
class RegExpReader {
 public:
  explicit RegExpReader(std::u16string_view pattern) noexcept : pattern_(pattern) {}

  bool AtEnd() const noexcept { return position_ == pattern_.size(); }
  char16_t Take() noexcept { return pattern_[position_++]; }

  // Whether the unit `ahead` places further on is there and is `unit`.
  bool IsAt(std::size_t ahead, char16_t unit) const noexcept {
    return ahead < pattern_.size() - position_ && pattern_[position_ + ahead] == unit;
  }

  // Steps over the next unit if it is `unit`.
  bool TakeIf(char16_t unit) noexcept {
    const bool found = IsAt(0, unit);
    if (found) ++position_;
    return found;
  }

  // What has not been read yet.
  std::u16string_view Rest() const noexcept { return pattern_.substr(position_); }
  void Skip(std::size_t count) noexcept { position_ += count; }

 private:
  std::u16string_view pattern_;
  std::size_t position_ = 0;
};

}  // namespace vandpublic

#endif
