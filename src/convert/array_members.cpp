// ArraySize and CpyByteArray, which nearly every byte-handling member calls.
#include <algorithm>
#include <limits>

#include "frame/trap.h"
#include "members/messages.h"
#include "runtime/coerce.h"

namespace vandpublic {
namespace {

bool Holds(const ByteArray& array, std::int64_t start, Long length) {
  const ArrayBound bound = array.Bound();
  return start >= bound.lower && start + length <= std::int64_t{bound.lower} + bound.count;
}

// Copies in one go when nothing can fail on the way, the position keeps its type, and the arrays
// are two. False, with nothing done, when that is not so.
template <class Subscript>
bool CopyAtOnce(ByteArray& destination, Subscript& position, const ByteArray& source,
                Integer source_start, Integer length) {
  const std::int64_t start = position;
  if (length <= 0 || &destination == &source || !Holds(destination, start, length) ||
      !Holds(source, source_start, length) ||
      start + length > std::numeric_limits<Subscript>::max()) {
    return false;
  }
  const auto from = static_cast<std::size_t>(source_start - source.LowerBound());
  const auto to = static_cast<std::size_t>(start - destination.LowerBound());
  std::copy_n(&source.Elements()[from], length, &destination.Elements()[to]);
  position = static_cast<Subscript>(start + length);
  return true;
}

// The same for a position of any kind.
bool CopyAtOnce(ByteArray& destination, Variant& position, const ByteArray& source,
                Integer source_start, Integer length) {
  if (auto* const number = position.Get<Integer>()) {
    return CopyAtOnce(destination, *number, source, source_start, length);
  }
  auto* const wide = position.Get<Long>();
  return wide != nullptr && CopyAtOnce(destination, *wide, source, source_start, length);
}

}  // namespace

Long clsPublic::ArraySize(Variant& iavar_Array, Integer iint_Dimension) {
  return Trapped(*this, Member::ArraySize, [&]() -> Long {
    if (iint_Dimension < 1) Reject(messages::kInvalidDimension);
    const auto bound = iavar_Array.Bound(iint_Dimension);
    return bound ? bound->count : 0;
  });
}

bool clsPublic::CpyByteArray(ByteArray& abyt_Dest, ByteArray& abyt_Src, Integer& iint_DataLen,
                             OptionalRef<Variant> rvar_DesSub, OptionalRef<Integer> iint_SrcSub) {
  const Long length = iint_DataLen;
  const Long source_start = *iint_SrcSub;
  if (CopyAtOnce(abyt_Dest, *rvar_DesSub, abyt_Src, *iint_SrcSub, iint_DataLen)) return false;
  // No trap: a fault reaches the caller as it is, with everything copied so far in place. One byte
  // at a time, because source and destination may be one array.
  for (Long i = 0; i < length; ++i) {
    const Byte value = abyt_Src.At(std::int64_t{source_start} + i);
    abyt_Dest.At(ToLong(*rvar_DesSub)) = value;
    Increment(*rvar_DesSub);
  }
  return false;  // also on success, on purpose: only the absence of an error tells
}

}  // namespace vandpublic
