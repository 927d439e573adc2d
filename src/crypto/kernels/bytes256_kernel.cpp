// The byte-sliced kernel in 256-bit vectors, for x86 with AVX-512 VBMI and GFNI.
#include "crypto/kernels/byte_slices.h"
#include "crypto/kernels/kernel_list.h"
#include "crypto/kernels/unpack_bytes.h"

namespace vandpublic::des {
namespace {

struct ByteVector256 : UnpackBytes<ByteVector256, __m256i> {
  static __m256i Low(__m256i a, __m256i b) { return _mm256_unpacklo_epi8(a, b); }
  static __m256i High(__m256i a, __m256i b) { return _mm256_unpackhi_epi8(a, b); }

  // Blocks 4 * i to 4 * i + 3, those that are present; zeros for the others.
  static __m256i LoadBlocks(const Byte* source, std::size_t i, std::uint64_t present) {
    return _mm256_maskz_loadu_epi64(Part(i, present), source + sizeof(__m256i) * i);
  }
  static void StoreBlocks(Byte* result, std::size_t i, std::uint64_t present, __m256i v) {
    _mm256_mask_storeu_epi64(result + sizeof(__m256i) * i, Part(i, present), v);
  }

  static __m256i Repeat8(unsigned byte) { return _mm256_set1_epi8(static_cast<char>(byte)); }
  static __m256i Repeat32(std::uint32_t word) { return _mm256_set1_epi32(static_cast<int>(word)); }
  static __m256i Repeat64(std::uint64_t word) {
    return _mm256_set1_epi64x(static_cast<long long>(word));
  }
  static __m256i Product(__m256i bytes, __m256i matrix) {
    return _mm256_gf2p8affine_epi64_epi8(bytes, matrix, 0);
  }
  // Each bit from a where the mask has one, else from b.
  static __m256i Choose(__m256i mask, __m256i a, __m256i b) {
    return _mm256_ternarylogic_epi64(mask, a, b, 0xCA);
  }
  static __m256i Sum(__m256i a, __m256i b, __m256i c) {
    return _mm256_ternarylogic_epi64(a, b, c, 0x96);
  }
  static __m256i LookUp(const Byte (&table)[64], __m256i index) {
    __m256i half[2];
    std::memcpy(half, table, sizeof half);
    return _mm256_permutex2var_epi8(half[0], index, half[1]);
  }

 private:
  static __mmask8 Part(std::size_t i, std::uint64_t present) {
    return static_cast<__mmask8>(present >> (4 * i) & 15);
  }
};

}  // namespace

const Kernel kBytes256Kernel = {"bytes256", &ByteCipher<ByteVector256>, nullptr, 32};

}  // namespace vandpublic::des
