// The bit-sliced kernel in 128-bit vectors, for x86 with SSE2.
#include "crypto/kernels/bit_slices.h"
#include "crypto/kernels/bits128.h"
#include "crypto/kernels/kernel_list.h"

namespace vandpublic::des {

const Kernel kBits128Kernel = {"bits128", &SliceCipher<Vector128>, nullptr, 128};

}  // namespace vandpublic::des
