// One input through every kernel set that this processor can run; any difference ends the program.
//
// The input is a byte of flags (number of passes, directions, whether pass 3 shares the key of
// pass 1, in place or not, alignment), the keys, and the blocks.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "crypto/kernels/kernel_choice.h"

using namespace vandpublic;
using namespace vandpublic::des;

namespace {

constexpr std::size_t kHead = 2 + kMostPasses * kBlockSize;

std::vector<Byte> Cipher(const KernelSet& set, const PassList& passes, const Byte* source,
                         std::size_t blocks, bool in_place, std::size_t offset) {
  const std::size_t size = kBlockSize * blocks;
  std::vector<Byte> room(size + offset);
  Byte* const result = room.data() + offset;
  if (in_place && size != 0) std::memcpy(result, source, size);
  RunJob(set, CipherJob{passes, in_place ? result : source, result, blocks});
  return {room.begin() + static_cast<std::ptrdiff_t>(offset), room.end()};
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const Byte* data, std::size_t size) {
  if (size < kHead) return 0;
  const Byte flags = data[0];
  const std::size_t offset = data[1] % 64u;
  PassList passes{};
  passes.count = 1 + flags % 3;
  for (int p = 0; p < kMostPasses; ++p) {
    const int key = p == 2 && (flags & 4) != 0 ? 0 : p;
    passes.pass[p].key = data + 2 + kBlockSize * static_cast<std::size_t>(key);
    passes.pass[p].encipher = (flags >> (3 + p) & 1) != 0;
  }
  const bool in_place = (flags & 64) != 0;
  const std::size_t blocks = (size - kHead) / kBlockSize;

  const auto sets = AllKernelSets();
  const auto expected =
      Cipher(sets.back(), passes, data + kHead, blocks, false, 0);  // the plain tables
  for (const KernelSet& set : sets) {
    if (!set.usable()) continue;
    if (Cipher(set, passes, data + kHead, blocks, in_place, offset) == expected) continue;
    std::fprintf(stderr, "%s differs from %s\n", set.name, sets.back().name);
    std::abort();
  }
  return 0;
}
