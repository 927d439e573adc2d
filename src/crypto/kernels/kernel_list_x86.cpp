// The kernel sets for x86 processors.
#include "crypto/kernels/kernel_list.h"

namespace vandpublic::des {
namespace {

// These look at the processor and at what the operating system keeps of its registers.
bool Always() { return true; }
bool HasSse2() { return __builtin_cpu_supports("sse2") != 0; }
bool HasAvx2() { return __builtin_cpu_supports("avx2") != 0; }
bool HasGfni() { return HasAvx2() && __builtin_cpu_supports("gfni") != 0; }
bool HasByteLookUp() {
  return HasGfni() && __builtin_cpu_supports("avx512f") != 0 &&
         __builtin_cpu_supports("avx512bw") != 0 && __builtin_cpu_supports("avx512vl") != 0 &&
         __builtin_cpu_supports("avx512vbmi") != 0;
}

// Where one kernel overtakes another was measured: bench/run.sh.
constexpr KernelStep kAvx512[] = {
    {1, &kTableGfniKernel}, {5, &kBytes256Kernel}, {33, &kBytes512Kernel}};
constexpr KernelStep kAvx2[] = {
    {1, &kTableAvx2Kernel}, {34, &kBits128Avx2Kernel}, {129, &kBits256Kernel}};
constexpr KernelStep kSse2[] = {{1, &kTableKernel}, {35, &kBits128Kernel}};
constexpr KernelStep kPortable[] = {{1, &kTableKernel}, {40, &kBits64Kernel}};

// One kernel for every length.
constexpr KernelStep kBytes512[] = {{1, &kBytes512Kernel}};
constexpr KernelStep kBytes256[] = {{1, &kBytes256Kernel}};
constexpr KernelStep kBits256[] = {{1, &kBits256Kernel}};
constexpr KernelStep kBits128[] = {{1, &kBits128Kernel}};
constexpr KernelStep kBits128Avx2[] = {{1, &kBits128Avx2Kernel}};
constexpr KernelStep kBits64[] = {{1, &kBits64Kernel}};
constexpr KernelStep kTableGfni[] = {{1, &kTableGfniKernel}};
constexpr KernelStep kTableAvx2[] = {{1, &kTableAvx2Kernel}};
constexpr KernelStep kTable[] = {{1, &kTableKernel}};

constexpr KernelSet kSets[] = {
    {"avx512", HasByteLookUp, kAvx512, &kTableGfniKernel},
    {"avx2", HasAvx2, kAvx2, &kTableAvx2Kernel},
    {"sse2", HasSse2, kSse2, &kTableKernel},
    {"portable", Always, kPortable, &kTableKernel},
    {"bytes512", HasByteLookUp, kBytes512, &kTableKernel},
    {"bytes256", HasByteLookUp, kBytes256, &kTableKernel},
    {"bits256", HasAvx2, kBits256, &kTableKernel},
    {"bits128", HasSse2, kBits128, &kTableKernel},
    {"bits128-avx2", HasAvx2, kBits128Avx2, &kTableKernel},
    {"bits64", Always, kBits64, &kTableKernel},
    {"table-gfni", HasGfni, kTableGfni, &kTableGfniKernel},
    {"table-avx2", HasAvx2, kTableAvx2, &kTableAvx2Kernel},
    {"table", Always, kTable, &kTableKernel},
};

}  // namespace

std::span<const KernelSet> AllKernelSets() { return kSets; }

}  // namespace vandpublic::des
