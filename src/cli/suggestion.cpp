// Edit distance over the few names there are.
#include "cli/suggestion.h"

#include <algorithm>
#include <cstddef>

namespace vandpublic {
namespace {

// No name of ours is longer, so a longer one is not a slip of the finger.
constexpr std::size_t kLongestName = 40;

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

// The optimal string alignment distance, with three rows of the table at a time.
std::size_t Distance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> before(b.size() + 1);
  std::vector<std::size_t> last(b.size() + 1);
  std::vector<std::size_t> row(b.size() + 1);
  for (std::size_t j = 0; j <= b.size(); ++j)
    row[j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    before.swap(last);
    last.swap(row);
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t other = Lower(a[i - 1]) == Lower(b[j - 1]) ? 0 : 1;
      row[j] = std::min({last[j] + 1, row[j - 1] + 1, last[j - 1] + other});
      const bool exchanged = i > 1 && j > 1 && Lower(a[i - 1]) == Lower(b[j - 2]) &&
                             Lower(a[i - 2]) == Lower(b[j - 1]);
      if (exchanged) row[j] = std::min(row[j], before[j - 2] + 1);
    }
  }
  return row[b.size()];
}

}  // namespace

std::optional<std::string_view> NearestName(std::string_view name,
                                            const std::vector<std::string_view>& candidates) {
  if (name.size() > kLongestName) return std::nullopt;
  std::optional<std::string_view> nearest;
  std::size_t fewest = name.size() / 3 + 1;  // one more than is allowed
  for (const std::string_view candidate : candidates) {
    const std::size_t edits = Distance(name, candidate);
    if (edits >= fewest) continue;
    fewest = edits;
    nearest = candidate;
  }
  return nearest;
}

std::string DidYouMean(std::string_view name, const std::vector<std::string_view>& candidates) {
  const auto nearest = NearestName(name, candidates);
  return nearest ? "; did you mean '" + std::string(*nearest) + "'?" : "";
}

}  // namespace vandpublic
