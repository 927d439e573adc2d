// The two conversion loops. Text is mostly characters whose byte is their unit (ASCII, and in 1252
// the accented letters too), so blocks are copied first, and what has to be looked up is put over
// it.
#include "platform/posix/table_code_page.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <utility>

namespace vandpublic {
namespace {

constexpr std::size_t kBlock = 64;
constexpr std::size_t kWord = sizeof(std::uint64_t);
constexpr std::uint64_t kUpperHalves = 0x8080808080808080;

// Which bytes have to be looked up: those with (byte & mask) == value. All others are their units.
struct LookedUp {
  unsigned char mask;
  unsigned char value;
};
constexpr LookedUp kUpperHalf = {0x80, 0x80};      // 80 to FF
constexpr LookedUp kUpperControls = {0xE0, 0x80};  // 80 to 9F

// Tells for each element of a block whether it has to be looked up: 1 or 0.
using Marks = std::array<std::uint8_t, kBlock>;

// Copies kBlock elements as they are and marks those that have to be looked up. True when there are
// any. Loops without exits, and nothing wider than the elements: the compiler makes each a few
// vector instructions.
bool CopyBlock(const char16_t* from, char* to, LookedUp looked_up, Marks& marks) noexcept {
  char16_t high = 0;
  for (std::size_t i = 0; i < kBlock; ++i) {
    to[i] = static_cast<char>(from[i]);
    high = static_cast<char16_t>(high | (from[i] & 0xFF00));
  }
  std::uint8_t found = 0;
  for (std::size_t i = 0; i < kBlock; ++i) {
    const bool here = (static_cast<unsigned char>(to[i]) & looked_up.mask) == looked_up.value;
    marks[i] = here ? 1 : 0;
    found = static_cast<std::uint8_t>(found | marks[i]);
  }
  if (high == 0) return found != 0;
  for (std::size_t i = 0; i < kBlock; ++i)
    marks[i] = static_cast<std::uint8_t>(marks[i] | (from[i] > 0xFF ? 1 : 0));
  return true;
}

bool CopyBlock(const char* from, char16_t* to, LookedUp looked_up, Marks& marks) noexcept {
  const auto is_here = [&](char c) {
    return (static_cast<unsigned char>(c) & looked_up.mask) == looked_up.value;
  };
  std::uint8_t found = 0;
  for (std::size_t i = 0; i < kBlock; ++i)
    found = static_cast<std::uint8_t>(found | (is_here(from[i]) ? 1 : 0));
  for (std::size_t i = 0; i < kBlock; ++i)
    to[i] = static_cast<unsigned char>(from[i]);
  if (found == 0) return false;
  for (std::size_t i = 0; i < kBlock; ++i)
    marks[i] = is_here(from[i]) ? 1 : 0;
  return true;
}

// Calls look_up with the place of each mark, from the first to the last of those in a word.
template <class LookUp>
void ForEachMark(const Marks& marks, const LookUp& look_up) {
  for (std::size_t start = 0; start < kBlock; start += kWord) {
    std::uint64_t word = 0;
    std::memcpy(&word, &marks[start], kWord);
    if constexpr (std::endian::native == std::endian::big) word = __builtin_bswap64(word);
    for (; word != 0; word &= word - 1)
      look_up(start + static_cast<std::size_t>(std::countr_zero(word)) / 8);
  }
}

class SingleByteCodePage final : public CodePage {
 public:
  SingleByteCodePage(int number, CodePageTables tables)
      : number_(number), tables_(std::move(tables)), looked_up_(Find(tables_)) {}

  int number() const noexcept override { return number_; }

  std::string Encode(std::u16string_view text) const override {
    std::string bytes(text.size(), '\0');
    const std::uint16_t* const codes = tables_.codes.data();
    ConvertBlocks(text, bytes, [codes](char16_t unit) { return static_cast<char>(codes[unit]); });
    return bytes;
  }

  std::u16string Decode(std::string_view bytes) const override {
    std::u16string text(bytes.size(), u'\0');
    const auto& units = tables_.singles;
    ConvertBlocks(bytes, text, [&](char byte) { return units[static_cast<unsigned char>(byte)]; });
    return text;
  }

 private:
  static LookedUp Find(const CodePageTables& tables) noexcept {
    for (unsigned byte = 0xA0; byte <= 0xFF; ++byte) {
      if (tables.singles[byte] != byte) return kUpperHalf;
    }
    return kUpperControls;
  }

  template <typename From, typename To, typename LookUp>
  void ConvertBlocks(From from, To& to, const LookUp& look_up) const {
    std::size_t at = 0;
    Marks marks;
    for (; from.size() - at >= kBlock; at += kBlock) {
      if (!CopyBlock(&from[at], &to[at], looked_up_, marks)) continue;
      ForEachMark(marks, [&](std::size_t i) { to[at + i] = look_up(from[at + i]); });
    }
    for (; at < from.size(); ++at)
      to[at] = look_up(from[at]);
  }

