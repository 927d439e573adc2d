// Comparison of texts without regard to case, in any language.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_SQL_CASE_FOLDING_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_SQL_CASE_FOLDING_H

#include <string>
#include <string_view>

namespace vandpublic::ado {

// Unicode's simple case folding of one 16-bit unit; pairs of surrogates are left as they are.
char16_t FoldCase(char16_t unit) noexcept;
std::u16string FoldCase(std::u16string_view text);

// The capital letter that is folded to this unit, or the unit.
char16_t UpperCase(char16_t unit) noexcept;

// Below 0, 0 or above 0 as a comes before b, is equal but for case, or comes behind it. The order
// is that of the folded units, not a dictionary's.
int CompareFolded(std::u16string_view a, std::u16string_view b) noexcept;

}  // namespace vandpublic::ado

#endif
