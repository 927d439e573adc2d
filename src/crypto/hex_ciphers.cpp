// FstrDES3, FstrUDES3, FstrDiversifyKey and FstrTMAC: the ciphers on hexadecimal text.
//
// Every text goes into a buffer of fixed size: one that does not fit fails in the fill, a shorter
// one leaves zeros behind it. The fills change the caller's texts, which shows after the call.
#include "frame/trap.h"
#include "runtime/checked.h"
#include "runtime/coerce.h"
#include "runtime/wipe.h"

namespace vandpublic {
namespace {

constexpr Long kKeyBuffer = 16;
constexpr Long kDataBuffer = 1024;
constexpr Long kFactorBuffer = 17;
constexpr Long kBlockBuffer = 8;
constexpr Integer kBytesPerLine = 40;
constexpr Byte kPaddingMark = 0x80;

// A buffer of zeros, filled from the start with what the text holds.
class HexBuffer {
 public:
  explicit HexBuffer(Long size) : bytes_(ByteArray::WithBounds(0, size - 1)) {}
  HexBuffer(clsPublic& object, Long size, String& text) : HexBuffer(size) {
    Variant position = Integer{0};
    object.FillByteArrWithHexStr(*bytes_, text, position);
    filled_ = ToInteger(position);
  }

  ByteArray& operator*() noexcept { return *bytes_; }
  // The number of bytes that came from the text.
  Integer Filled() const noexcept { return filled_; }

 private:
  WipedByteArray bytes_;
  Integer filled_ = 0;
};

// One byte 80, then up to the next multiple of 8. What stands in the buffer behind the mark is
// not cleared, on purpose: with a length below the data's it is data.
void Pad(ByteArray& data, Integer& length) {
  if (length % 8 == 0) return;
  data.At(length) = kPaddingMark;
  length = CheckedCast<Integer>((length / 8 + 1) * 8);
}

}  // namespace

String clsPublic::FstrDES3(String& istr_Key, String& istr_Src, OptionalRef<Integer> iDataLen) {
  return Trapped(*this, Member::FstrDES3, [&] {
    HexBuffer key(*this, kKeyBuffer, istr_Key);
    HexBuffer data(*this, kDataBuffer, istr_Src);
    if (*iDataLen == 0) *iDataLen = data.Filled();
    Pad(*data, *iDataLen);
    HexBuffer result(kDataBuffer);
    DES3(*key, *data, *iDataLen, *result);
    return DispBytes(*result, *iDataLen, kBytesPerLine, true);
  });
}

String clsPublic::FstrUDES3(String& istr_Key, String& istr_Src, OptionalRef<Integer> iDataLen) {
  // Its trap ends the call without a word; only the members it calls log.
  return Trapped(*this, Member::FstrUDES3, [&] {
    HexBuffer key(*this, kKeyBuffer, istr_Key);
    HexBuffer data(*this, kDataBuffer, istr_Src);
    if (*iDataLen == 0) *iDataLen = data.Filled();
    HexBuffer result(kDataBuffer);
    UDES3(*key, *data, *iDataLen, *result);
    return DispBytes(*result, *iDataLen, kBytesPerLine, true);
  });
}

String clsPublic::FstrDiversifyKey(String& istr_Key, String& istr_DivFactor) {
  return Trapped(*this, Member::FstrDiversifyKey, [&] {
    HexBuffer key(*this, kKeyBuffer, istr_Key);
    HexBuffer factor(*this, kFactorBuffer, istr_DivFactor);
    HexBuffer data(kBlockBuffer);
    Integer length = kBlockBuffer;
    CpyByteArray(*data, *factor, length);
    HexBuffer result(kKeyBuffer);
    DiversifyKey(*key, *data, *result);
    return DispBytes(*result, 0, kBytesPerLine, true);
  });
}

String clsPublic::FstrTMAC(String& istr_Key, String& istr_Src, String& istr_InitMAC,
                           OptionalRef<Integer> iint_DataLen) {
  return Trapped(*this, Member::FstrTMAC, [&] {
    HexBuffer key(*this, kKeyBuffer, istr_Key);
    HexBuffer data(*this, kDataBuffer, istr_Src);
    HexBuffer initial(*this, kBlockBuffer, istr_InitMAC);
    if (*iint_DataLen == 0) *iint_DataLen = data.Filled();
    HexBuffer mac(kBlockBuffer);
    TMAC(*key, *data, *iint_DataLen, *initial, *mac);
    constexpr Integer kMacSize = 4;
    return DispBytes(*mac, kMacSize, kBytesPerLine, true);
  });
}

}  // namespace vandpublic
