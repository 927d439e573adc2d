// FstrDES3 and FstrUDES3: triple DES on hexadecimal text.
#include "frame/trap.h"
#include "runtime/checked.h"
#include "runtime/coerce.h"

namespace vandpublic {
namespace {

constexpr Long kKeyBuffer = 16;
constexpr Long kDataBuffer = 1024;
constexpr Integer kBytesPerLine = 40;
constexpr Byte kPaddingMark = 0x80;

// The key and data of one call, in buffers of fixed size: a text that does not fit fails in the
// fill, a shorter key leaves zeros behind it.
struct HexCipherInput {
  HexCipherInput(clsPublic& object, String& key_text, String& data_text, Integer& length) {
    object.FillByteArrWithHexStr(key, key_text, Integer{0});
    Variant filled = Integer{0};
    object.FillByteArrWithHexStr(data, data_text, filled);
    if (length == 0) length = ToInteger(filled);
  }

  ByteArray key = ByteArray::WithBounds(0, kKeyBuffer - 1);
  ByteArray data = ByteArray::WithBounds(0, kDataBuffer - 1);
  ByteArray result = ByteArray::WithBounds(0, kDataBuffer - 1);
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
    HexCipherInput input(*this, istr_Key, istr_Src, *iDataLen);
    Pad(input.data, *iDataLen);
    DES3(input.key, input.data, *iDataLen, input.result);
    return DispBytes(input.result, *iDataLen, kBytesPerLine, true);
  });
}

String clsPublic::FstrUDES3(String& istr_Key, String& istr_Src, OptionalRef<Integer> iDataLen) {
  // Its trap ends the call without a word; only the members it calls log.
  return Trapped(*this, Member::FstrUDES3, [&] {
    HexCipherInput input(*this, istr_Key, istr_Src, *iDataLen);
    UDES3(input.key, input.data, *iDataLen, input.result);
    return DispBytes(input.result, *iDataLen, kBytesPerLine, true);
  });
}

}  // namespace vandpublic
