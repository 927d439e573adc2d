// The tables of the table-driven kernel, made by the compiler from the standard's position texts.
#ifndef VANDPUBLIC_CRYPTO_KERNELS_TABLE_DATA_H
#define VANDPUBLIC_CRYPTO_KERNELS_TABLE_DATA_H

#include <cstdint>

namespace vandpublic::des {

// entry[b][value]: what byte b of an expanded half (expanded_half.h), the input of its S-box, adds
// to the other half, expanded: substitution, round permutation and expansion in one. 4 KB.
struct RoundTables {
  std::uint64_t entry[8][64];
};

// Words of a row of KeyTables that mean something, and its length.
inline constexpr int kKeyWords = 18;
inline constexpr int kKeyRowWords = 20;

// What the upper and the lower half of each key byte add to the key words of a pass, which are the
// rows of the 16 half bytes XORed. The lowest bit of a byte is parity and counts for nothing, so
// the lower half has eight rows only. 30 KB.
//
// Key words, with K(1) to K(16) the subkeys in the layout of an expanded half:
//   0         K(1), which enters the right half before round 1
//   r         K(r-1) XOR K(r+1), which enters a half in round r; K(0) and K(17) count as zero
//   17        K(16), which leaves the half that round 16 read
// Read backwards they are the words for deciphering.
struct KeyTables {
  alignas(32) std::uint64_t high[8][16][kKeyRowWords];
  alignas(32) std::uint64_t low[8][8][kKeyRowWords];
};

extern const RoundTables kRoundTables;
extern const KeyTables kKeyTables;
// The same for the byte-sliced kernels: byte t of a word is for S-box t, its bits placed as in
// byte_wiring.h.
extern const KeyTables kByteKeyTables;

}  // namespace vandpublic::des

#endif
