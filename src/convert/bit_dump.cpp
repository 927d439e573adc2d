// The bit dump.
#include "convert/bit_dump.h"

#include <string>

#include "convert/hex_digits.h"
#include "members/messages.h"
#include "runtime/errors.h"

namespace vandpublic {
namespace {

class BitReader {
 public:
  BitReader(const Variant& bits, Long row_width) : bits_(bits), row_width_(row_width) {}

  std::size_t At(Long position) const {
    if (row_width_ == 0) {
      if (const ByteArray* array = bits_.AsByteArray()) return array->At(position) == 1 ? 1 : 0;
    } else if (const ByteTable* table = bits_.AsByteTable()) {
      return table->At(position / row_width_, position % row_width_) == 1 ? 1 : 0;
    }
    RaiseFault(FaultNumber::SubscriptOutOfRange);
  }

 private:
  const Variant& bits_;
  Long row_width_;
};

}  // namespace

bool DispBitArray(clsPublic& object, const Variant& Bits, Integer DataLen, Integer CntPerLine,
                  Integer RowWidth, String& ErrDesc, String& Text) {
  if (DataLen % 4 != 0) {
    String description = messages::kInvalidBitCount;
    object.LogError(u"VandPublic", u"clsCommon", u"DispBitArray",
                    std::make_shared<ErrObject>(0, u"", u""), description);
    ErrDesc = description;
    return false;
  }
  const BitReader bits(Bits, RowWidth);
  std::u16string digits;
  for (Long k = 0; k < DataLen; k += 4) {
    const Long digit_number = k / 4 + 1;
    if (digit_number % 2 != 0) digits += u' ';
    digits += kHexDigits[8 * bits.At(k) + 4 * bits.At(k + 1) + 2 * bits.At(k + 2) + bits.At(k + 3)];
    if (CntPerLine > 0 && digit_number % (2 * Long{CntPerLine}) == 0) digits += u"\r\n";
  }
  Text = digits;
  return true;
}

}  // namespace vandpublic
