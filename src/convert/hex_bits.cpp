// IsHex, HexToDec, BitToHex, HexToBit.
#include <algorithm>

#include "convert/hex_digits.h"
#include "convert/hex_loops.h"
#include "frame/trap.h"
#include "members/messages.h"
#include "runtime/checked.h"

namespace vandpublic {

bool clsPublic::IsHex(const String& istr_HexNumber) {
  return Trapped(*this, Member::IsHex, [&] {
    CheckedCast<Integer>(istr_HexNumber.Length());  // counted before any character is looked at
    return AreHexDigits(istr_HexNumber.view());
  });
}

Long clsPublic::HexToDec(const String& istr_HexNumber) {
  return Trapped(*this, Member::HexToDec, [&] {
    Long value = 0;
    for (const char16_t c : TrimSpaces(istr_HexNumber.view())) {
      const Long digit = HexDigitValue(c);
      if (digit < 0) Reject(messages::kNotHexNumber);
      value = CheckedAdd(CheckedMultiply(value, Long{16}), digit);
    }
    return value;
  });
}

String clsPublic::BitToHex(Byte ibyt_Bit0, Byte ibyt_Bit1, Byte ibyt_Bit2, Byte ibyt_Bit3) {
  return Trapped(*this, Member::BitToHex, [&]() -> String {
    if (std::max({ibyt_Bit0, ibyt_Bit1, ibyt_Bit2, ibyt_Bit3}) > 1) Reject(messages::kNotBits);
    const auto value =
        static_cast<std::size_t>(8 * ibyt_Bit3 + 4 * ibyt_Bit2 + 2 * ibyt_Bit1 + ibyt_Bit0);
    return kHexDigits.substr(value, 1);
  });
}

void clsPublic::HexToBit(const String& istr_HexChr, OptionalRef<Byte> rbyt_Bit0,
                         OptionalRef<Byte> rbyt_Bit1, OptionalRef<Byte> rbyt_Bit2,
                         OptionalRef<Byte> rbyt_Bit3) {
  Trapped(*this, Member::HexToBit, [&] {
    // Everything behind the first character is ignored, on purpose.
    const Long value = HexToDec(TrimSpaces(istr_HexChr.view()).substr(0, 1));
    const auto bit = [value](int k) { return static_cast<Byte>((value >> k) & 1); };
    *rbyt_Bit0 = bit(0);
    *rbyt_Bit1 = bit(1);
    *rbyt_Bit2 = bit(2);
    *rbyt_Bit3 = bit(3);
  });
}

}  // namespace vandpublic
