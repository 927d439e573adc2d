// The choice of the loops.
#include "convert/hex_loops.h"

#include <algorithm>
#include <cstdlib>

namespace vandpublic {
namespace {

const HexLoops& ChooseLoops() {
  const auto all = AllHexLoops();
  if (const char* const forced = std::getenv("VANDPUBLIC_HEX_LOOPS")) {
    for (const HexLoops& loops : all) {
      if (loops.name == forced && loops.usable()) return loops;
    }
  }
  return *std::find_if(all.begin(), all.end(),
                       [](const HexLoops& loops) { return loops.usable(); });
}

}  // namespace

const HexLoops& ActiveHexLoops() {
  static const HexLoops& loops = ChooseLoops();
  return loops;
}

}  // namespace vandpublic
