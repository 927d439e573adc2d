// The byte-sliced kernel in 512-bit vectors, for x86 with AVX-512 VBMI and GFNI.
#include "crypto/kernels/byte_slices.h"
#include "crypto/kernels/kernel_list.h"
#include "crypto/kernels/unpack_bytes.h"

namespace vandpublic::des {
namespace {

struct ByteVector512 : UnpackBytes<ByteVector512, __m512i> {
  static __m512i Low(__m512i a, __m512i b) { return _mm512_unpacklo_epi8(a, b); }
  static __m512i High(__m512i a, __m512i b) { return _mm512_unpackhi_epi8(a, b); }

  // Blocks 8 * i to 8 * i + 7, those that are present; zeros for the others.
  static __m512i LoadBlocks(const Byte* source, std::size_t i, std::uint64_t present) {
    return _mm512_maskz_loadu_epi64(Part(i, present), source + sizeof(__m512i) * i);
  }
  static void StoreBlocks(Byte* result, std::size_t i, std::uint64_t present, __m512i v) {
    _mm512_mask_storeu_epi64(result + sizeof(__m512i) * i, Part(i, present), v);
  }

  static __m512i Repeat8(unsigned byte) { return _mm512_set1_epi8(static_cast<char>(byte)); }
  static __m512i Repeat32(std::uint32_t word) { return _mm512_set1_epi32(static_cast<int>(word)); }
  static __m512i Repeat64(std::uint64_t word) {
    return _mm512_set1_epi64(static_cast<long long>(word));
  }
  static __m512i Product(__m512i bytes, __m512i matrix) {
    return _mm512_gf2p8affine_epi64_epi8(bytes, matrix, 0);
  }
  // Each bit from a where the mask has one, else from b.
  static __m512i Choose(__m512i mask, __m512i a, __m512i b) {
    return _mm512_ternarylogic_epi64(mask, a, b, 0xCA);
  }
  static __m512i Sum(__m512i a, __m512i b, __m512i c) {
    return _mm512_ternarylogic_epi64(a, b, c, 0x96);
  }
  static __m512i LookUp(const Byte (&table)[64], __m512i index) {
    return _mm512_permutexvar_epi8(index, _mm512_loadu_si512(table));
  }

 private:
  static __mmask8 Part(std::size_t i, std::uint64_t present) {
    return static_cast<__mmask8>(present >> (8 * i));
  }
};

}  // namespace

const Kernel kBytes512Kernel = {"bytes512", &ByteCipher<ByteVector512>, nullptr, 64};

}  // namespace vandpublic::des
