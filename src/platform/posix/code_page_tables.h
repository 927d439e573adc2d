// The conversion tables of one code page, built from the C library's converter and the corrections
// of code_page_facts.h.
#ifndef VANDPUBLIC_PLATFORM_POSIX_CODE_PAGE_TABLES_H
#define VANDPUBLIC_PLATFORM_POSIX_CODE_PAGE_TABLES_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/posix/code_page_facts.h"

namespace vandpublic {

inline constexpr std::size_t kAllUnits = 0x10000;

// What stands for a unit outside the page and for bytes without a character.
inline constexpr char kReplacement = '?';

struct CodePageTables {
  // By byte. kLeadMark tells a lead byte; U+FFFF is in no page.
  static constexpr char16_t kLeadMark = 0xFFFF;
  std::array<char16_t, 256> singles{};

  // By lead byte * 256 + trail byte; empty in a single-byte page.
  std::vector<char16_t> pairs;

  // By unit: the byte, or lead byte * 256 + trail byte. All of the 65,536.
  std::vector<std::uint16_t> codes;
};

// Takes a millisecond or two for a double-byte page. Raises AutomationError 429, naming the
// converter, when the C library has it not (its converter modules are a separate package on some
// systems).
CodePageTables BuildCodePageTables(const CodePageFacts& facts);

}  // namespace vandpublic

#endif
