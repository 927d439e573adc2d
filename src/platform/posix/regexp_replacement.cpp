// Expands the replacement text of RegExpReplace.
#include "platform/posix/regexp_replacement.h"

#include "runtime/errors.h"

namespace vandpublic {
namespace {

// What a "$" and the units after it stand for.
struct Reference {
  std::size_t length;  // units it takes, the "$" included; 1 when the "$" is itself
  std::u16string_view text;
};

constexpr std::size_t DigitAt(std::u16string_view text, std::size_t index) noexcept {
  if (index >= text.size() || text[index] < u'0' || text[index] > u'9') return 10;
  return static_cast<std::size_t>(text[index] - u'0');
}

Reference ReadGroupReference(std::u16string_view text, const RegExpMatch& match) noexcept {
  const std::size_t first = DigitAt(text, 1);
  if (first > 9) return {1, text.substr(0, 1)};
  const std::size_t second = DigitAt(text, 2);
  const std::size_t both = first * 10 + second;
  if (second <= 9 && both > 0 && both <= match.GroupCount()) return {3, match.Group(both)};
  if (first > 0 && first <= match.GroupCount()) return {2, match.Group(first)};
  return {1, text.substr(0, 1)};
}

// The text starts with a "$".
Reference ReadReference(std::u16string_view text, const RegExpMatch& match) noexcept {
  switch (text.size() > 1 ? text[1] : u'\0') {
    case u'$':
      return {2, text.substr(0, 1)};
    case u'&':
      return {2, match.Group(0)};
    case u'`':
      return {2, match.Before()};
    case u'\'':
      return {2, match.After()};
    default:
      return ReadGroupReference(text, match);
  }
}

}  // namespace

std::u16string_view RegExpMatch::Group(std::size_t number) const noexcept {
  const std::size_t start = bounds[2 * number];
  if (start == std::u16string_view::npos) return {};
  return source.substr(start, bounds[2 * number + 1] - start);
}

void AppendWithin(std::u16string& result, std::u16string_view piece, std::size_t limit) {
  if (piece.size() > limit - result.size()) RaiseFault(FaultNumber::OutOfMemory);
  result += piece;
}

void AppendReplacement(std::u16string& result, std::u16string_view replacement,
                       const RegExpMatch& match, std::size_t limit) {
  while (true) {
    const std::size_t dollar = replacement.find(u'$');
    AppendWithin(result, replacement.substr(0, dollar), limit);
    if (dollar == std::u16string_view::npos) return;
    replacement.remove_prefix(dollar);
    const Reference reference = ReadReference(replacement, match);
    AppendWithin(result, reference.text, limit);
    replacement.remove_prefix(reference.length);
  }
}

}  // namespace vandpublic