  int number_;
  CodePageTables tables_;
  LookedUp looked_up_;
};

class DoubleByteCodePage final : public CodePage {
 public:
  DoubleByteCodePage(int number, CodePageTables tables)
      : number_(number), tables_(std::move(tables)) {}

  int number() const noexcept override { return number_; }

  std::string Encode(std::u16string_view text) const override {
    const std::size_t plain = CountPlain(text);
    std::string bytes(plain + 2 * (text.size() - plain), '\0');
    std::transform(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(plain), bytes.begin(),
                   [](char16_t unit) { return static_cast<char>(unit); });
    char* to = bytes.data() + plain;
    for (const char16_t unit : text.substr(plain))
      to = Put(tables_.codes[unit], to);
    bytes.resize(static_cast<std::size_t>(to - bytes.data()));
    return bytes;
  }

  std::u16string Decode(std::string_view bytes) const override {
    std::u16string text(bytes.size(), u'\0');
    const char* from = bytes.data();
    const char* const end = from + bytes.size();
    char16_t* to = text.data();
    while (from != end) {
      const std::size_t plain = CopyPlain(from, end, to);
      from += plain;
      to += plain;
      // Characters of two bytes come in runs.
      while (from != end && !IsPlain(*from))
        *to++ = Take(from, end);
    }
    text.resize(static_cast<std::size_t>(to - text.data()));
    return text;
  }

 private:
  static bool IsPlain(char byte) noexcept { return static_cast<unsigned char>(byte) < 0x80; }

  // ASCII characters in front, in whole blocks; a few more are not worth counting.
  static std::size_t CountPlain(std::u16string_view text) noexcept {
    std::size_t at = 0;
    for (; text.size() - at >= kBlock; at += kBlock) {
      char16_t all = 0;
      for (std::size_t i = 0; i < kBlock; ++i)
        all = static_cast<char16_t>(all | text[at + i]);
      if (all >= 0x80) return at;
    }
    const auto plain = [](char16_t unit) { return unit < 0x80; };
    const std::u16string_view rest = text.substr(at);
    return std::all_of(rest.begin(), rest.end(), plain) ? text.size() : at;
  }

  // Copies the ASCII bytes in front and returns their number. It copies whole words, so up to
  // seven units behind them are overwritten; no more than there are bytes left.
  static std::size_t CopyPlain(const char* from, const char* end, char16_t* to) noexcept {
    const auto size = static_cast<std::size_t>(end - from);
    std::size_t at = 0;
    for (; size - at >= kBlock; at += kBlock) {
      if (!AllPlain(from + at)) break;
      for (std::size_t i = 0; i < kBlock; ++i)
        to[at + i] = static_cast<unsigned char>(from[at + i]);
    }
    for (; size - at >= kWord; at += kWord) {
      std::uint64_t word = 0;
      std::memcpy(&word, from + at, kWord);
      for (std::size_t i = 0; i < kWord; ++i)
        to[at + i] = static_cast<unsigned char>(from[at + i]);
      if ((word & kUpperHalves) != 0) return at + CountPlain(word);
    }
    for (; at < size && IsPlain(from[at]); ++at)
      to[at] = static_cast<unsigned char>(from[at]);
    return at;
  }

  static bool AllPlain(const char* block) noexcept {
    unsigned char all = 0;
    for (std::size_t i = 0; i < kBlock; ++i)
      all = static_cast<unsigned char>(all | static_cast<unsigned char>(block[i]));
    return all < 0x80;
  }

  // The ASCII bytes in front of the first other one of a word in memory.
  static std::size_t CountPlain(std::uint64_t word) noexcept {
    const std::uint64_t high = word & kUpperHalves;
    const int bits = std::endian::native == std::endian::little ? std::countr_zero(high)
                                                                : std::countl_zero(high);
    return static_cast<std::size_t>(bits) / 8;
  }

  // Writes two bytes even for a code of one, to spare a branch that text makes unpredictable. The
  // result has room for two bytes for each unit, so the second one is never past its end.
  static char* Put(unsigned code, char* to) noexcept {
    const bool two = code > 0xFF;
    to[0] = static_cast<char>(two ? code >> 8 : code);
    to[1] = static_cast<char>(code);
    return to + 1 + two;
  }

  // The next character, whose lead byte stands at `from`; moves `from` behind it.
  char16_t Take(const char*& from, const char* end) const noexcept {
    const std::size_t lead = static_cast<unsigned char>(*from++);
    const char16_t unit = tables_.singles[lead];
    if (unit != CodePageTables::kLeadMark) return unit;
    if (from == end) return kReplacement;
    return tables_.pairs[lead * 256 + static_cast<unsigned char>(*from++)];
  }

  int number_;
  CodePageTables tables_;
};

}  // namespace

std::shared_ptr<const CodePage> MakeTableCodePage(int number, CodePageTables tables) {
  if (tables.pairs.empty()) return std::make_shared<SingleByteCodePage>(number, std::move(tables));
  return std::make_shared<DoubleByteCodePage>(number, std::move(tables));
}

}  // namespace vandpublic
