// The 128-bit vectors of the bit-sliced kernels for x86.
#ifndef VANDPUBLIC_CRYPTO_KERNELS_BITS128_H
#define VANDPUBLIC_CRYPTO_KERNELS_BITS128_H

#include <emmintrin.h>

#include <cstdint>

#include "crypto/kernels/unpack_bytes.h"

namespace vandpublic::des {
namespace {

using Bits128 [[gnu::vector_size(16)]] = std::uint64_t;

struct Vector128 : UnpackBytes<Vector128, Bits128> {
  using Mask = Bits128;  // to repeat a word takes two instructions here
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
}  // namespace vandpublic::des

#endif
