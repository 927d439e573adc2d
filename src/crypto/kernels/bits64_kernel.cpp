// The bit-sliced kernel in 64-bit words, for any processor.
#include "crypto/kernels/bit_slices.h"
#include "crypto/kernels/kernel_list.h"

namespace vandpublic::des {
namespace {

struct Vector64 {
  using Type = std::uint64_t;
  using Mask = std::uint64_t;

  // Mirrors the 8 x 8 square of bytes that eight words are: its own inverse.
  static void GatherBytes(Type (&v)[8]) {
    ExchangeAll<4>(v, 32, 0x00000000FFFFFFFF);
    ExchangeAll<2>(v, 16, 0x0000FFFF0000FFFF);
    ExchangeAll<1>(v, 8, 0x00FF00FF00FF00FF);
  }
  static void ScatterBytes(Type (&v)[8]) { GatherBytes(v); }
};

}  // namespace

const Kernel kBits64Kernel = {"bits64", &SliceCipher<Vector64>, nullptr, 64};

}  // namespace vandpublic::des
