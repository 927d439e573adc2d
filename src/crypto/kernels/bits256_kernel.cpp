// The bit-sliced kernel in 256-bit vectors, for x86 with AVX2.
#include <immintrin.h>

#include "crypto/kernels/bit_slices.h"
#include "crypto/kernels/kernel_list.h"
#include "crypto/kernels/unpack_bytes.h"

namespace vandpublic::des {
namespace {

using Bits256 [[gnu::vector_size(32)]] = std::uint64_t;

struct Vector256 : UnpackBytes<Vector256, Bits256> {
  using Mask = std::uint64_t;
  static Bits256 Low(Bits256 a, Bits256 b) {
    return reinterpret_cast<Bits256>(
        _mm256_unpacklo_epi8(reinterpret_cast<__m256i>(a), reinterpret_cast<__m256i>(b)));
  }
  static Bits256 High(Bits256 a, Bits256 b) {
    return reinterpret_cast<Bits256>(
        _mm256_unpackhi_epi8(reinterpret_cast<__m256i>(a), reinterpret_cast<__m256i>(b)));
  }
};

}  // namespace

const Kernel kBits256Kernel = {"bits256", &SliceCipher<Vector256>, nullptr, 256};

}  // namespace vandpublic::des
