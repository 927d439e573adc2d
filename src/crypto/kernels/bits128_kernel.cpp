// The bit-sliced kernel in 128-bit vectors, for x86 with SSE2.
#include <emmintrin.h>

#include "crypto/kernels/bit_slices.h"
#include "crypto/kernels/kernel_list.h"
#include "crypto/kernels/unpack_bytes.h"

namespace vandpublic::des {
namespace {

using Bits128 [[gnu::vector_size(16)]] = std::uint64_t;

struct Vector128 : UnpackBytes<Vector128, Bits128> {
  static Bits128 Low(Bits128 a, Bits128 b) {
    return reinterpret_cast<Bits128>(
        _mm_unpacklo_epi8(reinterpret_cast<__m128i>(a), reinterpret_cast<__m128i>(b)));
  }
  static Bits128 High(Bits128 a, Bits128 b) {
    return reinterpret_cast<Bits128>(
        _mm_unpackhi_epi8(reinterpret_cast<__m128i>(a), reinterpret_cast<__m128i>(b)));
  }
};

}  // namespace

const Kernel kBits128Kernel = {"bits128", &SliceCipher<Vector128>, nullptr, 128};

}  // namespace vandpublic::des
