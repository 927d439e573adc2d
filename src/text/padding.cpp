// FstrPadToSpecLen, FstrPadLeft, FstrPadRight and FstrFmtToSpecLen: texts of a fixed length.
#include <algorithm>
#include <string>

#include "frame/trap.h"
#include "runtime/errors.h"

namespace vandpublic {
namespace {

// A run of the pad text's first character, as long as the result; fault 5 for a negative length or
// an empty pad text, the latter also when nothing is to be padded.
std::u16string Padding(Integer length, const String& pad_with) {
  if (length < 0 || pad_with.Length() == 0) RaiseFault(FaultNumber::InvalidProcedureCall);
  return std::u16string(static_cast<std::size_t>(length), pad_with.view().front());
}

// Exactly that many characters: a longer text loses its first ones.
String PaddedLeft(const String& source, Integer length, const String& pad_with) {
  std::u16string text = Padding(length, pad_with);
  const std::u16string_view units = source.view();
  const std::size_t kept = std::min(units.size(), text.size());
  std::copy_n(units.end() - static_cast<std::ptrdiff_t>(kept), kept,
              text.end() - static_cast<std::ptrdiff_t>(kept));
  return text;
}

// Exactly that many characters: a longer text loses its last ones.
String PaddedRight(const String& source, Integer length, const String& pad_with) {
  std::u16string text = Padding(length, pad_with);
  std::copy_n(source.view().begin(), std::min(source.Length(), text.size()), text.begin());
  return text;
}

}  // namespace

String clsPublic::FstrPadToSpecLen(const String& istr_Source, Integer iint_PadToLen,
                                   const String& istr_PadWith, enumPadMethod enumMethod,
                                   OptionalRef<String> rstr_ErrDesc) {
  return Trapped(*this, Member::FstrPadToSpecLen, rstr_ErrDesc, [&] {
    // Every other method than RIGHTPAD pads on the left, also those that are none.
    return enumMethod == RIGHTPAD ? PaddedRight(istr_Source, iint_PadToLen, istr_PadWith)
                                  : PaddedLeft(istr_Source, iint_PadToLen, istr_PadWith);
  });
}

String clsPublic::FstrPadLeft(const String& istr_Source, Integer iint_PadToLen,
                              const String& istr_PadWith, OptionalRef<String> rstr_ErrDesc) {
  return Trapped(*this, Member::FstrPadLeft, rstr_ErrDesc,
                 [&] { return PaddedLeft(istr_Source, iint_PadToLen, istr_PadWith); });
}

String clsPublic::FstrPadRight(const String& istr_Source, Integer iint_PadToLen,
                               const String& istr_PadWith, OptionalRef<String> rstr_ErrDesc) {
  return Trapped(*this, Member::FstrPadRight, rstr_ErrDesc,
                 [&] { return PaddedRight(istr_Source, iint_PadToLen, istr_PadWith); });
}

String clsPublic::FstrFmtToSpecLen(const String& istr_Source, Integer iint_Len) {
  if (iint_Len < 0) RaiseFault(FaultNumber::InvalidProcedureCall);
  std::u16string text(istr_Source.view());
  const auto length = static_cast<std::size_t>(iint_Len);
  if (text.size() < length) text.resize(length, u' ');  // a longer text is not cut, on purpose
  return text;
}

}  // namespace vandpublic
