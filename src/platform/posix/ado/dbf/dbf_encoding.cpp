// Encoding of cells.
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdio>

#include "platform/posix/ado/dates.h"
#include "platform/posix/ado/dbf/dbf_cells.h"
#include "platform/posix/ado/dbf/dbf_errors.h"
#include "platform/posix/ado/sql/byte_order.h"
#include "runtime/coerce.h"
#include "runtime/errors.h"

namespace vandpublic::ado {
namespace {

constexpr std::int64_t kJulianDayZero = 2415019;
constexpr double kCurrencyScale = 10000;

[[noreturn]] void RaiseTooLong(const DbfField& field) {
  RaiseDbf(SourceError::ValueTooLarge, "The value does not fit into field " + field.name + ".");
}

[[noreturn]] void RaiseMismatch(const DbfField& field) {
  RaiseDbf(SourceError::CannotConvert, "Data type mismatch for field " + field.name + ".");
}

// The conversion's own faults, in the words of a data source.
template <class Conversion>
auto Converted(const DbfField& field, Conversion conversion) {
  try {
    return conversion();
  } catch (const RuntimeFault& fault) {
    if (fault.number() == static_cast<Long>(FaultNumber::Overflow)) RaiseTooLong(field);
    RaiseMismatch(field);
  }
}

// Text in the table's code page. A character that the page lacks is refused: it would be stored
// as a question mark.
std::string EncodeText(const DbfField& field, const Variant& value, const CodePage& code_page) {
  const String text = Converted(field, [&] { return ToText(value); });
  std::string bytes = code_page.Encode(text.view());
  if (code_page.Decode(bytes) != text.view()) {
    RaiseDbf(SourceError::CannotConvert, "The text for field " + field.name +
                                             " has characters that the table's code page lacks.");
  }
  return bytes;
}

std::string EncodeBytes(const DbfField& field, const Variant& value) {
  const ByteArray* const bytes = value.AsByteArray();
  if (bytes == nullptr) RaiseMismatch(field);
  return {bytes->Elements().begin(), bytes->Elements().end()};
}

std::string PaddedTo(const DbfField& field, std::string bytes) {
  bytes.erase(bytes.find_last_not_of(' ') + 1);
  if (bytes.size() > field.size) RaiseTooLong(field);
  bytes.resize(field.size, ' ');
  return bytes;
}

std::string EncodeNumber(const DbfField& field, const Variant& value) {
  const double number = Converted(field, [&] { return ToDouble(value); });
  if (!std::isfinite(number)) RaiseMismatch(field);
  // Room for the longest double in full; what is longer than the field is refused below.
  std::array<char, 768> text{};
  const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), number,
                                          std::chars_format::fixed, field.decimals);
  if (error != std::errc()) RaiseTooLong(field);
  const std::string digits(text.data(), end);
  if (digits.size() > field.size) RaiseTooLong(field);
  return std::string(field.size - digits.size(), ' ') + digits;
}

CivilTime SplitDate(const DbfField& field, const Variant& value) {
  const double days = Converted(field, [&] { return ToDouble(value); });
  const auto time = ToCivilTime(Date{days}, kMillisecondsOfSecond);
  if (!time) RaiseTooLong(field);
  return *time;
}

std::int64_t DayOf(const CivilTime& time) {
  return *DayNumber(time.year, static_cast<int>(time.month), static_cast<int>(time.day));
}

std::string EncodeDate(const DbfField& field, const Variant& value) {
  const CivilTime date = SplitDate(field, value);
  // The format's empty date is the one that an empty date is read as.
  if (DayOf(date) == 0) return std::string(field.size, ' ');
  std::array<char, 48> text{};
  std::snprintf(text.data(), text.size(), "%04d%02u%02u", date.year, date.month, date.day);
  return {text.data(), field.size};
}

std::string EncodeTimestamp(const DbfField& field, const Variant& value) {
  const CivilTime time = SplitDate(field, value);
  std::string cell(field.size, '\0');
  const std::int64_t day = DayOf(time);
  const std::int64_t milliseconds =
      ((time.hour * 60LL + time.minute) * 60 + time.second) * kMillisecondsOfSecond;
  if (day == 0 && milliseconds == 0) return cell;
  PutLittleEndian(static_cast<std::uint32_t>(day + kJulianDayZero), cell.data());
  PutLittleEndian(static_cast<std::uint32_t>(milliseconds), cell.data() + 4);
  return cell;
}

