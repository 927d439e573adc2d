// ArraySize and CpyByteArray, which nearly every byte-handling member calls.
#include "frame/trap.h"
#include "members/messages.h"
#include "runtime/coerce.h"

namespace vandpublic {

Long clsPublic::ArraySize(Variant& iavar_Array, Integer iint_Dimension) {
  return Trapped(*this, Member::ArraySize, [&]() -> Long {
    if (iint_Dimension < 1) Reject(messages::kInvalidDimension);
    const auto bound = iavar_Array.Bound(iint_Dimension);
    return bound ? bound->count : 0;
  });
}

bool clsPublic::CpyByteArray(ByteArray& abyt_Dest, ByteArray& abyt_Src, Integer& iint_DataLen,
                             OptionalRef<Variant> rvar_DesSub, OptionalRef<Integer> iint_SrcSub) {
  // No trap: a fault reaches the caller as it is, with everything copied so far in place. One byte
  // at a time, because source and destination may be one array.
  const Long length = iint_DataLen;
  const Long source_start = *iint_SrcSub;
  for (Long i = 0; i < length; ++i) {
    const Byte value = abyt_Src.At(std::int64_t{source_start} + i);
    abyt_Dest.At(ToLong(*rvar_DesSub)) = value;
    Increment(*rvar_DesSub);
  }
  return false;  // also on success, on purpose: only the absence of an error tells
}

}  // namespace vandpublic
