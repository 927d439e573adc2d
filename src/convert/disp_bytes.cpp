// DispBytes: a byte array as display text.
#include <algorithm>
#include <span>
#include <string>

#include "convert/array_size.h"
#include "convert/hex_digits.h"
#include "frame/trap.h"
#include "members/messages.h"

namespace vandpublic {
namespace {

constexpr std::u16string_view kLineEnd = u"\r\n";

// Every byte is followed by one blank, also the last: callers rely on three characters a byte.
std::u16string HexDump(std::span<const Byte> bytes, std::size_t per_line) {
  std::u16string text(3 * bytes.size() + kLineEnd.size() * (bytes.size() / per_line), u' ');
  char16_t* out = text.data();
  std::size_t in_line = 0;
  for (const Byte value : bytes) {
    WriteHexByte(value, out);
    out += 3;
    if (++in_line < per_line) continue;
    in_line = 0;
    out = std::copy(kLineEnd.begin(), kLineEnd.end(), out);
  }
  return text;
}

std::u16string DecimalDump(std::span<const Byte> bytes, std::size_t per_line) {
  std::u16string text;
  text.reserve(4 * bytes.size());
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const int value = bytes[i];
    if (value >= 100) text += kHexDigits[static_cast<std::size_t>(value / 100)];
    if (value >= 10) text += kHexDigits[static_cast<std::size_t>(value / 10 % 10)];
    text += kHexDigits[static_cast<std::size_t>(value % 10)];
    text += u' ';
    if ((i + 1) % per_line == 0) text += kLineEnd;
  }
  return text;
}

}  // namespace

String clsPublic::DispBytes(ByteArray& arr_Bytes, Integer iint_DispNum, Integer iint_CntPerLine,
                            bool ibln_HexStr, OptionalRef<String> rstr_ErrDesc) {
  return Trapped(*this, Member::DispBytes, rstr_ErrDesc, [&]() -> String {
    if (iint_CntPerLine <= 0) Reject(messages::kInvalidCountPerLine);
    if (iint_DispNum < 0) Reject(messages::kInvalidDisplayNumber);
    Long count = SizeOf(*this, arr_Bytes);
    if (iint_DispNum > 0) count = std::min(count, Long{iint_DispNum});
    if (count == 0) return {};

    // From absolute subscript 0 on, whatever the lower bound.
    arr_Bytes.At(count - 1);
    const std::span<const Byte> bytes(&arr_Bytes.At(0), static_cast<std::size_t>(count));
    const auto per_line = static_cast<std::size_t>(iint_CntPerLine);
    return ibln_HexStr ? HexDump(bytes, per_line) : DecimalDump(bytes, per_line);
  });
}

}  // namespace vandpublic
