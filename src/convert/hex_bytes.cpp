// FillByteArrWithHexStr, FstrHexStrToByte and FstrVbStrToHexStr: upper-case hexadecimal text to
// and from byte arrays.
#include <string>

#include "convert/array_size.h"
#include "convert/hex_digits.h"
#include "frame/trap.h"
#include "members/messages.h"
#include "platform/platform.h"
#include "runtime/checked.h"
#include "runtime/coerce.h"

namespace vandpublic {
namespace {

// The most bytes that FstrHexStrToByte converts.
constexpr Long kScratchSize = 1024;

// The byte of the two digits at a position. A lower-case letter passes IsHex and is fault 6 here,
// wherever it stands: on purpose.
Byte PairAt(std::u16string_view digits, std::size_t position) {
  const int high = UpperHexDigitValue(digits[position]);
  const int low = UpperHexDigitValue(digits[position + 1]);
  if (high < 0 || low < 0) RaiseFault(FaultNumber::Overflow);
  return static_cast<Byte>(16 * high + low);
}

std::u16string WithoutSpaces(std::u16string_view text) {
  std::u16string kept(text);
  std::erase(kept, u' ');
  return kept;
}

std::u16string CompletedToPairs(std::u16string_view digits) {
  std::u16string completed(digits);
  if (completed.size() % 2 != 0) completed.insert(completed.begin(), u'0');
  return completed;
}

}  // namespace

bool clsPublic::FillByteArrWithHexStr(ByteArray& ArrToBeFill, String& istr_HexStr,
                                      OptionalRef<Variant> rvar_Pos,
                                      OptionalRef<String> rstr_ErrDesc) {
  return Trapped(*this, Member::FillByteArrWithHexStr, rstr_ErrDesc, [&] {
    istr_HexStr = WithoutSpaces(istr_HexStr.view());
    if (!IsHex(istr_HexStr)) Reject(messages::kNotHexString);
    if (SizeOf(*this, ArrToBeFill) == 0) {
      const auto bytes = static_cast<Long>((istr_HexStr.Length() + 1) / 2);
      ArrToBeFill.Redimension(0, bytes - 1);
    }
    istr_HexStr = CompletedToPairs(istr_HexStr.view());

    const std::u16string_view digits = istr_HexStr.view();
    for (std::size_t i = 0; i < digits.size(); i += 2) {
      const Byte value = PairAt(digits, i);
      ArrToBeFill.At(ToLong(*rvar_Pos)) = value;
      Increment(*rvar_Pos);
    }
    return true;
  });
}

ByteArray clsPublic::FstrHexStrToByte(const String& istr_HexStr, Integer PaddingToLen,
                                      OptionalRef<bool> PaddingLeft,
                                      OptionalRef<String> rstr_ErrDesc) {
  return Trapped(*this, Member::FstrHexStrToByte, rstr_ErrDesc, [&] {
    const std::u16string_view trimmed = TrimSpaces(istr_HexStr.view());
    if (!IsHex(trimmed)) Reject(messages::kNotHexString);
    const std::u16string digits = CompletedToPairs(trimmed);

    ByteArray scratch = ByteArray::WithBounds(0, kScratchSize - 1);
    for (std::size_t i = 0; i < digits.size(); i += 2) {
      scratch.At(static_cast<Long>(i / 2)) = PairAt(digits, i);
    }

    auto count = static_cast<Integer>(digits.size() / 2);
    if (PaddingToLen <= 0) {
      ByteArray result = ByteArray::WithBounds(0, count - 1);
      CpyByteArray(result, scratch, count);
      return result;
    }
    if (count > PaddingToLen) Reject(messages::kLengthTooSmall);
    ByteArray result = ByteArray::WithBounds(0, PaddingToLen - 1);
    // One less than right alignment needs, on purpose: a zero byte stays behind the data.
    Variant start = *PaddingLeft ? Long{0} : Long{PaddingToLen} - count - 1;
    CpyByteArray(result, scratch, count, start);
    return result;
  });
}

String clsPublic::FstrVbStrToHexStr(const String& istr_Source, OptionalRef<String> rstr_ErrDesc) {
  return Trapped(*this, Member::FstrVbStrToHexStr, rstr_ErrDesc, [&]() -> String {
    if (FstrIsNullExt(istr_Source, true, false)) return {};
    const std::string bytes = platform().code_page->Encode(istr_Source.view());
    std::u16string digits(2 * bytes.size(), u'0');
    for (std::size_t i = 0; i < bytes.size(); ++i) {
      WriteHexByte(static_cast<Byte>(bytes[i]), &digits[2 * i]);
    }
    return digits;
  });
}

}  // namespace vandpublic
