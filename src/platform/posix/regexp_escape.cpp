// The backslash escapes of the scripting dialect, one character or one fixed class each.
#include "platform/posix/regexp_escape.h"

#include <cstdint>

#include "runtime/errors.h"

namespace vandpublic {
namespace {

constexpr unsigned kLargestOctal = 0377;

// A set of ASCII characters; every unit of a pattern is looked up in one.
class AsciiSet {
 public:
  constexpr explicit AsciiSet(std::u16string_view members) noexcept {
    for (const char16_t member : members)
      words_[member / 64] |= std::uint64_t{1} << member % 64;
  }
  constexpr bool Holds(char16_t unit) const noexcept {
    return unit < 128 && ((words_[unit / 64] >> unit % 64) & 1) != 0;
  }

 private:
  std::uint64_t words_[2] = {};
};

// The value of a hexadecimal digit, 16 for any other unit.
constexpr unsigned HexDigit(char16_t unit) noexcept {
  if (unit >= u'0' && unit <= u'9') return static_cast<unsigned>(unit - u'0');
  const auto lower = static_cast<char16_t>(unit | 0x20);
  if (lower >= u'a' && lower <= u'f') return static_cast<unsigned>(lower - u'a') + 10;
  return 16;
}

constexpr bool IsAsciiLetter(char16_t unit) noexcept {
  const auto lower = static_cast<char16_t>(unit | 0x20);
  return lower >= u'a' && lower <= u'z' && unit < 0x80;
}

// \x and \u: `digits` hexadecimal digits, or the letter alone when they are not all there.
char16_t ReadHex(RegExpReader& reader, char16_t letter, std::size_t digits) noexcept {
  const std::u16string_view rest = reader.Rest();
  if (rest.size() < digits) return letter;
  unsigned value = 0;
  for (const char16_t unit : rest.substr(0, digits)) {
    const unsigned digit = HexDigit(unit);
    if (digit == 16) return letter;
    value = value * 16 + digit;
  }
  reader.Skip(digits);
  return static_cast<char16_t>(value);
}

char16_t ReadControl(RegExpReader& reader) noexcept {
  if (reader.AtEnd() || !IsAsciiLetter(reader.Rest()[0])) return u'c';
  return static_cast<char16_t>(reader.Take() & 31);
}

char16_t ReadOctal(RegExpReader& reader, unsigned value) noexcept {
  for (int more = 0; more < 2 && !reader.AtEnd(); ++more) {
    const char16_t next = reader.Rest()[0];
    if (next < u'0' || next > u'7') break;
    const unsigned longer = value * 8 + static_cast<unsigned>(next - u'0');
    if (longer > kLargestOctal) break;
    value = longer;
    reader.Skip(1);
  }
  return static_cast<char16_t>(value);
}

}  // namespace

bool IsFixedClassLetter(char16_t letter) noexcept {
  return std::u16string_view(u"dDwWsS").find(letter) != std::u16string_view::npos;
}

char16_t ReadCharacterEscape(RegExpReader& reader) {
  if (reader.AtEnd()) RaiseFault(FaultNumber::RegExpSyntaxError);
  const char16_t letter = reader.Take();
  if (letter >= u'0' && letter <= u'7') {
    return ReadOctal(reader, static_cast<unsigned>(letter - u'0'));
  }
  switch (letter) {
    case u'f':
      return u'\f';
    case u'n':
      return u'\n';
    case u'r':
      return u'\r';
    case u't':
      return u'\t';
    case u'v':
      return u'\v';
    case u'c':
      return ReadControl(reader);
    case u'x':
      return ReadHex(reader, letter, 2);
    case u'u':
      return ReadHex(reader, letter, 4);
    default:
      return letter;
  }
}

void AppendLiteral(std::u16string& text, char16_t unit) {
  static constexpr AsciiSet kSpecial(u"\\^$.[|()?*+{");
  if (kSpecial.Holds(unit)) text.push_back(u'\\');
  text.push_back(unit);
}

void AppendMember(std::u16string& text, char16_t unit) {
  static constexpr AsciiSet kSpecial(u"\\[]^-");
  if (kSpecial.Holds(unit)) text.push_back(u'\\');
  text.push_back(unit);
}

// Under full folding the matcher would take its own \d, \w and \s for the Unicode sets, so they
// are spelled out; otherwise its short forms are the same ASCII sets, and faster.
std::u16string_view FixedClassMembers(char16_t letter, RegExpFolding folding) noexcept {
  const bool spell_out = folding == RegExpFolding::Full;
  switch (letter) {
    case u'd':
      return spell_out ? u"0-9" : u"\\d";
    case u'D':
      return spell_out ? u"\\x{0}-/:-\\x{ffff}" : u"\\D";
    case u'w':
      return spell_out ? u"0-9A-Z_a-z" : u"\\w";
    case u'W':
      return spell_out ? u"\\x{0}-/:-@\\[-\\^`{-\\x{ffff}" : u"\\W";
    case u's':
      return spell_out ? u"\\t-\\r " : u"\\s";
    default:
      return spell_out ? u"\\x{0}-\\x{8}\\x{e}-\\x{1f}!-\\x{ffff}" : u"\\S";
  }
}

}  // namespace vandpublic
