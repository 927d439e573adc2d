// The kernel sets for processors without kernels of their own.
#include "crypto/kernels/kernel_list.h"

namespace vandpublic::des {
namespace {

bool Always() { return true; }

constexpr KernelStep kPortable[] = {{1, &kTableKernel}, {40, &kBits64Kernel}};
constexpr KernelStep kTable[] = {{1, &kTableKernel}};
constexpr KernelStep kBits64[] = {{1, &kBits64Kernel}};

constexpr KernelSet kSets[] = {
    {"portable", Always, kPortable, &kTableKernel},
    {"bits64", Always, kBits64, &kTableKernel},
    {"table", Always, kTable, &kTableKernel},
};

}  // namespace

std::span<const KernelSet> AllKernelSets() { return kSets; }

}  // namespace vandpublic::des
