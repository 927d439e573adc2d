// The replacement text of RegExpReplace.
#ifndef VANDPUBLIC_PLATFORM_POSIX_REGEXP_REPLACEMENT_H
#define VANDPUBLIC_PLATFORM_POSIX_REGEXP_REPLACEMENT_H

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace vandpublic {

// One match. Group g (0 is the whole match) lies from bounds[2 * g] up to bounds[2 * g + 1]; both
// are std::u16string_view::npos for a group that took no part.
struct RegExpMatch {
  std::u16string_view source;
  std::span<const std::size_t> bounds;

  std::size_t GroupCount() const noexcept { return bounds.size() / 2 - 1; }
  std::u16string_view Group(std::size_t number) const noexcept;
  std::u16string_view Before() const noexcept { return source.substr(0, bounds[0]); }
  std::u16string_view After() const noexcept { return source.substr(bounds[1]); }
};

// Appends the replacement for one match to the result:
//
//   $1 to $99   the group, nothing if it took no part; $12 with fewer than 12 groups is $1 and "2"
//   $&          the match
//   $` and $'   what stands before and after the match
//   $$          "$"
//
// Any other "$" is itself, and so are $0, $00 and the numbers of groups that do not exist.
// Raises 7 when the result would become longer than `limit` units.
void AppendReplacement(std::u16string& result, std::u16string_view replacement,
                       const RegExpMatch& match, std::size_t limit);

// Appends a piece of text under the same limit.
void AppendWithin(std::u16string& result, std::u16string_view piece, std::size_t limit);

}  // namespace vandpublic

#endif
