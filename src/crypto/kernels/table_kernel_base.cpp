// The table-driven kernel for any processor.
#include "crypto/kernels/kernel_list.h"
#include "crypto/kernels/table_kernel.h"

namespace vandpublic::des {

const Kernel kTableKernel = {"table", &TableCipher<PlainPermutations>,
                             &TableChain<PlainPermutations>, 1};

}  // namespace vandpublic::des
