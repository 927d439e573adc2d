// The choice of kernels, and the division of a job among them.
#include "crypto/kernels/kernel_choice.h"

#include <algorithm>
#include <array>
#include <cstdlib>

#include "runtime/wipe.h"

namespace vandpublic::des {
namespace {

const KernelSet& ChooseKernelSet() {
  const char* const forced = std::getenv("VANDPUBLIC_DES_KERNEL");
  if (forced != nullptr) {
    if (const KernelSet* const set = FindKernelSet(forced)) return *set;
  }
  const auto sets = AllKernelSets();
  return *std::find_if(sets.begin(), sets.end(), [](const KernelSet& s) { return s.usable(); });
}

std::size_t Share(const Kernel& kernel, std::size_t blocks) {
  return blocks <= kernel.batch ? blocks : blocks - blocks % kernel.batch;
}

// A copy of the keys, for jobs in several parts: the first part's result may overwrite the keys.
// Passes that shared a key pointer still do.
class KeptKeys {
 public:
  explicit KeptKeys(PassList& passes) {
    for (std::size_t p = 0; p < static_cast<std::size_t>(passes.count); ++p) {
      const Byte*& key = passes.pass[p].key;
      std::copy_n(key, kBlockSize, &bytes_[kBlockSize * p]);
      const bool shared = p == 2 && key == first_;
      if (p == 0) first_ = key;
      key = &bytes_[shared ? 0 : kBlockSize * p];
    }
  }

 private:
  std::array<Byte, kBlockSize * kMostPasses> bytes_{};
  WipeOnExit<std::array<Byte, kBlockSize * kMostPasses>> wipe_{bytes_};
  const Byte* first_ = nullptr;
};

}  // namespace

const KernelSet* FindKernelSet(std::string_view name) {
  for (const KernelSet& set : AllKernelSets()) {
    if (set.name == name) return set.usable() ? &set : nullptr;
  }
  return nullptr;
}

const KernelSet& ActiveKernelSet() {
  static const KernelSet& set = ChooseKernelSet();
  return set;
}

const Kernel& KernelFor(const KernelSet& set, std::size_t blocks) {
  std::size_t step = set.steps.size() - 1;
  while (step > 0 && set.steps[step].from > blocks)
    --step;
  return *set.steps[step].kernel;
}

void RunJob(const KernelSet& set, const CipherJob& job) {
  if (job.blocks == 0) return;
  const Kernel& kernel = KernelFor(set, job.blocks);
  if (Share(kernel, job.blocks) == job.blocks) {
    kernel.cipher(job);
    return;
  }
  CipherJob rest = job;
  const KeptKeys keys(rest.passes);
  while (rest.blocks != 0) {
    const Kernel& next = KernelFor(set, rest.blocks);
    CipherJob part = rest;
    part.blocks = Share(next, rest.blocks);
    next.cipher(part);
    rest.source += kBlockSize * part.blocks;
    rest.result += kBlockSize * part.blocks;
    rest.blocks -= part.blocks;
  }
}

void RunChain(const KernelSet& set, const ChainJob& job) { set.chain->chain(job); }

}  // namespace vandpublic::des
