// Runs of hexadecimal text, fast: straight loops over blocks, in the widest form that the
// processor runs. What a digit is stands in hex_digits.h.
//
// The form is chosen once for the process. The environment variable VANDPUBLIC_HEX_LOOPS forces
// one by its name, "avx2" or "plain", for tests and measurements; a name that this build or this
// processor does not have is ignored.
#ifndef VANDPUBLIC_CONVERT_HEX_LOOPS_H
#define VANDPUBLIC_CONVERT_HEX_LOOPS_H

#include <cstddef>
#include <span>
#include <string_view>

#include "runtime/basic_types.h"

namespace vandpublic {

// One form of the loops. They keep nothing of what they have read, in memory or on the stack.
struct HexLoops {
  std::string_view name;
  bool (*usable)();  // by this processor
  void (*encode)(const Byte* bytes, std::size_t count, char16_t* digits);
  std::size_t (*decode)(const char16_t* digits, std::size_t pairs, Byte* bytes);
  bool (*are_digits)(const char16_t* text, std::size_t size);
  char16_t* (*dump)(const Byte* bytes, std::size_t count, std::size_t per_line, char16_t* text);
};

// All forms of this build, the widest first; the last one can run everywhere.
std::span<const HexLoops> AllHexLoops();
// The form of this process.
const HexLoops& ActiveHexLoops();

// Two upper-case digits for each byte.
inline void EncodeHex(std::span<const Byte> bytes, char16_t* digits) {
  ActiveHexLoops().encode(bytes.data(), bytes.size(), digits);
}

// Reads pairs of digits, an odd last one left out, up to the first pair that is not two upper-case
// digits. Returns the number of pairs read; nothing is written behind their bytes.
inline std::size_t DecodeHex(std::u16string_view digits, Byte* bytes) {
  return ActiveHexLoops().decode(digits.data(), digits.size() / 2, bytes);
}

// Whether all are digits, of either case.
inline bool AreHexDigits(std::u16string_view text) {
  return ActiveHexLoops().are_digits(text.data(), text.size());
}

// "0A 1B ": two digits and a blank for each byte, CR LF behind every full line of `per_line` (at
// least 1) bytes. Returns the end of what was written: 3 * bytes.size() units and the line ends.
inline char16_t* DumpHex(std::span<const Byte> bytes, std::size_t per_line, char16_t* text) {
  return ActiveHexLoops().dump(bytes.data(), bytes.size(), per_line, text);
}

}  // namespace vandpublic

#endif
