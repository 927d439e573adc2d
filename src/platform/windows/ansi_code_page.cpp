// Conversion by the system, in steps that leave nothing to its taste: characters are never
// replaced by similar ones, and what a page lacks is one "?" for each unit.
#include "platform/windows/ansi_code_page.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <limits>

#include "platform/windows/wide_text.h"
#include "runtime/errors.h"

namespace vandpublic {
namespace {

constexpr UINT kUtf8 = CP_UTF8;
constexpr char16_t kForeign = u'?';

// The system counts in ints; longer texts are converted in pieces.
constexpr std::size_t kPiece = std::size_t{1} << 24;

bool IsSurrogate(char16_t unit) noexcept { return unit >= 0xD800 && unit <= 0xDFFF; }
bool IsHigh(char16_t unit) noexcept { return unit >= 0xD800 && unit <= 0xDBFF; }
bool IsLow(char16_t unit) noexcept { return unit >= 0xDC00 && unit <= 0xDFFF; }

CPINFOEXW InfoOf(UINT page) {
  CPINFOEXW info{};
  if (GetCPInfoExW(page, 0, &info) == 0) RaiseFault(FaultNumber::InternalError);
  return info;
}

// The lead bytes of a double-byte page.
std::array<bool, 256> LeadBytes(const CPINFOEXW& info) {
  std::array<bool, 256> leads{};
  // Pairs of first and last, up to a pair of zeros.
  for (std::size_t i = 0; i + 1 < MAX_LEADBYTES && info.LeadByte[i] != 0; i += 2) {
    for (std::size_t byte = info.LeadByte[i]; byte <= info.LeadByte[i + 1]; ++byte)
      leads[byte] = true;
  }
  return leads;
}

class AnsiCodePage final : public CodePage {
 public:
  explicit AnsiCodePage(UINT page) : AnsiCodePage(page, InfoOf(page)) {}

  int number() const noexcept override { return static_cast<int>(page_); }

  std::string Encode(std::u16string_view text) const override {
    std::string bytes;
    bytes.reserve(text.size());
    while (!text.empty()) {
      const std::size_t run = RunLength(text);
      if (run == 0) {
        bytes += '?';
        text.remove_prefix(1);
      } else {
        AppendRun(bytes, text.substr(0, run));
        text.remove_prefix(run);
      }
    }
    return bytes;
  }

  std::u16string Decode(std::string_view bytes) const override {
    std::u16string text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
      const std::string_view piece = bytes.substr(0, PieceLength(bytes));
      if (!AppendWhole(text, piece)) AppendCharacters(text, piece);
      bytes.remove_prefix(piece.size());
    }
    return text;
  }

 private:
  AnsiCodePage(UINT page, const CPINFOEXW& info)
      : page_(page), leads_(LeadBytes(info)), default_(info.UnicodeDefaultChar) {}

  // How many units at the front can be handed to the system at once. In the ANSI pages no
  // surrogate has a place, paired or not; UTF-8 has the pairs.
  std::size_t RunLength(std::u16string_view text) const noexcept {
    std::size_t length = 0;
    while (length < text.size() && length < kPiece) {
      if (!IsSurrogate(text[length])) {
        ++length;
      } else if (page_ == kUtf8 && IsHigh(text[length]) && length + 1 < text.size() &&
                 IsLow(text[length + 1])) {
        length += 2;
      } else {
        break;
      }
    }
    return length;
  }

  void AppendRun(std::string& bytes, std::u16string_view run) const {
    // No unit takes more: two bytes in the double-byte pages, three in UTF-8.
    constexpr std::size_t kMostBytes = 3;
    const std::size_t before = bytes.size();
    bytes.resize(before + run.size() * kMostBytes);
    // UTF-8 takes neither the flag nor a replacement, and needs none.
    const bool is_utf8 = page_ == kUtf8;
    const int written = WideCharToMultiByte(
        page_, is_utf8 ? 0 : WC_NO_BEST_FIT_CHARS, WideUnits(run), static_cast<int>(run.size()),
        bytes.data() + before, static_cast<int>(bytes.size() - before), is_utf8 ? nullptr : "?",
        nullptr);
    if (written <= 0) RaiseFault(FaultNumber::InternalError);
    bytes.resize(before + static_cast<std::size_t>(written));
  }

  // Up to a character's end.
  std::size_t PieceLength(std::string_view bytes) const noexcept {
    if (bytes.size() <= kPiece) return bytes.size();
    std::size_t length = 0;
    while (length < kPiece)
      length += CharacterLength(bytes.substr(length));
    return length;
  }

  std::size_t CharacterLength(std::string_view bytes) const noexcept {
    std::size_t length = leads_[static_cast<unsigned char>(bytes.front())] ? 2 : 1;
    if (page_ == kUtf8) {
      while (length < bytes.size() && (static_cast<unsigned char>(bytes[length]) & 0xC0) == 0x80)
        ++length;
    }
    return std::min(length, bytes.size());
  }

  // False, and nothing appended, where the system finds bytes that are no characters of the page;
  // it counts undefined ones among them that it can decode. UTF-8 decodes anyway.
  bool AppendWhole(std::u16string& text, std::string_view bytes) const {
    const std::size_t before = text.size();
    text.resize(before + bytes.size());
    const int written = MultiByteToWideChar(
        page_, page_ == kUtf8 ? 0 : MB_ERR_INVALID_CHARS, bytes.data(),
        static_cast<int>(bytes.size()), WideUnits(text) + before, static_cast<int>(bytes.size()));
    text.resize(before + static_cast<std::size_t>(std::max(written, 0)));
    return written > 0;
  }

  void AppendCharacters(std::u16string& text, std::string_view bytes) const {
    while (!bytes.empty()) {
      const std::size_t length = CharacterLength(bytes);
      text += DecodedCharacter(bytes.substr(0, length));
      bytes.remove_prefix(length);
    }
  }

  // One byte, or a lead byte with what follows it. The system answers what is no character with its
  // default one, in some versions with that and the trail byte.
  char16_t DecodedCharacter(std::string_view bytes) const {
    const bool is_cut = bytes.size() == 1 && leads_[static_cast<unsigned char>(bytes.front())];
    if (is_cut) return kForeign;
    wchar_t units[2] = {};
    const int count =
        MultiByteToWideChar(page_, 0, bytes.data(), static_cast<int>(bytes.size()), units, 2);
    const auto unit = static_cast<char16_t>(units[0]);
    if (count != 1) return kForeign;
    if (unit == default_ && Encode({&unit, 1}) != bytes) return kForeign;
    return unit;
  }

  UINT page_;
  std::array<bool, 256> leads_;
  char16_t default_;
};

}  // namespace

std::shared_ptr<const CodePage> SystemCodePage() {
  return std::make_shared<AnsiCodePage>(GetACP());
}

std::shared_ptr<const CodePage> FindCodePage(int number) {
  const bool is_known =
      std::find(std::begin(kCodePages), std::end(kCodePages), number) != std::end(kCodePages);
  if (!is_known || IsValidCodePage(static_cast<UINT>(number)) == 0) return nullptr;
  return std::make_shared<AnsiCodePage>(static_cast<UINT>(number));
}

}  // namespace vandpublic
