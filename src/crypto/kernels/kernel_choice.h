// Which kernels run: chosen once for the process, by what the processor can do.
//
// The environment variable VANDPUBLIC_DES_KERNEL forces a set by its name, for tests and
// measurements: "avx512", "avx2", "sse2" or "portable", or one kernel alone for every length,
// "table", "bits64", "bits128", "bits256", "bytes256" or "bytes512". A name that this build or
// this processor does not have is ignored.
#ifndef VANDPUBLIC_CRYPTO_KERNELS_KERNEL_CHOICE_H
#define VANDPUBLIC_CRYPTO_KERNELS_KERNEL_CHOICE_H

#include <string_view>

#include "crypto/kernels/kernel_list.h"

namespace vandpublic::des {

// The set with this name when this processor can run it, else null.
const KernelSet* FindKernelSet(std::string_view name);

// The set of this process.
const KernelSet& ActiveKernelSet();

// The kernel that begins a job of this many blocks (at least 1).
const Kernel& KernelFor(const KernelSet& set, std::size_t blocks);

// Does the job; a job of 0 blocks is done.
void RunJob(const KernelSet& set, const CipherJob& job);
void RunChain(const KernelSet& set, const ChainJob& job);

}  // namespace vandpublic::des

#endif
