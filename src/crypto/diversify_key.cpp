// DiversifyKey: a 16-byte key from a master key and 8 bytes of data.
#include "convert/array_size.h"
#include "frame/trap.h"
#include "members/messages.h"
#include "runtime/wipe.h"

namespace vandpublic {
namespace {

constexpr Long kHalfSize = 8;
constexpr Long kKeySize = 16;

bool HasSubscripts0To7(const ByteArray& array) {
  return array.LowerBound() <= 0 && std::int64_t{array.LowerBound()} + array.Count() >= kHalfSize;
}

// The source of the left half. Data that starts elsewhere than at subscript 0 is enciphered from
// its first element on; the complement, which reads absolute subscripts, then fails.
ByteArray FirstElements(const ByteArray& data) {
  const auto elements = data.Elements().first(kHalfSize);
  return ByteArray(std::vector<Byte>(elements.begin(), elements.end()));
}

}  // namespace

bool clsPublic::DiversifyKey(ByteArray& abyt_MasterKey, ByteArray& abyt_DivData,
                             ByteArray& abyt_DivKey, OptionalRef<String>) {
  // Traps its own rejections only: what a called member raises reaches the caller as it is.
  return Trapped(*this, Member::DiversifyKey, [&] {
    if (SizeOf(*this, abyt_MasterKey) != kKeySize) Reject(messages::kInvalidMasterKeySize);
    const Long data_size = SizeOf(*this, abyt_DivData);
    if (data_size % kHalfSize != 0) Reject(messages::kDivDataNotMultipleOf8);
    if (SizeOf(*this, abyt_DivKey) < kKeySize) Reject(messages::kDivKeyTooSmall);

    Integer length = kHalfSize;
    if (data_size >= kHalfSize && !HasSubscripts0To7(abyt_DivData)) {
      ByteArray first = FirstElements(abyt_DivData);
      DES3(abyt_MasterKey, first, length, abyt_DivKey);
    } else {
      DES3(abyt_MasterKey, abyt_DivData, length, abyt_DivKey);
    }

    // Read after the left half was written: a receiver that is the data array has changed it.
    ByteArray complement = ByteArray::WithBounds(0, kHalfSize - 1);
    for (Long i = 0; i < kHalfSize; ++i) {
      complement.At(i) = static_cast<Byte>(~abyt_DivData.At(i));
    }
    WipedByteArray right_half(ByteArray::WithBounds(0, kHalfSize - 1));
    DES3(abyt_MasterKey, complement, length, *right_half);
    CpyByteArray(abyt_DivKey, *right_half, length, Integer{kHalfSize}, 0);
    return true;
  });
}

}  // namespace vandpublic
