// Where the Windows code pages differ from the C library's converters of the same name.
//
// Facts only, no code: code_page_tables.h builds the conversion tables from them.
#ifndef VANDPUBLIC_PLATFORM_POSIX_CODE_PAGE_FACTS_H
#define VANDPUBLIC_PLATFORM_POSIX_CODE_PAGE_FACTS_H

#include <cstdint>
#include <span>

namespace vandpublic {

struct ByteRange {
  std::uint8_t first;
  std::uint8_t last;  // included; below first: no byte at all
};

// The bytes first to last stand for unit, unit + 1, ...
struct SingleRun {
  std::uint8_t first;
  std::uint8_t last;
  char16_t unit;
};

// A block of double-byte codes. Taken by lead byte, then by trail byte (first through low, then
// through high), they stand for unit, unit + 1, ...
struct PairBlock {
  ByteRange leads;
  ByteRange low;
  ByteRange high;
  char16_t unit;
};

// Double-byte codes, lead byte in the upper half.
struct CodeRange {
  std::uint16_t first;
  std::uint16_t last;
};

struct CodePageFacts {
  int number;
  // The C library's name of the converter; null for a page that needs none: ASCII, the singles
  // below, and otherwise bytes that stand for the unit of the same value.
  const char* charset;
  std::span<const ByteRange> leads;       // the lead bytes; none in a single-byte page
  std::span<const SingleRun> singles;     // put over what the converter says
  std::span<const PairBlock> pairs;       // put over what the converter says
  std::span<const CodeRange> duplicates;  // not written while another code has the same unit
};

// The pages in ascending order: 874, 932, 936, 949, 950, 1250 to 1258.
std::span<const CodePageFacts> AllCodePageFacts() noexcept;

}  // namespace vandpublic

#endif
