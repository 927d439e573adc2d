// The hexadecimal loops in plain C++. Blocks have a fixed size and no way out in the middle, and
// sums are no wider than the elements: so the compiler makes each loop a few vector instructions.
#include <array>
#include <cstdint>
#include <cstring>

#include "convert/hex_digits.h"
#include "convert/hex_loops_forms.h"
#include "runtime/wipe.h"

namespace vandpublic {
namespace {

constexpr std::size_t kBlock = 64;  // units

// The digit of 0 to 15, without a table: a look-up would keep the loop from being a vector's.
constexpr Byte DigitOf(int value) {
  return static_cast<Byte>(value + '0' + (value > 9 ? 'A' - '0' - 10 : 0));
}

void Encode(const Byte* bytes, std::size_t count, char16_t* digits) {
  for (std::size_t i = 0; i < count; ++i) {
    digits[2 * i] = DigitOf(bytes[i] >> 4);
    digits[2 * i + 1] = DigitOf(bytes[i] & 15);
  }
}

// The values of a block of upper-case digits; false when one is none, `values` is of no use then.
bool ReadBlock(const char16_t* digits, Byte* values) {
  char16_t high = 0;
  for (std::size_t i = 0; i < kBlock; ++i)
    high = static_cast<char16_t>(high | digits[i]);
  for (std::size_t i = 0; i < kBlock; ++i)
    values[i] = static_cast<Byte>(digits[i]);
  Byte good = 0xFF;
  for (std::size_t i = 0; i < kBlock; ++i) {
    const auto number = static_cast<Byte>(values[i] - '0');
    const auto letter = static_cast<Byte>(values[i] - 'A');
    const auto is_number = static_cast<Byte>(number < 10 ? 0xFF : 0);
    const auto is_letter = static_cast<Byte>(letter < 6 ? 0xFF : 0);
    good = static_cast<Byte>(good & (is_number | is_letter));
    values[i] = static_cast<Byte>((number & is_number) | ((letter + 10) & is_letter));
  }
  return good == 0xFF && high <= 0xFF;
}

std::size_t DecodeSlowly(const char16_t* digits, std::size_t pairs, Byte* bytes) {
  for (std::size_t i = 0; i < pairs; ++i) {
    const int high = UpperHexDigitValue(digits[2 * i]);
    const int low = UpperHexDigitValue(digits[2 * i + 1]);
    if (high < 0 || low < 0) return i;
    bytes[i] = static_cast<Byte>(16 * high + low);
  }
  return pairs;
}

std::size_t DecodeBlocks(const char16_t* digits, std::size_t pairs, Byte* bytes) {
  std::array<Byte, kBlock>
      values;  // NOLINT(cppcoreguidelines-pro-type-member-init): no time for it
  const WipeOnExit wipe(values);
  std::size_t at = 0;
  for (; pairs - at >= kBlock / 2; at += kBlock / 2) {
    if (!ReadBlock(digits + 2 * at, values.data())) break;
    for (std::size_t i = 0; i < kBlock / 2; ++i)
      bytes[at + i] = static_cast<Byte>(values[2 * i] << 4 | values[2 * i + 1]);
  }
  return at;
}

std::size_t Decode(const char16_t* digits, std::size_t pairs, Byte* bytes) {
  const std::size_t done = pairs < kBlock / 2 ? 0 : DecodeBlocks(digits, pairs, bytes);
  return done + DecodeSlowly(digits + 2 * done, pairs - done, bytes + done);
}

bool AreDigits(const char16_t* text, std::size_t size) {
  std::size_t at = 0;
  for (; size - at >= kBlock; at += kBlock) {
    std::uint16_t good = 0xFFFF;
    for (std::size_t i = 0; i < kBlock; ++i) {
      const auto number = static_cast<std::uint16_t>(text[at + i] - u'0');
      const auto letter = static_cast<std::uint16_t>((text[at + i] | 0x20) - u'a');
      const std::uint16_t here = (number < 10 ? 0xFFFF : 0) | (letter < 6 ? 0xFFFF : 0);
      good = static_cast<std::uint16_t>(good & here);
    }
    if (good != 0xFFFF) return false;
  }
  for (; at < size; ++at) {
    if (HexDigitValue(text[at]) < 0) return false;
  }
  return true;
}

// What a dump has for each byte: two digits, a blank, and a fourth unit that the next byte covers.
using DumpEntry = std::array<char16_t, 4>;

constexpr std::array<DumpEntry, 256> DumpEntries() {
  std::array<DumpEntry, 256> entries{};
  for (std::size_t value = 0; value < entries.size(); ++value) {
    WriteHexByte(static_cast<Byte>(value), entries[value].data());
    entries[value][2] = u' ';
  }
  return entries;
}

constexpr std::array<DumpEntry, 256> kDumpEntries = DumpEntries();

void DumpLine(const Byte* bytes, std::size_t count, char16_t* text) {
  constexpr std::size_t kStep = 4;
  std::size_t i = 0;
  for (; count - i > kStep; i += kStep) {
    for (std::size_t k = 0; k < kStep; ++k)
      std::memcpy(text + 3 * (i + k), &kDumpEntries[bytes[i + k]], sizeof(DumpEntry));
  }
  for (; i + 1 < count; ++i)
    std::memcpy(text + 3 * i, &kDumpEntries[bytes[i]], sizeof(DumpEntry));
  if (i < count) std::memcpy(text + 3 * i, &kDumpEntries[bytes[i]], 3 * sizeof(char16_t));
}

bool Always() { return true; }

}  // namespace

const HexLoops kPlainHexLoops = {"plain", Always, Encode, Decode, AreDigits, DumpLines<DumpLine>};

}  // namespace vandpublic
