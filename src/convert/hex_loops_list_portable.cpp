// The forms of the hexadecimal loops for processors without one of their own.
#include "convert/hex_loops_forms.h"

namespace vandpublic {

std::span<const HexLoops> AllHexLoops() { return {&kPlainHexLoops, 1}; }

}  // namespace vandpublic
