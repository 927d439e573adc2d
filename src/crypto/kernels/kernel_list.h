// The kernels there are, each in a source of its own, and the sets they are used in.
#ifndef VANDPUBLIC_CRYPTO_KERNELS_KERNEL_LIST_H
#define VANDPUBLIC_CRYPTO_KERNELS_KERNEL_LIST_H

#include <span>

#include "crypto/kernels/cipher_job.h"

namespace vandpublic::des {

// Any processor.
extern const Kernel kTableKernel;
extern const Kernel kBits64Kernel;

// x86 processors with SSE2, AVX2, and AVX-512 with VBMI and GFNI.
extern const Kernel kTableAvx2Kernel;
extern const Kernel kTableGfniKernel;
extern const Kernel kBits128Kernel;
extern const Kernel kBits128Avx2Kernel;
extern const Kernel kBits256Kernel;
extern const Kernel kBytes256Kernel;
extern const Kernel kBytes512Kernel;

// From this many blocks on (the first step's is 1), this kernel.
struct KernelStep {
  std::size_t from;
  const Kernel* kernel;
};

// What one kind of processor does a job with. A set can also be a single kernel, for tests.
struct KernelSet {
  const char* name;
  bool (*usable)();                   // whether this processor can run it
  std::span<const KernelStep> steps;  // ascending
  const Kernel* chain;
};

// The sets of this build, best first.
std::span<const KernelSet> AllKernelSets();

}  // namespace vandpublic::des

#endif
