// The forms of the hexadecimal loops, each in a source of its own.
#ifndef VANDPUBLIC_CONVERT_HEX_LOOPS_FORMS_H
#define VANDPUBLIC_CONVERT_HEX_LOOPS_FORMS_H

#include <algorithm>

#include "convert/hex_loops.h"

namespace vandpublic {

// Plain loops, which compilers make vector code of.
extern const HexLoops kPlainHexLoops;
// For x86 with AVX2.
extern const HexLoops kAvx2HexLoops;

// A dump line by line; each form has a DumpLine of its own, which writes no line end.
template <void (*DumpLine)(const Byte* bytes, std::size_t count, char16_t* text)>
char16_t* DumpLines(const Byte* bytes, std::size_t count, std::size_t per_line, char16_t* text) {
  while (count > 0) {
    const std::size_t line = std::min(per_line, count);
    DumpLine(bytes, line, text);
    text += 3 * line;
    bytes += line;
    count -= line;
    if (line < per_line) break;
    *text++ = u'\r';
    *text++ = u'\n';
  }
  return text;
}

}  // namespace vandpublic

#endif
