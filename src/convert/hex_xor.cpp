// HexXor.
#include <algorithm>
#include <functional>
#include <string>

#include "frame/trap.h"
#include "runtime/checked.h"

namespace vandpublic {
namespace {

constexpr Integer kBytesPerLine = 40;

}  // namespace

String clsPublic::HexXor(const String& istr_Hex1, const String& istr_Hex2, bool ibln_PadLeft,
                         OptionalRef<String>) {
  return Trapped(*this, Member::HexXor, [&] {
    String operand1 = istr_Hex1;
    String operand2 = istr_Hex2;
    operand1 = FstrRidOfEmpty(operand1);
    operand2 = FstrRidOfEmpty(operand2);
    const std::size_t digits = std::max(operand1.Length(), operand2.Length());
    const auto bytes = CheckedCast<Integer>((digits + 1) / 2);

    // The padded texts are thrown away, on purpose: both operands stay aligned on the left, and
    // only the 16-bit length can fail here.
    const Integer padded_length = CheckedMultiply(bytes, Integer{2});
    for (const String& operand : {operand1, operand2}) {
      if (ibln_PadLeft) {
        FstrPadLeft(operand, padded_length, u"0");
      } else {
        FstrPadRight(operand, padded_length, u"0");
      }
    }

    ByteArray array1 = ByteArray::WithBounds(0, bytes - 1);
    ByteArray array2 = ByteArray::WithBounds(0, bytes - 1);
    FillByteArrWithHexStr(array1, operand1, Integer{0});
    FillByteArrWithHexStr(array2, operand2, Integer{0});
    const auto result = array2.Elements();
    std::transform(result.begin(), result.end(), array1.Elements().begin(), result.begin(),
                   std::bit_xor<Byte>());
    return DispBytes(array2, 0, kBytesPerLine, true);
  });
}

}  // namespace vandpublic
