// The table-driven kernel: one, two or four blocks side by side, and chains.
//
// One table look-up a field does substitution, round permutation and the next expansion at once. A
// round is x ^= T0[y0] ^ ... ^ T7[y7] with both halves expanded (expanded_half.h).
//
// Each half is kept XORed with the subkey of its next use, so that the subkey is no step on the
// way from one round to the next. Round r then changes x by the look-ups and by K(r-1) ^ K(r+1):
// the subkey that x carried in the round before goes, the one for the round after comes.
//
// Permutations gives the initial and the final permutation of a block (Enter and Leave of
// expanded_half.h, or as a processor does them faster). Included by one source for each set of
// processor features.
#ifndef VANDPUBLIC_CRYPTO_KERNELS_TABLE_KERNEL_H
#define VANDPUBLIC_CRYPTO_KERNELS_TABLE_KERNEL_H

#include <cstring>

#include "crypto/kernels/cipher_job.h"
#include "crypto/kernels/expanded_half.h"
#include "crypto/kernels/pass_schedules.h"
#include "crypto/kernels/table_data.h"

namespace vandpublic::des {
namespace {

// Four words XORed at once, by as many instructions as that takes.
using Words [[gnu::vector_size(32), gnu::may_alias]] = std::uint64_t;

// The subkeys of one pass, in the order of use when it enciphers and backwards when it deciphers,
// as the rows of KeyTables have them.
struct PassKeys {
  alignas(32) std::uint64_t word[kKeyRowWords];
  bool encipher;

  // XORs up the rows.
  void Fill(const Pass& pass) {
    constexpr std::size_t kCount = kKeyRowWords / 4;
    // Where they are wiped, not in a variable here that would stay on the stack.
    auto* const sum = reinterpret_cast<Words*>(word);
    for (std::size_t i = 0; i < kCount; ++i)
      sum[i] = Words{};
    for (int byte = 0; byte < 8; ++byte) {
      const Byte value = pass.key[byte];
      const auto* const high = reinterpret_cast<const Words*>(kKeyTables.high[byte][value >> 4]);
      const auto* const low = reinterpret_cast<const Words*>(kKeyTables.low[byte][value >> 1 & 7]);
      for (std::size_t i = 0; i < kCount; ++i)
        sum[i] ^= high[i] ^ low[i];
    }
    encipher = pass.encipher;
  }
};
using TableKeys = PassSchedules<PassKeys>;

inline std::uint64_t Look(std::uint64_t fields) {
  const auto at = [fields](int b) {
    return kRoundTables.entry[b][static_cast<Byte>(fields >> (8 * b))];
  };
  return ((at(0) ^ at(1)) ^ (at(2) ^ at(3))) ^ ((at(4) ^ at(5)) ^ (at(6) ^ at(7)));
}

// Blocks under work: expanded left and right halves.
template <std::size_t kCount>
struct Group {
  std::uint64_t x[kCount];
  std::uint64_t y[kCount];
};

// One pass without its permutations. x is left and y is right, before and after, so that passes
// follow each other directly.
template <std::size_t kCount>
inline void RunPass(const PassKeys& keys, Group<kCount>& g) {
  const std::ptrdiff_t step = keys.encipher ? 1 : -1;
  const std::uint64_t* key = keys.word + (keys.encipher ? 0 : kKeyWords - 1);
  for (std::size_t i = 0; i < kCount; ++i)
    g.y[i] ^= *key;
  key += step;
  for (int r = 0; r < 16; r += 2, key += 2 * step) {
    for (std::size_t i = 0; i < kCount; ++i)
      g.x[i] ^= key[0] ^ Look(g.y[i]);
    for (std::size_t i = 0; i < kCount; ++i)
      g.y[i] ^= key[step] ^ Look(g.x[i]);
  }
  for (std::size_t i = 0; i < kCount; ++i) {
    const std::uint64_t left = g.y[i];  // the halves stand swapped after the last round
    g.y[i] = g.x[i] ^ *key;
    g.x[i] = left;
  }
}

template <class Permutations, std::size_t kCount>
inline void CipherGroup(const TableKeys& keys, int passes, const Byte* source, Byte* result) {
  Group<kCount> group;
  for (std::size_t i = 0; i < kCount; ++i) {
    const Halves halves = Permutations::Enter(LoadBlock(source + 8 * i));
    group.x[i] = halves.left;
    group.y[i] = halves.right;
  }
  for (int p = 0; p < passes; ++p)
    RunPass(keys[p], group);
  for (std::size_t i = 0; i < kCount; ++i)
    StoreBlock(Permutations::Leave({group.x[i], group.y[i]}), result + 8 * i);
}

template <class Permutations>
void TableCipher(const CipherJob& job) {
  const TableKeys keys(job.passes);
  const int passes = job.passes.count;
  const Byte* source = job.source;
  Byte* result = job.result;
  std::size_t left = job.blocks;
  for (; left >= 4; left -= 4, source += 32, result += 32)
    CipherGroup<Permutations, 4>(keys, passes, source, result);
  if (left == 3) CipherGroup<Permutations, 3>(keys, passes, source, result);
  if (left == 2) CipherGroup<Permutations, 2>(keys, passes, source, result);
  if (left == 1) CipherGroup<Permutations, 1>(keys, passes, source, result);
}

struct PlainPermutations {
  static Halves Enter(std::uint64_t block) { return des::Enter(block); }
  static std::uint64_t Leave(Halves halves) { return des::Leave(halves); }
};

// The final permutation of a block and the initial one of the next cancel: the chain stays as
// expanded halves from block to block, and only the message goes through the permutation, off the
// chain's path.
template <class Permutations>
void TableChain(const ChainJob& job) {
  const TableKeys keys(job.passes);
  const Halves start = Permutations::Enter(LoadBlock(job.chain));
  Group<1> chain = {{start.left}, {start.right}};
  for (std::size_t block = 0; block < job.blocks; ++block) {
    const Halves message = Permutations::Enter(LoadBlock(job.message + 8 * block));
    chain.x[0] ^= message.left;
    chain.y[0] ^= message.right;
    RunPass(keys[0], chain);
  }
  for (int p = 1; p < job.passes.count; ++p)
    RunPass(keys[p], chain);
  StoreBlock(Permutations::Leave({chain.x[0], chain.y[0]}), job.chain);
}

}  // namespace
}  // namespace vandpublic::des

#endif
