// Matching with one point to go back to: behind the last "%" seen. A later "%" makes all earlier
// ones settled, so nothing else need be remembered.
#include "platform/posix/ado/sql/like_match.h"

#include <optional>

#include "platform/posix/ado/sql/case_folding.h"

namespace vandpublic::ado {
namespace {

class LikeMatcher {
 public:
  LikeMatcher(std::u16string_view pattern, LikeOptions options)
      : pattern_(pattern), options_(options) {}

  bool Matches(std::u16string_view text) const {
    std::size_t at = 0;
    std::size_t unit = 0;
    std::optional<std::size_t> behind_run;
    std::size_t run_end = 0;
    while (unit < text.size()) {
      if (at < pattern_.size() && pattern_[at] == u'%') {
        behind_run = ++at;
        run_end = unit;
        continue;
      }
      std::size_t next = at;
      if (at < pattern_.size() && MatchesUnit(next, text[unit])) {
        at = next;
        ++unit;
        continue;
      }
      if (!behind_run) return false;
      at = *behind_run;
      unit = ++run_end;
    }
    while (at < pattern_.size() && pattern_[at] == u'%')
      ++at;
    return at == pattern_.size();
  }

 private:
  // Whether the element at the position fits the unit; the position goes behind the element.
  bool MatchesUnit(std::size_t& at, char16_t unit) const {
    const char16_t element = pattern_[at++];
    if (options_.escape != 0 && element == options_.escape && at < pattern_.size()) {
      return Same(pattern_[at++], unit);
    }
    if (element == u'_') return true;
    const std::size_t close =
        options_.sets && element == u'[' ? pattern_.find(u']', at + 1) : std::u16string_view::npos;
    if (close == std::u16string_view::npos) return Same(element, unit);
    const bool inside = InSet(pattern_.substr(at, close - at), unit);
    at = close + 1;
    return inside;
  }

  bool InSet(std::u16string_view set, char16_t unit) const {
    const bool negated = set.starts_with(u'^') || set.starts_with(u'!');
    if (negated) set.remove_prefix(1);
    const char16_t wanted = Folded(unit);
    bool found = false;
    for (std::size_t i = 0; i < set.size() && !found; ++i) {
      if (i + 2 < set.size() && set[i + 1] == u'-') {
        found = Folded(set[i]) <= wanted && wanted <= Folded(set[i + 2]);
        i += 2;
      } else {
        found = Folded(set[i]) == wanted;
      }
    }
    return found != negated;
  }

  char16_t Folded(char16_t unit) const { return options_.ignore_case ? FoldCase(unit) : unit; }
  bool Same(char16_t a, char16_t b) const { return Folded(a) == Folded(b); }

  std::u16string_view pattern_;
  LikeOptions options_;
};

}  // namespace

bool LikeMatches(std::u16string_view pattern, std::u16string_view text, LikeOptions options) {
  return LikeMatcher(pattern, options).Matches(text);
}

}  // namespace vandpublic::ado
