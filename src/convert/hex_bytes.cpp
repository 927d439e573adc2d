// FillByteArrWithHexStr, FstrHexStrToByte and FstrVbStrToHexStr: upper-case hexadecimal text to
// and from byte arrays.
#include <limits>
#include <string>

#include "convert/array_size.h"
#include "convert/hex_digits.h"
#include "convert/hex_loops.h"
#include "frame/trap.h"
#include "members/messages.h"
#include "platform/platform.h"
#include "runtime/checked.h"
#include "runtime/coerce.h"
#include "runtime/wipe.h"

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

// An odd text gets a "0" in front. The text may be a key: its old storage is overwritten.
void CompleteToPairs(String& text) {
  if (text.Length() % 2 == 0) return;
  std::u16string completed;
  completed.reserve(text.Length() + 1);
  completed += u'0';
  completed += text.view();
  const WipeOnExit wipe(completed);
  text.EditUnits([&](std::u16string& digits) { digits.swap(completed); });
}

// Reads all pairs at once when no subscript can fail on the way and the position keeps its type.
// False, with nothing done, when that is not so.
template <class Subscript>
bool FillAtOnce(ByteArray& array, std::u16string_view digits, Subscript& position) {
  const std::size_t pairs = digits.size() / 2;
  const std::int64_t start = position;
  const std::int64_t end = start + static_cast<std::int64_t>(pairs);
  const ArrayBound bound = array.Bound();
  const bool inside = start >= bound.lower && end <= std::int64_t{bound.lower} + bound.count;
  if (pairs == 0 || !inside || end > std::numeric_limits<Subscript>::max()) return false;
  const std::size_t read = DecodeHex(digits, &array.At(start));
  position = static_cast<Subscript>(start + static_cast<std::int64_t>(read));
  if (read < pairs) RaiseFault(FaultNumber::Overflow);
  return true;
}

// Position by position, as long as digits, position and array allow.
void FillOneByOne(ByteArray& array, std::u16string_view digits, Variant& position) {
  for (std::size_t i = 0; i < digits.size(); i += 2) {
    const Byte value = PairAt(digits, i);
    array.At(ToLong(position)) = value;
    Increment(position);
  }
}

void Fill(ByteArray& array, std::u16string_view digits, Variant& position) {
  if (auto* const number = position.Get<Integer>()) {
    if (FillAtOnce(array, digits, *number)) return;
  } else if (auto* const wide = position.Get<Long>()) {
    if (FillAtOnce(array, digits, *wide)) return;
  }
  FillOneByOne(array, digits, position);
}

// Digits need no search for blanks.
void RemoveBlanks(std::u16string& units) {
  if (!AreHexDigits(units)) std::erase(units, u' ');
}

}  // namespace

bool clsPublic::FillByteArrWithHexStr(ByteArray& ArrToBeFill, String& istr_HexStr,
                                      OptionalRef<Variant> rvar_Pos,
                                      OptionalRef<String> rstr_ErrDesc) {
  return Trapped(*this, Member::FillByteArrWithHexStr, rstr_ErrDesc, [&] {
    istr_HexStr.EditUnits(RemoveBlanks);
    if (!IsHex(istr_HexStr)) Reject(messages::kNotHexString);
    if (SizeOf(*this, ArrToBeFill) == 0) {
      const auto bytes = static_cast<Long>((istr_HexStr.Length() + 1) / 2);
      ArrToBeFill.Redimension(0, bytes - 1);
    }
    CompleteToPairs(istr_HexStr);

    Fill(ArrToBeFill, istr_HexStr.view(), *rvar_Pos);
    return true;
  });
}

ByteArray clsPublic::FstrHexStrToByte(const String& istr_HexStr, Integer PaddingToLen,
                                      OptionalRef<bool> PaddingLeft,
                                      OptionalRef<String> rstr_ErrDesc) {
  return Trapped(*this, Member::FstrHexStrToByte, rstr_ErrDesc, [&] {
    const std::u16string_view trimmed = TrimSpaces(istr_HexStr.view());
    if (!IsHex(trimmed)) Reject(messages::kNotHexString);
    String completed = trimmed;
    CompleteToPairs(completed);
    const std::u16string_view digits = completed.view();

    ByteArray scratch = ByteArray::WithBounds(0, kScratchSize - 1);
    const std::size_t read =
        DecodeHex(digits.substr(0, 2 * scratch.Elements().size()), &scratch.At(0));
    if (2 * read < digits.size()) {  // no room, or a lower-case digit: raises what it is
      scratch.At(static_cast<Long>(read)) = PairAt(digits, 2 * read);
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
    std::string bytes = platform().code_page->Encode(istr_Source.view());
    const WipeOnExit wipe(bytes);  // SystemEncrypt's plain text comes this way
    std::u16string digits(2 * bytes.size(), u'0');
    EncodeHex({reinterpret_cast<const Byte*>(bytes.data()), bytes.size()}, digits.data());
    return digits;
  });
}

}  // namespace vandpublic