std::string EncodeCurrency(const DbfField& field, const Variant& value) {
  std::int64_t scaled = 0;
  if (const auto* const currency = value.Get<Currency>()) {
    scaled = currency->scaled;
  } else {
    const double number = Converted(field, [&] { return ToDouble(value); }) * kCurrencyScale;
    if (!(std::abs(number) < 9.2233720368547e18)) RaiseTooLong(field);
    scaled = std::llrint(number);
  }
  std::string cell(field.size, '\0');
  PutLittleEndian(static_cast<std::uint64_t>(scaled), cell.data());
  return cell;
}

// A cell of variable length, and whether it is shorter than its field: then its last byte counts.
std::string EncodeVariable(const DbfField& field, std::string bytes, bool& is_short) {
  if (bytes.size() > field.size) RaiseTooLong(field);
  is_short = bytes.size() < field.size;
  const auto length = static_cast<char>(bytes.size());
  bytes.resize(field.size, '\0');
  if (is_short) bytes.back() = length;
  return bytes;
}

std::string EncodeFixed(const DbfField& field, const Variant& value, const CodePage& code_page) {
  std::string cell(field.size, '\0');
  switch (field.type) {
    case 'C':
      return PaddedTo(
          field, field.binary ? EncodeBytes(field, value) : EncodeText(field, value, code_page));
    case 'D':
      return EncodeDate(field, value);
    case 'T':
      return EncodeTimestamp(field, value);
    case 'L':
      return Converted(field, [&] { return ToBoolean(value); }) ? "T" : "F";
    case 'I':
      PutLittleEndian(static_cast<std::uint32_t>(Converted(field, [&] { return ToLong(value); })),
                      cell.data());
      return cell;
    case 'B':
      PutLittleEndian(
          std::bit_cast<std::uint64_t>(Converted(field, [&] { return ToDouble(value); })),
          cell.data());
      return cell;
    case 'Y':
      return EncodeCurrency(field, value);
    default:
      return EncodeNumber(field, value);
  }
}

// What a null or new cell holds: nothing that any reader takes for a value.
char BlankOf(const DbfField& field) noexcept {
  const bool is_text = std::string_view("CNFDL").find(field.type) != std::string_view::npos;
  return is_text ? ' ' : '\0';
}

}  // namespace

void SetNullFlag(const DbfLayout& layout, std::string& record, std::size_t bit,
                 bool value) noexcept {
  char& flags = record[layout.null_flags_offset + bit / 8];
  const int mask = 1 << (bit % 8);
  flags = static_cast<char>(value ? flags | mask : flags & ~mask);
}

void EncodeCell(const DbfLayout& layout, const DbfField& field, const Variant& value,
                const CodePage& code_page, std::string& record) {
  bool is_short = false;
  std::string cell;
  if (value.IsNull()) {
    if (!field.null_bit) {
      RaiseDbf(SourceError::IntegrityViolation,
               "Field " + field.name + " does not accept null values.");
    }
    cell.assign(field.size, BlankOf(field));
  } else if (field.length_bit) {
    cell = EncodeVariable(
        field, field.type == 'V' ? EncodeText(field, value, code_page) : EncodeBytes(field, value),
        is_short);
  } else {
    cell = EncodeFixed(field, value, code_page);
  }
  record.replace(field.offset, field.size, cell);
  if (field.null_bit) SetNullFlag(layout, record, *field.null_bit, value.IsNull());
  if (field.length_bit) SetNullFlag(layout, record, *field.length_bit, is_short);
}

std::string EncodeMemo(const DbfField& field, const Variant& value, const CodePage& code_page) {
  if (field.type == 'M' && !field.binary) return EncodeText(field, value, code_page);
  return EncodeBytes(field, value);
}

void PutMemoBlock(const DbfField& field, std::uint32_t block, std::string& record) {
  if (field.size == 4) {
    PutLittleEndian(block, record.data() + field.offset);
    return;
  }
  std::array<char, 16> digits{};
  std::snprintf(digits.data(), digits.size(), "%10u", block);
  if (block == 0) digits.fill(' ');
  record.replace(field.offset, field.size, digits.data(), field.size);
}

}  // namespace vandpublic::ado
