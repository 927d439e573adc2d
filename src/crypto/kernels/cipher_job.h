// What a cipher kernel is asked to do, and what a kernel is.
//
// Kernel sources may be compiled for processors with more instructions than the one that runs the
// program. So they call nothing that the linker could share with other sources: no inline function
// or template of a header with external linkage, only WipeMemory, memcpy and what they define
// themselves in a namespace without a name.
#ifndef VANDPUBLIC_CRYPTO_KERNELS_CIPHER_JOB_H
#define VANDPUBLIC_CRYPTO_KERNELS_CIPHER_JOB_H

#include <cstddef>

#include "runtime/basic_types.h"

namespace vandpublic::des {

inline constexpr std::size_t kBlockSize = 8;
inline constexpr int kMostPasses = 3;

// One run of DES over a block: key bytes 0 to 7, and the direction.
struct Pass {
  const Byte* key;
  bool encipher;
};

// The passes that each block goes through. Two of them with the same key pointer and direction
// share one key schedule.
struct PassList {
  Pass pass[kMostPasses];
  int count;  // 1 to 3
};

// Electronic code book: each block of the source by itself, into the same place of the result.
// Source and result are the same memory or do not overlap; the keys may stand in the result.
struct CipherJob {
  PassList passes;
  const Byte* source;
  Byte* result;
  std::size_t blocks;
};

// A chain: chain = DES(chain XOR block) under pass 0 for each block of the message, of which there
// is at least one; the remaining passes follow once, at the end. The keys must not be the chain.
struct ChainJob {
  PassList passes;
  const Byte* message;
  Byte* chain;
  std::size_t blocks;
};

// One way to do a cipher job. Up to `batch` blocks cost hardly more than one. `chain` is null where
// the kernel is no use for chains, which are serial.
struct Kernel {
  const char* name;
  void (*cipher)(const CipherJob& job);
  void (*chain)(const ChainJob& job);
  std::size_t batch;
};

}  // namespace vandpublic::des

#endif
