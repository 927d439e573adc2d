// DiversifyKey: a 16-byte key from a master key and 8 bytes of data.
#include "convert/array_size.h"
#include "crypto/des_engine.h"
#include "frame/trap.h"
#include "members/messages.h"
#include "runtime/wipe.h"

namespace vandpublic {
namespace {

constexpr Long kHalfSize = 8;
constexpr Long kKeySize = 16;

// The source of the left half. Data that starts elsewhere than at subscript 0 is enciphered from
// its first element on; the complement, which reads absolute subscripts, then fails.
ByteArray FirstElements(const ByteArray& data) {
  const auto elements = data.Elements().first(kHalfSize);
  return ByteArray(std::vector<Byte>(elements.begin(), elements.end()));
}

// Whether both halves can be made at once: nothing can fail, and the left half, once written,
// changes neither the key nor the data.
bool CannotFail(const ByteArray& key, const ByteArray& data, const ByteArray& receiver) {
  return &receiver != &key && &receiver != &data && HasSubscripts(key, kKeySize) &&
         HasSubscripts(data, kHalfSize) && HasSubscripts(receiver, kKeySize);
}

void DiversifyBoth(const ByteArray& key, const ByteArray& data, ByteArray& receiver) {
  const auto left = FromZero(data, kHalfSize);
  const auto both = FromZero(receiver, kKeySize);
  for (std::size_t i = 0; i < left.size(); ++i) {
    both[i] = left[i];
    both[left.size() + i] = static_cast<Byte>(~left[i]);
  }
  TripleDesCipherBlocks(FromZero(key, kKeySize).first<16>(), both, both, true);
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

    if (CannotFail(abyt_MasterKey, abyt_DivData, abyt_DivKey)) {
      DiversifyBoth(abyt_MasterKey, abyt_DivData, abyt_DivKey);
      return true;
    }
    Integer length = kHalfSize;
    if (data_size >= kHalfSize && !HasSubscripts(abyt_DivData, kHalfSize)) {
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
