// Overwriting of key material inside a kernel: in line, so that it belongs to the kernel's own
// source (see cipher_job.h).
#ifndef VANDPUBLIC_CRYPTO_KERNELS_LOCAL_WIPE_H
#define VANDPUBLIC_CRYPTO_KERNELS_LOCAL_WIPE_H

#include <cstddef>
#include <cstring>

namespace vandpublic::des {
namespace {

inline void WipeLocal(void* memory, std::size_t size) noexcept {
  std::memset(memory, 0, size);
  // Makes the compiler believe that somebody reads the memory.
  asm volatile("" : : "r"(memory) : "memory");
}

}  // namespace
}  // namespace vandpublic::des

#endif
