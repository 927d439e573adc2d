// The six members for message-format text: text that carries bytes, one in each character (its low
// byte) or, as byte text, two in the storage of each.
#include <algorithm>
#include <array>
#include <string>

#include "convert/hex_digits.h"
#include "convert/hex_loops.h"
#include "frame/trap.h"
#include "members/messages.h"
#include "runtime/checked.h"
#include "runtime/wipe.h"

namespace vandpublic {
namespace {

std::size_t ByteCount(const String& text, bool byte_text) {
  return byte_text ? text.ByteLength() : text.Length();
}

Byte ByteOf(const String& text, std::size_t index, bool byte_text) {
  // A character above U+00FF loses its high byte, on purpose.
  return byte_text ? text.ByteAt(index) : static_cast<Byte>(text.view()[index]);
}

String TextOf(const std::string& bytes, bool byte_text) {
  if (byte_text) return String::FromBytes(bytes);
  std::u16string text(bytes.size(), u'\0');
  std::transform(bytes.begin(), bytes.end(), text.begin(),
                 [](char c) { return static_cast<Byte>(c); });
  return text;
}

// Brought to exactly that many digits: left padding keeps the last ones, right padding the first.
std::u16string Sized(const std::u16string& digits, Integer length, bool left, char16_t pad) {
  const auto size = static_cast<std::size_t>(length);
  const std::u16string padding(size, pad);
  if (!left) return (digits + padding).substr(0, size);
  return (padding + digits).substr(digits.size());
}

// Digits of either case; those of upper case, as everybody writes them, are quick.
std::string BytesOf(std::u16string_view digits) {
  std::string bytes(digits.size() / 2, '\0');
  const std::size_t read = DecodeHex(digits, reinterpret_cast<Byte*>(bytes.data()));
  for (std::size_t i = read; i < bytes.size(); ++i) {
    const int value = 16 * HexDigitValue(digits[2 * i]) + HexDigitValue(digits[2 * i + 1]);
    bytes[i] = static_cast<char>(value);
  }
  return bytes;
}

// The digits of the bytes that a text carries, taken out of it a block at a time.
std::u16string DigitsOf(const String& text, std::size_t count, bool byte_text) {
  std::u16string digits(2 * count, u'0');
  std::array<Byte, 256> block{};
  const WipeOnExit wipe(block);
  for (std::size_t at = 0; at < count; at += block.size()) {
    const std::span<Byte> bytes = std::span(block).first(std::min(block.size(), count - at));
    if (byte_text) {
      for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = ByteOf(text, at + i, true);
    } else {
      const std::u16string_view units = text.view().substr(at, bytes.size());
      std::transform(units.begin(), units.end(), bytes.begin(),
                     [](char16_t unit) { return static_cast<Byte>(unit); });
    }
    EncodeHex(bytes, &digits[2 * at]);
  }
  return digits;
}

// Upper case without leading zeros, at least one digit.
std::u16string HexOf(std::uint32_t value) {
  std::u16string digits;
  do {
    digits.insert(digits.begin(), kHexDigits[value % 16]);
    value /= 16;
  } while (value != 0);
  return digits;
}

}  // namespace

String clsPublic::MsgFmtTextToHex(const String& istr_MsgFmtText, bool ibln_InByteText) {
  return Trapped(*this, Member::MsgFmtTextToHex, [&]() -> String {
    const auto count =
        static_cast<std::size_t>(CheckedCast<Integer>(ByteCount(istr_MsgFmtText, ibln_InByteText)));
    return DigitsOf(istr_MsgFmtText, count, ibln_InByteText);
  });
}

void clsPublic::MsgFmtTextToBit(const String& istr_MsgFmtText, OptionalRef<Byte> rbyt_Bit0,
                                OptionalRef<Byte> rbyt_Bit1, OptionalRef<Byte> rbyt_Bit2,
                                OptionalRef<Byte> rbyt_Bit3, OptionalRef<Byte> rbyt_Bit4,
                                OptionalRef<Byte> rbyt_Bit5, OptionalRef<Byte> rbyt_Bit6,
                                OptionalRef<Byte> rbyt_Bit7, bool ibln_InByteText) {
  Trapped(*this, Member::MsgFmtTextToBit, [&] {
    if (ByteCount(istr_MsgFmtText, ibln_InByteText) == 0) {
      RaiseFault(FaultNumber::InvalidProcedureCall);
    }
    const Byte value = ByteOf(istr_MsgFmtText, 0, ibln_InByteText);
    int k = 0;
    for (Byte* const bit : {&*rbyt_Bit0, &*rbyt_Bit1, &*rbyt_Bit2, &*rbyt_Bit3, &*rbyt_Bit4,
                            &*rbyt_Bit5, &*rbyt_Bit6, &*rbyt_Bit7}) {
      *bit = static_cast<Byte>((value >> k++) & 1);
    }
  });
}

Long clsPublic::MsgFmtTextToDec(const String& istr_MsgFmtText, bool ibln_InByteText) {
  return Trapped(*this, Member::MsgFmtTextToDec, [&] {
    const String digits = MsgFmtTextToHex(istr_MsgFmtText, ibln_InByteText);
    Long value = 0;
    for (const char byte : BytesOf(digits.view())) {
      value = CheckedAdd(CheckedMultiply(value, Long{256}), Long{static_cast<Byte>(byte)});
    }
    return value;
  });
}

String clsPublic::BitToMsgFmtText(Byte ibyt_Bit0, Byte ibyt_Bit1, Byte ibyt_Bit2, Byte ibyt_Bit3,
                                  Byte ibyt_Bit4, Byte ibyt_Bit5, Byte ibyt_Bit6, Byte ibyt_Bit7,
                                  bool ibln_InByteText) {
  return Trapped(*this, Member::BitToMsgFmtText, [&] {
    int value = 0;
    int weight = 1;
    for (const Byte bit :
         {ibyt_Bit0, ibyt_Bit1, ibyt_Bit2, ibyt_Bit3, ibyt_Bit4, ibyt_Bit5, ibyt_Bit6, ibyt_Bit7}) {
      if (bit > 1) Reject(messages::kNotBits);
      value += weight * bit;
      weight *= 2;
    }
    return TextOf(std::string(1, static_cast<char>(value)), ibln_InByteText);
  });
}

String clsPublic::DecToMsgFmtText(Long ilng_DecVal, Integer iint_TextLen, bool ibln_InByteText) {
  return Trapped(*this, Member::DecToMsgFmtText, [&] {
    std::u16string digits = HexOf(static_cast<std::uint32_t>(ilng_DecVal));
    if (digits.size() % 2 != 0) digits.insert(digits.begin(), u'0');
    return HexToMsgFmtText(digits, iint_TextLen, true, u"0", ibln_InByteText);
  });
}

String clsPublic::HexToMsgFmtText(const String& istr_HexChr, Integer iint_TextLen,
                                  bool ibln_LeftPad, const String& istr_PadWith,
                                  bool ibln_InByteText) {
  return Trapped(*this, Member::HexToMsgFmtText, [&]() -> String {
    const String trimmed = TrimSpaces(istr_HexChr.view());
    const char16_t pad = istr_PadWith.Length() == 0 ? u'0' : istr_PadWith.view().front();
    // What is not hexadecimal gives nothing and no error, on purpose; the pad character too, also
    // where no padding is needed.
    if (!IsHex(trimmed) || !IsHex(std::u16string(1, pad))) return {};
    if (iint_TextLen <= 0 && trimmed.Length() % 2 == 0) {
      return TextOf(BytesOf(trimmed.view()), ibln_InByteText);
    }
    std::u16string digits(trimmed.view());
    if (iint_TextLen > 0) digits = Sized(digits, iint_TextLen, ibln_LeftPad, pad);
    if (digits.size() % 2 != 0) digits.insert(ibln_LeftPad ? 0 : digits.size(), 1, pad);
    return TextOf(BytesOf(digits), ibln_InByteText);
  });
}

}  // namespace vandpublic
