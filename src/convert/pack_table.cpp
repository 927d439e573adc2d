// FstrPackTable: a length-prefixed record. Its lengths are decimal digits in hexadecimal text, so
// each reads as two bytes of packed decimal.
#include <string>

#include "frame/trap.h"
#include "members/messages.h"

namespace vandpublic {
namespace {

constexpr Integer kLengthDigits = 4;

// A general numeric test, of two characters at most: blanks around it, a sign before or behind,
// digits with a decimal point.
bool IsNumeric(std::u16string_view text) {
  std::u16string_view number = TrimSpaces(text);
  const auto is_sign = [](char16_t c) { return c == u'+' || c == u'-'; };
  if (!number.empty() && is_sign(number.front())) {
    number.remove_prefix(1);
  } else if (!number.empty() && is_sign(number.back())) {
    number.remove_suffix(1);
  }
  bool has_digit = false;
  for (const char16_t c : number) {
    const bool is_digit = c >= u'0' && c <= u'9';
    if (!is_digit && c != u'.') return false;
    has_digit = has_digit || is_digit;
  }
  return has_digit;
}

// Half the number of digits. An odd number has a fraction, which makes the record no hexadecimal
// text and the result empty: on purpose, nothing rounds it.
std::u16string ByteLengthText(std::size_t digits) {
  const String whole(std::to_string(digits / 2));
  return std::u16string(whole.view()) + (digits % 2 != 0 ? u".5" : u"");
}

}  // namespace

String clsPublic::FstrPackTable(const String& istr_Source, const String& istr_TableID,
                                bool ibln_HexStr, OptionalRef<String> rstr_ErrDesc) {
  return Trapped(*this, Member::FstrPackTable, rstr_ErrDesc, [&] {
    const String source = ibln_HexStr ? istr_Source : MsgFmtTextToHex(istr_Source);
    std::u16string table_id = u"00" + std::u16string(istr_TableID.view());
    table_id.erase(0, table_id.size() - 2);
    if (!IsHex(source)) Reject(messages::kInvalidSourceString);
    if (!IsNumeric(table_id)) Reject(messages::kInvalidTableId);

    const auto length_text = [&](std::size_t digits) {
      const String padded = FstrPadToSpecLen(ByteLengthText(digits), kLengthDigits, u"0", LEFTPAD);
      return std::u16string(padded.view());
    };
    std::u16string record = table_id + length_text(source.Length());
    record += source.view();
    return HexToMsgFmtText(length_text(record.size()) + record, 0, true, u"0", false);
  });
}

}  // namespace vandpublic
