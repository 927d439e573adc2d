// Bytes of a row as values.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

#include "platform/posix/ado/dates.h"
#include "platform/posix/ado/jet/jet_errors.h"
#include "platform/posix/ado/jet/jet_row.h"
#include "platform/posix/ado/sql/byte_order.h"
#include "runtime/string_value.h"

namespace vandpublic::ado {
namespace {

// A memo's cell: length and flags, place of the first piece, four bytes of no use.
constexpr std::size_t kMemoHeader = 12;
constexpr std::uint32_t kInlineFlag = 0x80000000;
constexpr std::uint32_t kSinglePieceFlag = 0x40000000;
constexpr std::uint32_t kLengthMask = 0x3FFFFFFF;

// A decimal has no more digits.
constexpr std::size_t kMaxDigits = 28;

void CheckSize(std::string_view bytes, std::size_t size) {
  if (bytes.size() < size) RaiseDamaged("a value of a row");
}

// The content of a long value. A piece on another page begins with the place of the next piece.
std::string MemoContent(const JetFile& file, std::string_view cell) {
  // A few files leave an empty cell for an empty memo.
  if (cell.empty()) return {};
  CheckSize(cell, kMemoHeader);
  const auto marked_length = LittleEndian<std::uint32_t>(cell);
  const std::size_t length = marked_length & kLengthMask;
  // No piece is read twice in a sound file, so the file bounds the length, and the length the
  // pieces.
  if (length > file.Size()) RaiseDamaged("the length of a memo");
  if ((marked_length & kInlineFlag) != 0) {
    if (cell.size() - kMemoHeader < length) RaiseDamaged("the length of a memo");
    return std::string(cell.substr(kMemoHeader, length));
  }
  const bool single = (marked_length & kSinglePieceFlag) != 0;
  std::string content;
  RowPointer next = RowPointer::From(LittleEndian<std::uint32_t>(cell, 4));
  while (content.size() < length) {
    const JetPage page = file.Page(next.page);
    const auto row = file.Row(*page, next.row);
    const std::size_t header = single ? 0 : 4;
    if (!row || row->bytes.size() <= header) RaiseDamaged("the pages of a memo");
    content.append(row->bytes.substr(header, length - content.size()));
    if (single) break;
    next = RowPointer::From(LittleEndian<std::uint32_t>(row->bytes));
  }
  if (content.size() < length) RaiseDamaged("the length of a memo");
  return content;
}

String DecodeText(const JetFile& file, std::string_view bytes) {
  return file.header().is_jet4 ? DecodeJet4Text(bytes) : file.code_page().Decode(bytes);
}

ByteArray BytesOf(std::string_view bytes) {
  return ByteArray(std::vector<Byte>(bytes.begin(), bytes.end()));
}

String GuidText(std::string_view bytes) {
  CheckSize(bytes, 16);
  const auto byte = [bytes](std::size_t i) {
    return static_cast<unsigned>(static_cast<std::uint8_t>(bytes[i]));
  };
  std::array<char, 48> text{};
  std::snprintf(text.data(), text.size(), "{%08X-%04X-%04X-%02X%02X-%02X%02X%02X%02X%02X%02X}",
                LittleEndian<std::uint32_t>(bytes), unsigned{LittleEndian<std::uint16_t>(bytes, 4)},
                unsigned{LittleEndian<std::uint16_t>(bytes, 6)}, byte(8), byte(9), byte(10),
                byte(11), byte(12), byte(13), byte(14), byte(15));
  return text.data();
}

// Four words, the highest first, each with its lowest byte first; the sign stands before them.
Variant DecimalValue(const JetColumn& column, std::string_view bytes) {
  CheckSize(bytes, 17);
  std::array<std::uint32_t, 4> words{};
  for (std::size_t i = 0; i < words.size(); ++i) {
    words[i] = LittleEndian<std::uint32_t>(bytes, 1 + i * 4);
  }
  std::string digits;
  while (std::any_of(words.begin(), words.end(), [](std::uint32_t word) { return word != 0; })) {
    std::uint64_t rest = 0;
    for (std::uint32_t& word : words) {
      rest = rest << 32 | word;
      word = static_cast<std::uint32_t>(rest / 10);
      rest %= 10;
    }
    digits += static_cast<char>('0' + rest);
  }
  const std::size_t scale = column.scale;
  if (scale > kMaxDigits || digits.size() > kMaxDigits) RaiseDamaged("a decimal number");
  if (digits.size() <= scale) digits.resize(scale + 1, '0');
  std::reverse(digits.begin(), digits.end());
  if (scale != 0) digits.insert(digits.size() - scale, ".");
  if (bytes[0] != 0) digits.insert(0, "-");
  const auto decimal = Decimal::Parse(digits);
  if (!decimal) RaiseDamaged("a decimal number");
  return *decimal;
}

Variant DateValue(std::string_view bytes) {
  CheckSize(bytes, 8);
  const Date date{LittleEndianDouble(bytes)};
  if (!ToCivilTime(date)) RaiseDamaged("a date");
  return date;
}

}  // namespace

Variant JetValue(const JetFile& file, const JetRow& row, const JetColumn& column) {
  // A Boolean has no bytes of its own, and is never null.
  if (column.type == JetType::Boolean) return row.HasValue(column);
  const auto found = row.Bytes(column);
  if (!found) return NullValue{};
  const std::string_view bytes = *found;
  switch (column.type) {
    case JetType::Boolean:
      break;
    case JetType::Byte:
      CheckSize(bytes, 1);
      return static_cast<Byte>(bytes[0]);
    case JetType::Integer:
      CheckSize(bytes, 2);
      return static_cast<Integer>(LittleEndian<std::uint16_t>(bytes));
    case JetType::Long:
      CheckSize(bytes, 4);
      return static_cast<Long>(LittleEndian<std::uint32_t>(bytes));
    case JetType::Currency:
      CheckSize(bytes, 8);
      return Currency{static_cast<std::int64_t>(LittleEndian<std::uint64_t>(bytes))};
    case JetType::Single:
      CheckSize(bytes, 4);
      return LittleEndianSingle(bytes);
    case JetType::Double:
      CheckSize(bytes, 8);
      return LittleEndianDouble(bytes);
    case JetType::Date:
      return DateValue(bytes);
    case JetType::Binary:
      return BytesOf(bytes);
    case JetType::Text:
      return DecodeText(file, bytes);
    case JetType::Ole:
      return BytesOf(MemoContent(file, bytes));
    case JetType::Memo:
      return DecodeText(file, MemoContent(file, bytes));
    case JetType::Guid:
      return GuidText(bytes);
    case JetType::Numeric:
      return DecimalValue(column, bytes);
  }
  return NullValue{};
}

}  // namespace vandpublic::ado
