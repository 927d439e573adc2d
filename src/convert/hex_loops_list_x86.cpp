// The forms of the hexadecimal loops for x86 processors.
#include "convert/hex_loops_forms.h"

namespace vandpublic {

std::span<const HexLoops> AllHexLoops() {
  static const HexLoops all[] = {kAvx2HexLoops, kPlainHexLoops};
  return all;
}

}  // namespace vandpublic
