// The table-driven kernel for x86 with AVX2 and GFNI: mirroring a block is one matrix product.
#include <immintrin.h>

#include "crypto/kernels/kernel_list.h"
#include "crypto/kernels/table_kernel.h"

namespace vandpublic::des {
namespace {

// A word in the lower half of a register, and back; without the instructions that 32-bit programs
// lack.
using WordPair [[gnu::vector_size(16)]] = std::uint64_t;
__m128i InRegister(std::uint64_t word) { return reinterpret_cast<__m128i>(WordPair{word, 0}); }
std::uint64_t Word(__m128i value) { return reinterpret_cast<WordPair>(value)[0]; }

// Bit j of byte i of the product is bit p of byte 7 - j of the matrix, where byte i of the operand
// is 1 << p.
struct MatrixPermutations {
  // Bits 6, 4, 2, 0 of the bytes make the left half, 7, 5, 3, 1 the right one, the last byte first.
  // Turning the bytes round makes the last byte's bit the highest.
  static Halves Enter(std::uint64_t block) {
    const __m128i planes = InRegister(0x8020080240100401);
    const __m128i matrix = InRegister(__builtin_bswap64(block));
    const std::uint64_t halves = Word(_mm_gf2p8affine_epi64_epi8(planes, matrix, 0));
    return {Expand(static_cast<std::uint32_t>(halves)),
            Expand(static_cast<std::uint32_t>(halves >> 32))};
  }

  // The way back: the halves' bytes in the order of the bits they hold, 7 to 0, are the matrix.
  static std::uint64_t Leave(Halves halves) {
    const std::uint64_t together =
        std::uint64_t{Contract(halves.right)} << 32 | Contract(halves.left);
    const __m128i order = InRegister(0x0004010502060307);
    const __m128i matrix = _mm_shuffle_epi8(InRegister(together), order);
    const __m128i bits = InRegister(0x8040201008040201);
    return Word(_mm_gf2p8affine_epi64_epi8(bits, matrix, 0));
  }
};

}  // namespace

const Kernel kTableGfniKernel = {"table-gfni", &TableCipher<MatrixPermutations>,
                                 &TableChain<MatrixPermutations>, 1};

}  // namespace vandpublic::des
