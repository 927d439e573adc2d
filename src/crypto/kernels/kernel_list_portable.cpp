// The kernel sets for processors without kernels of their own.
#include "crypto/kernels/kernel_list.h"

namespace vandpublic::des {
namespace {

bool Always() { return true; }

constexpr KernelStep kTable[] = {{1, &kTableKernel}};

constexpr KernelSet kSets[] = {
    {"portable", Always, kTable, &kTableKernel},
    {"table", Always, kTable, &kTableKernel},
};

}  // namespace

std::span<const KernelSet> AllKernelSets() { return kSets; }

}  // namespace vandpublic::des
