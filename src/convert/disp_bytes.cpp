// DispBytes: a byte array as display text.
#include <algorithm>
#include <array>
#include <cstdint>
#include <span>
#include <string>

#include "convert/array_size.h"
#include "convert/hex_digits.h"
#include "convert/hex_loops.h"
#include "frame/trap.h"
#include "members/messages.h"

namespace vandpublic {
namespace {

constexpr std::u16string_view kLineEnd = u"\r\n";

// Every byte is followed by one blank, also the last: callers rely on three characters a byte.
std::u16string HexDump(std::span<const Byte> bytes, std::size_t per_line) {
  std::u16string text(3 * bytes.size() + kLineEnd.size() * (bytes.size() / per_line), u' ');
  DumpHex(bytes, per_line, text.data());
  return text;
}

// A number of up to three digits and a blank, and how many units that makes.
struct DecimalEntry {
  std::array<char16_t, 4> units{};
  std::uint8_t size = 0;
};

constexpr DecimalEntry DecimalEntryOf(std::size_t value) {
  DecimalEntry entry;
  if (value >= 100) entry.units[entry.size++] = kHexDigits[value / 100];
  if (value >= 10) entry.units[entry.size++] = kHexDigits[value / 10 % 10];
  entry.units[entry.size++] = kHexDigits[value % 10];
  entry.units[entry.size++] = u' ';
  return entry;
}

constexpr auto kDecimalEntries = [] {
  std::array<DecimalEntry, 256> entries{};
  for (std::size_t value = 0; value < entries.size(); ++value)
    entries[value] = DecimalEntryOf(value);
  return entries;
}();

// Each number is written with all four units of its entry, and the next one over the rest of them.
std::u16string DecimalDump(std::span<const Byte> bytes, std::size_t per_line) {
  std::u16string text(4 * bytes.size() + kLineEnd.size() * (bytes.size() / per_line), u' ');
  char16_t* out = text.data();
  std::size_t in_line = 0;
  for (const Byte value : bytes) {
    const DecimalEntry& entry = kDecimalEntries[value];
    std::copy(entry.units.begin(), entry.units.end(), out);
    out += entry.size;
    if (++in_line < per_line) continue;
    in_line = 0;
    out = std::copy(kLineEnd.begin(), kLineEnd.end(), out);
  }
  text.resize(static_cast<std::size_t>(out - text.data()));
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
