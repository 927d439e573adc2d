// The transpositions of bytes of the bit-sliced kernels, from instructions that interleave two
// vectors.
//
// Eight vectors hold blocks in a row, two in each 128-bit lane. A byte has the number of its
// vector, three bits v2 v1 v0, and its place in the lane, four bits: h, which block, and b2 b1 b0,
// which byte. Interleaving two vectors that differ in bit x of the number moves x to the low end
// of the place and the place's top bit to where x was:
//
//                            number       place
//   in                       v2 v1 v0     h  b2 b1 b0
//   interleave by bit 0      v2 v1 h      b2 b1 b0 v0
//   interleave by bit 1      v2 b2 h      b1 b0 v0 v1
//   interleave by bit 2      b1 b2 h      b0 v0 v1 v2
//   interleave by bit 0      b1 b2 b0     v0 v1 v2 h
//
// Each vector is now one byte of all blocks. Three more steps restore the order:
//
//   in, numbered properly    b2 b1 b0     v0 v1 v2 h
//   interleave by bit 2      v0 b1 b0     v1 v2 h  b2
//   interleave by bit 1      v0 v1 b0     v2 h  b2 b1
//   interleave by bit 0      v0 v1 v2     h  b2 b1 b0
#ifndef VANDPUBLIC_CRYPTO_KERNELS_UNPACK_BYTES_H
#define VANDPUBLIC_CRYPTO_KERNELS_UNPACK_BYTES_H

#include <cstddef>

namespace vandpublic::des {
namespace {

// Derived gives Low(a, b) and High(a, b): the lower and the upper halves of each lane interleaved.
template <class Derived, class V>
struct UnpackBytes {
  using Type = V;

  // Interleaves by bit `bit` of the vectors' numbers.
  [[gnu::always_inline]] static void Interleave(V (&v)[8], std::size_t bit) {
    for (std::size_t i = 0; i < 8; ++i) {
      if ((i & bit) != 0) continue;
      const V low = Derived::Low(v[i], v[i | bit]);
      v[i | bit] = Derived::High(v[i], v[i | bit]);
      v[i] = low;
    }
  }
  [[gnu::always_inline]] static void Swap(V& a, V& b) {
    const V kept = a;
    a = b;
    b = kept;
  }

  [[gnu::always_inline]] static void GatherBytes(V (&v)[8]) {
    Interleave(v, 1);
    Interleave(v, 2);
    Interleave(v, 4);
    Interleave(v, 1);
    Swap(v[2], v[4]);  // the number b1 b2 b0 becomes b2 b1 b0
    Swap(v[3], v[5]);
  }
  [[gnu::always_inline]] static void ScatterBytes(V (&v)[8]) {
    Interleave(v, 4);
    Interleave(v, 2);
    Interleave(v, 1);
    Swap(v[1], v[4]);  // the number v0 v1 v2 becomes v2 v1 v0
    Swap(v[3], v[6]);
  }
};

}  // namespace
}  // namespace vandpublic::des

#endif
