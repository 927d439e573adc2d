// The nearest name to a mistyped one.
#ifndef VANDPUBLIC_CLI_SUGGESTION_H
#define VANDPUBLIC_CLI_SUGGESTION_H

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vandpublic {

// The candidate with the fewest single-letter edits (a letter too many, too few, another, or two
// exchanged), case aside; nothing when more than a third of the letters would have to change.
std::optional<std::string_view> NearestName(std::string_view name,
                                            const std::vector<std::string_view>& candidates);

// "; did you mean 'IsHex'?", or nothing.
std::string DidYouMean(std::string_view name, const std::vector<std::string_view>& candidates);

}  // namespace vandpublic

#endif
