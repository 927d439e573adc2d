// The two conversion loops. Text is mostly characters whose byte is their unit (ASCII, and in 1252
// the accented letters too), so blocks of those are copied without looking anything up.
#include "platform/posix/table_code_page.h"

#include <algorithm>
#include <utility>

namespace vandpublic {
namespace {

constexpr std::size_t kBlock = 32;

// Which bytes have to be looked up: those with (byte & mask) == value. All others are their units.
struct LookedUp {
  unsigned char mask;
  unsigned char value;
};
constexpr LookedUp kUpperHalf = {0x80, 0x80};      // 80 to FF
constexpr LookedUp kUpperControls = {0xE0, 0x80};  // 80 to 9F

// Copies kBlock elements if none has to be looked up. Two loops without exits, and sums no wider
// than the elements: the compiler makes each a few vector instructions.
bool CopyBlock(const char16_t* from, char* to, LookedUp looked_up) noexcept {
  char16_t found = 0;
  for (std::size_t i = 0; i < kBlock; ++i) {
    const bool here = (from[i] & looked_up.mask) == looked_up.value;
    found = static_cast<char16_t>(found | (from[i] >> 8) | (here ? 1 : 0));
  }
  if (found != 0) return false;
  for (std::size_t i = 0; i < kBlock; ++i)
    to[i] = static_cast<char>(from[i]);
  return true;
}

bool CopyBlock(const char* from, char16_t* to, LookedUp looked_up) noexcept {
  unsigned char found = 0;
  for (std::size_t i = 0; i < kBlock; ++i) {
    const bool here = (static_cast<unsigned char>(from[i]) & looked_up.mask) == looked_up.value;
    found = static_cast<unsigned char>(found | (here ? 1 : 0));
  }
  if (found != 0) return false;
  for (std::size_t i = 0; i < kBlock; ++i)
    to[i] = static_cast<unsigned char>(from[i]);
  return true;
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
    for (; from.size() - at >= kBlock; at += kBlock) {
      if (CopyBlock(&from[at], &to[at], looked_up_)) continue;
      for (std::size_t i = at; i < at + kBlock; ++i)
        to[i] = look_up(from[i]);
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
    const char16_t* from = text.data() + plain;
    const char16_t* const end = text.data() + text.size();
    char* to = bytes.data() + plain;
    while (from != end) {
      const bool block = static_cast<std::size_t>(end - from) >= kBlock;
      if (block && CopyBlock(from, to, kUpperHalf)) {
        from += kBlock;
        to += kBlock;
        continue;
      }
      const char16_t* const stop = block ? from + kBlock : end;
      for (; from != stop; ++from)
        to = Put(tables_.codes[*from], to);
    }
    bytes.resize(static_cast<std::size_t>(to - bytes.data()));
    return bytes;
  }

  std::u16string Decode(std::string_view bytes) const override {
    std::u16string text(bytes.size(), u'\0');
    const char* from = bytes.data();
    const char* const end = from + bytes.size();
    char16_t* to = text.data();
    while (from != end) {
      const bool block = static_cast<std::size_t>(end - from) >= kBlock;
      if (block && CopyBlock(from, to, kUpperHalf)) {
        from += kBlock;
        to += kBlock;
        continue;
      }
      const char* const stop = block ? from + kBlock : end;
      while (from < stop)
        *to++ = Take(from, end);
    }
    text.resize(static_cast<std::size_t>(to - text.data()));
    return text;
  }

 private:
  static std::size_t CountPlain(std::u16string_view text) noexcept {
    const auto plain = [](char16_t unit) { return unit < 0x80; };
    return static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), plain) -
                                    text.begin());
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
