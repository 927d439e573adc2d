// The store that cannot be dropped.
#include "runtime/wipe.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace vandpublic {

void WipeMemory(void* memory, std::size_t size) noexcept {
  if (size == 0) return;
  std::memset(memory, 0, size);
  // Makes the compiler believe that somebody reads the memory.
  asm volatile("" : : "r"(memory) : "memory");
}

void WipedByteArray::Redimension(Long lower, Long upper) {
  ByteArray fresh = ByteArray::WithBounds(lower, upper);
  Wipe();
  array_ = std::move(fresh);
}

void WipedByteArray::RedimensionPreserving(Long upper) {
  const Long lower = array_.LowerBound();
  ByteArray fresh = ByteArray::WithBounds(lower, upper);
  const auto old = array_.Elements();
  const auto kept = std::min(old.size(), fresh.Elements().size());
  std::copy_n(old.begin(), kept, fresh.Elements().begin());
  Wipe();
  array_ = std::move(fresh);
}

}  // namespace vandpublic
