// The table-driven kernel for x86 with AVX2: the same with wider XORs in the key schedule.
#include "crypto/kernels/kernel_list.h"
#include "crypto/kernels/table_kernel.h"

namespace vandpublic::des {

const Kernel kTableAvx2Kernel = {"table-avx2", &TableCipher<PlainPermutations>,
                                 &TableChain<PlainPermutations>, 1};

}  // namespace vandpublic::des
