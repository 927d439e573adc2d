// Texts, numbers and bytes of registry entries, turned into what a query gives.
#include "platform/posix/registry_data.h"

#include <bit>
#include <cstdint>
#include <utility>

#include "platform/posix/utf16_bytes.h"

namespace vandpublic {
namespace {

constexpr std::uint32_t kTypeText = 1;
constexpr std::uint32_t kTypeExpandText = 2;
constexpr std::uint32_t kTypeBinary = 3;
constexpr std::uint32_t kTypeTextList = 7;

bool IsText(std::uint32_t type) noexcept {
  return type == kTypeText || type == kTypeExpandText || type == kTypeTextList;
}

// One to eight digits.
std::optional<std::uint32_t> ReadHexNumber(RegistryCursor& cursor) noexcept {
  constexpr int kMostDigits = 8;
  std::uint32_t number = 0;
  for (int digits = 0;; ++digits) {
    const int digit = cursor.TakeHexDigit();
    if (digit < 0) return digits > 0 ? std::optional(number) : std::nullopt;
    if (digits == kMostDigits) return std::nullopt;
    number = number * 16 + static_cast<std::uint32_t>(digit);
  }
}

// Goes past a "\" at a line's end. False when no bytes stand on the next line; it is not skipped
// then, since it may be an entry that is in order.
bool ContinueOnNextLine(RegistryCursor& cursor, RegistryProblems& problems) {
  if (!cursor.AtLastWord()) {
    problems.Add(cursor.line(), "a \"\\\" between bytes must be the last character of its line");
    cursor.SkipContinuedLine();
    return false;
  }
  const std::size_t line = cursor.line();
  cursor.SkipLine();
  cursor.SkipBlanks();
  if (cursor.AtHexDigit()) return true;
  problems.Add(line, "the line ends with a \"\\\", but no more bytes follow");
  return false;
}

// False after a problem, with the cursor at the start of the line after the entry.
bool ReadHexBytes(RegistryCursor& cursor, std::string& bytes, RegistryProblems& problems) {
  while (!cursor.AtLastWord()) {
    if (cursor.Take(u'\\')) {
      if (!ContinueOnNextLine(cursor, problems)) return false;
      continue;
    }
    const int first = cursor.TakeHexDigit();
    if (first < 0) {
      problems.Add(cursor.line(), "a byte of two hexadecimal digits expected");
      cursor.SkipContinuedLine();
      return false;
    }
    const int second = cursor.TakeHexDigit();
    bytes.push_back(static_cast<char>(second < 0 ? first : first * 16 + second));
    if (cursor.AtLastWord() || cursor.Take(u',')) continue;
    problems.Add(cursor.line(), "a comma expected between two bytes");
    cursor.SkipContinuedLine();
    return false;
  }
  return true;
}

// A text's bytes as they stand in the file, in the ANSI page and with a zero at the end.
std::string AnsiText(std::string bytes, const RegistryDialect& dialect) {
  if (dialect.wide) bytes = dialect.page.Encode(Utf16FromBytes(bytes, std::endian::little));
  if (!bytes.empty() && bytes.back() != '\0') bytes.push_back('\0');
  return bytes;
}

// The cursor is behind "hex".
std::optional<RegistryData> ReadHex(RegistryCursor& cursor, const RegistryDialect& dialect,
                                    RegistryProblems& problems) {
  std::optional<std::uint32_t> type = kTypeBinary;
  if (cursor.Take(u'(')) {
    type = ReadHexNumber(cursor);
    if (!cursor.Take(u')')) type.reset();
  }
  if (!type || !cursor.Take(u':')) {
    problems.Add(cursor.line(), "\"hex:\" or \"hex(TYPE):\" expected");
    cursor.SkipContinuedLine();
    return std::nullopt;
  }
  const std::size_t line = cursor.line();
  RegistryData data;
  if (!ReadHexBytes(cursor, data.bytes, problems)) return std::nullopt;
  if (!IsText(*type)) return data;
  if (dialect.wide && data.bytes.size() % 2 != 0) {
    problems.Add(line, "a text of UTF-16 has an odd number of bytes, the last is ignored");
  }
  data.bytes = AnsiText(std::move(data.bytes), dialect);
  return data;
}

// The cursor is behind "dword:".
std::optional<RegistryData> ReadDword(RegistryCursor& cursor, RegistryProblems& problems) {
  const std::optional<std::uint32_t> number = ReadHexNumber(cursor);
  if (!number) {
    problems.Add(cursor.line(), "one to eight hexadecimal digits expected after \"dword:\"");
    cursor.SkipLine();
    return std::nullopt;
  }
  RegistryData data;
  for (unsigned shift = 0; shift < 32; shift += 8) {
    data.bytes.push_back(static_cast<char>((*number >> shift) & 0xFF));
  }
  return data;
}

// A missing quotation mark shows at the next one, lines later; so that only this entry is lost,
// what stands behind the closing mark decides whether it belongs to this text.
std::optional<RegistryData> ReadText(RegistryCursor& cursor, const RegistryDialect& dialect,
                                     RegistryProblems& problems) {
  const RegistryCursor start = cursor;
  const std::optional<RegistryQuoted> quoted = ReadRegistryQuoted(cursor, true);
  const bool spans_lines = cursor.line() != start.line();
  if (!quoted || (spans_lines && !cursor.AtLastWord())) {
    cursor = start;
    problems.Add(cursor.line(), "the text has no closing quotation mark");
    cursor.SkipLine();
    return std::nullopt;
  }
  if (quoted->has_lone_backslash) problems.Add(start.line(), kLoneBackslash);
  return RegistryData{false, dialect.page.Encode(quoted->text) + '\0'};
}

}  // namespace

std::optional<RegistryData> ReadRegistryData(RegistryCursor& cursor, const RegistryDialect& dialect,
                                             RegistryProblems& problems) {
  if (!cursor.AtEnd() && cursor.Peek() == u'"') return ReadText(cursor, dialect, problems);
  if (cursor.TakeWord(u"dword:")) return ReadDword(cursor, problems);
  if (cursor.TakeWord(u"hex")) return ReadHex(cursor, dialect, problems);
  if (cursor.Take(u'-')) return RegistryData{true, {}};
  problems.Add(cursor.line(), "a text in quotation marks, dword:, hex: or - expected after \"=\"");
  cursor.SkipLine();
  return std::nullopt;
}

std::optional<RegistryQuoted> ReadRegistryQuoted(RegistryCursor& cursor, bool may_span_lines) {
  RegistryQuoted quoted;
  cursor.Take(u'"');
  while (!cursor.AtEnd()) {
    if (cursor.AtLineEnd()) {
      if (!may_span_lines) return std::nullopt;
      quoted.text += cursor.TakeLineEnd();
      continue;
    }
    const char16_t c = cursor.Next();
    if (c == u'"') return quoted;
    if (c != u'\\') {
      quoted.text.push_back(c);
    } else if (cursor.Take(u'"')) {
      quoted.text.push_back(u'"');
    } else {
      quoted.text.push_back(u'\\');
      if (!cursor.Take(u'\\')) quoted.has_lone_backslash = true;
    }
  }
  return std::nullopt;
}

}  // namespace vandpublic
