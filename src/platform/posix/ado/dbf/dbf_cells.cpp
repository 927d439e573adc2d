// Decoding of cells.
#include "platform/posix/ado/dbf/dbf_cells.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>

#include "platform/posix/ado/dates.h"
#include "platform/posix/ado/dbf/dbf_errors.h"
#include "platform/posix/ado/sql/byte_order.h"
#include "runtime/utf8.h"

namespace vandpublic::ado {
namespace {

// The Julian day number of 30 December 1899.
constexpr std::int64_t kJulianDayZero = 2415019;

[[noreturn]] void RaiseBadCell(const DbfField& field) {
  RaiseDbf(SourceError::CannotConvert,
           "Field " + field.name + " holds no value of its type; the table may be damaged.");
}

std::string_view CellOf(const DbfField& field, std::string_view record) {
  return record.substr(field.offset, field.size);
}

// Without the padding, which is of blanks; some programs pad with zero bytes.
std::string_view Trimmed(std::string_view cell) {
  constexpr std::string_view kPadding(" \0", 2);
  const std::size_t first = cell.find_first_not_of(kPadding);
  if (first == std::string_view::npos) return {};
  return cell.substr(first, cell.find_last_not_of(kPadding) - first + 1);
}

ByteArray BytesOf(std::string_view bytes) {
  return ByteArray(std::vector<Byte>(bytes.begin(), bytes.end()));
}

double DecodeNumber(const DbfField& field, std::string_view cell) {
  std::string_view digits = Trimmed(cell);
  if (digits.empty()) return 0;
  // Asterisks stand for a number that did not fit when it was stored.
  if (digits.find_first_not_of('*') == std::string_view::npos) {
    RaiseDbf(SourceError::ValueTooLarge,
             "Numeric overflow. The number of field " + field.name + " was lost.");
  }
  if (digits.front() == '+') digits.remove_prefix(1);
  double number = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (error != std::errc() || end != digits.data() + digits.size() || !std::isfinite(number)) {
    RaiseBadCell(field);
  }
  return number;
}

double DecodeDate(const DbfField& field, std::string_view cell) {
  const std::string_view digits = Trimmed(cell);
  if (digits.empty() || digits == "00000000") return 0;
  if (digits.size() != 8 || digits.find_first_not_of("0123456789") != std::string_view::npos) {
    RaiseBadCell(field);
  }
  const auto number = [digits](std::size_t position, std::size_t count) {
    int value = 0;
    for (const char digit : digits.substr(position, count))
      value = 10 * value + (digit - '0');
    return value;
  };
  const auto day = DayNumber(number(0, 4), number(4, 2), number(6, 2));
  if (!day) RaiseBadCell(field);
  return static_cast<double>(*day);
}

double DecodeTimestamp(const DbfField& field, std::string_view cell) {
  if (Trimmed(cell).empty()) return 0;
  const std::int64_t day = static_cast<std::int32_t>(LittleEndian<std::uint32_t>(cell));
  const std::int64_t milliseconds = LittleEndian<std::uint32_t>(cell, 4);
  // A few programs store the last moment of a day as its full length.
  if (milliseconds > kMillisecondsOfDay) RaiseBadCell(field);
  const Date joined = JoinDayAndTime(day - kJulianDayZero, milliseconds);
  if (!ToCivilTime(joined)) RaiseBadCell(field);
  return joined.days;
}

bool DecodeLogical(const DbfField& field, std::string_view cell) {
  switch (cell[0]) {
    case 'T':
    case 't':
    case 'Y':
    case 'y':
      return true;
    case 'F':
    case 'f':
    case 'N':
    case 'n':
    case ' ':
    case '?':
    case '\0':
      return false;
    default:
      RaiseBadCell(field);
  }
}

// The part of a variable-length cell that is its value.
std::string_view VariablePart(const DbfLayout& layout, const DbfField& field,
                              std::string_view record) {
  const std::string_view cell = CellOf(field, record);
  if (!NullFlag(layout, record, *field.length_bit)) return cell;
  const std::size_t length = static_cast<std::uint8_t>(cell.back());
  if (length >= cell.size()) RaiseBadCell(field);
  return cell.substr(0, length);
}

// Padded to the width in characters: a double-byte text has fewer of them than bytes.
std::u16string DecodeText(std::string_view cell, const CodePage& code_page) {
  std::u16string text = code_page.Decode(cell);
  std::replace(text.begin(), text.end(), u'\0', u' ');
  return text;
}

}  // namespace

bool NullFlag(const DbfLayout& layout, std::string_view record, std::size_t bit) noexcept {
  const auto flags = static_cast<std::uint8_t>(record[layout.null_flags_offset + bit / 8]);
  return (flags >> (bit % 8) & 1) != 0;
}

bool IsMemo(const DbfField& field) noexcept {
  switch (field.type) {
    case 'M':
    case 'G':
    case 'P':
    case 'W':
      return true;
    case 'B':
      return field.size == 10;  // dBASE; eight bytes are Visual FoxPro's double
    default:
      return false;
  }
}

TableColumn ColumnOf(const DbfField& field) {
  const auto size = static_cast<Long>(field.size);
  TableColumn column{field.name, DataType::Double, 8, false, field.null_bit.has_value()};
  const auto set = [&column](DataType type, Long defined_size) {
    column.type = type;
    column.defined_size = defined_size;
  };
  if (IsMemo(field)) {
    const bool text = field.type == 'M' && !field.binary;
    set(text ? DataType::LongVarChar : DataType::LongVarBinary, INT32_MAX);
    column.is_long = true;
    return column;
  }
  switch (field.type) {
    case 'C':
      set(field.binary ? DataType::Binary : DataType::Char, size);
      break;
    case 'V':
      set(DataType::VarChar, size);
      break;
    case 'Q':
      set(DataType::VarBinary, size);
      break;
    case 'D':
      set(DataType::DBDate, 8);
      break;
    case 'T':
      set(DataType::DBTimeStamp, 8);
      break;
    case 'L':
      set(DataType::Boolean, 2);
      break;
    case 'I':
      set(DataType::Integer, 4);
      break;
    case 'Y':
      set(DataType::Currency, 8);
      break;
    default:
      break;  // N, F and B
  }
  return column;
}

Variant DecodeCell(const DbfLayout& layout, const DbfField& field, std::string_view record,
                   const CodePage& code_page) {
  if (field.null_bit && NullFlag(layout, record, *field.null_bit)) return NullValue{};
  const std::string_view cell = CellOf(field, record);
  switch (field.type) {
    case 'C':
      if (field.binary) return BytesOf(cell);
      return String(DecodeText(cell, code_page));
    case 'V':
    case 'Q': {
      const std::string_view value = VariablePart(layout, field, record);
      // "Binary" only keeps a V field's text from being converted between code pages.
      if (field.type == 'Q') return BytesOf(value);
      return String(code_page.Decode(value));
    }
    case 'D':
      return Date{DecodeDate(field, cell)};
    case 'T':
      return Date{DecodeTimestamp(field, cell)};
    case 'L':
      return DecodeLogical(field, cell);
    case 'I':
      return static_cast<Long>(LittleEndian<std::uint32_t>(cell));
    case 'Y':
      return Currency{static_cast<std::int64_t>(LittleEndian<std::uint64_t>(cell))};
    case 'B':
      return LittleEndianDouble(cell);
    default:
      return DecodeNumber(field, cell);
  }
}

std::uint32_t MemoBlock(const DbfField& field, std::string_view record) {
  const std::string_view cell = CellOf(field, record);
  if (field.size == 4) return LittleEndian<std::uint32_t>(cell);
  const std::string_view digits = Trimmed(cell);
  if (digits.empty()) return 0;
  std::uint32_t block = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), block);
  if (error != std::errc() || end != digits.data() + digits.size()) RaiseBadCell(field);
  return block;
}

Variant DecodeMemo(const DbfField& field, std::string_view content, const CodePage& code_page) {
  if (field.type == 'M' && !field.binary) return String(code_page.Decode(content));
  return BytesOf(content);
}

}  // namespace vandpublic::ado
