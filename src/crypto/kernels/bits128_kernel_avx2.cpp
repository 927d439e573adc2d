// The same in the instructions of AVX2, which do not overwrite an operand: a tenth quicker.
#include "crypto/kernels/bit_slices.h"
#include "crypto/kernels/bits128.h"
#include "crypto/kernels/kernel_list.h"

namespace vandpublic::des {

const Kernel kBits128Avx2Kernel = {"bits128-avx2", &SliceCipher<Vector128>, nullptr, 128};

}  // namespace vandpublic::des
