// Types and values.
//
// Whole numbers and decimals travel as text and are read here: SQLite's driver quietly gives 0 for
// a text in a number column and cuts what is too large, and others read numbers by the locale.
#include "platform/posix/ado/odbc/odbc_types.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <limits>
#include <optional>

#include "platform/posix/ado/ado_errors.h"
#include "platform/posix/ado/column_values.h"
#include "platform/posix/ado/dates.h"
#include "runtime/utf8.h"

namespace vandpublic::ado {
namespace {

constexpr Long kLongSize = std::numeric_limits<Long>::max();

struct TypeMapping {
  SQLSMALLINT sql_type;
  DataType type;
  Long size;  // of a value; 0: the column's own
};

constexpr TypeMapping kTypes[] = {
    {SQL_BIT, DataType::Boolean, 2},
    {SQL_TINYINT, DataType::SmallInt, 2},
    {SQL_SMALLINT, DataType::SmallInt, 2},
    {SQL_INTEGER, DataType::Integer, 4},
    {SQL_BIGINT, DataType::BigInt, 8},
    {SQL_REAL, DataType::Single, 4},
    {SQL_FLOAT, DataType::Double, 8},
    {SQL_DOUBLE, DataType::Double, 8},
    {SQL_DECIMAL, DataType::Numeric, 19},
    {SQL_NUMERIC, DataType::Numeric, 19},
    {SQL_DATE, DataType::DBDate, 6},
    {SQL_TYPE_DATE, DataType::DBDate, 6},
    {SQL_TIME, DataType::DBTime, 6},
    {SQL_TYPE_TIME, DataType::DBTime, 6},
    {SQL_TIMESTAMP, DataType::DBTimeStamp, 16},
    {SQL_TYPE_TIMESTAMP, DataType::DBTimeStamp, 16},
    {SQL_GUID, DataType::Guid, 16},
    {SQL_CHAR, DataType::Char, 0},
    {SQL_VARCHAR, DataType::VarChar, 0},
    {SQL_LONGVARCHAR, DataType::LongVarChar, 0},
    {SQL_WCHAR, DataType::WChar, 0},
    {SQL_WVARCHAR, DataType::VarWChar, 0},
    {SQL_WLONGVARCHAR, DataType::LongVarWChar, 0},
    {SQL_BINARY, DataType::Binary, 0},
    {SQL_VARBINARY, DataType::VarBinary, 0},
    {SQL_LONGVARBINARY, DataType::LongVarBinary, 0},
};

TypeMapping FindType(SQLSMALLINT sql_type) {
  const auto* const found = std::find_if(std::begin(kTypes), std::end(kTypes),
                                         [&](const auto& m) { return m.sql_type == sql_type; });
  return found == std::end(kTypes) ? TypeMapping{sql_type, DataType::VarWChar, 0} : *found;
}

// The next larger type holds every value of an unsigned one.
void WidenUnsigned(Column& column) {
  if (column.type == DataType::Integer) {
    column.type = DataType::BigInt;
    column.defined_size = 8;
  } else if (column.type == DataType::SmallInt) {
    column.type = DataType::Integer;
    column.defined_size = 4;
  }
}

// The whole value as bytes, nothing for the null value.
std::optional<std::string> ReadBytes(const OdbcHandle& statement, SQLUSMALLINT number,
                                     SQLSMALLINT c_type) {
  const std::size_t terminator = c_type == SQL_C_CHAR ? 1 : 0;
  std::string value;
  std::array<char, 5120> first;  // most values need no memory but their own
  std::vector<char> larger;
  char* buffer = first.data();
  std::size_t capacity = first.size();
  while (true) {
    SQLLEN length = 0;
    const SQLRETURN result = statement.library().GetData(statement.get(), number, c_type, buffer,
                                                         static_cast<SQLLEN>(capacity), &length);
    if (!statement.Check(result)) return value;  // the last piece was a full one
    if (length == SQL_NULL_DATA) return std::nullopt;
    const std::size_t room = capacity - terminator;
    const bool cut = length == SQL_NO_TOTAL || static_cast<std::size_t>(length) > room;
    value.append(buffer, cut ? room : static_cast<std::size_t>(length));
    if (!cut || result == SQL_SUCCESS) return value;
    if (larger.empty()) {
      larger.resize(std::size_t{1} << 18);
      buffer = larger.data();
      capacity = larger.size();
    }
  }
}

template <class Number>
std::optional<Number> ParseWhole(std::string_view text) {
  Number number{};
  const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
  if (read.ec != std::errc() || read.ptr != text.data() + text.size()) return std::nullopt;
  return number;
}

// A number as text: of the column's type where it fits, else the closest that holds it; text only
// where it is no number, as it can be in SQLite.
Variant NumberFromText(DataType type, std::string text) {
  if (type == DataType::SmallInt) {
    if (const auto number = ParseWhole<Integer>(text)) return *number;
  }
  if (type == DataType::SmallInt || type == DataType::Integer) {
    if (const auto number = ParseWhole<Long>(text)) return *number;
  }
  if (type != DataType::Single && type != DataType::Double) {
    if (auto decimal = Decimal::Parse(text)) return *decimal;
  }
  if (const auto number = ParseWhole<double>(text)) {
    if (type == DataType::Single) return static_cast<float>(*number);
    return *number;
  }
  return String(text);
}

Variant BooleanFromText(const std::string& text) {
  return !text.empty() && text != "0" && text != "f" && text != "F";
}

// A date that cannot be one, such as a zero date or an infinite one, stays text.
Variant DateFromText(std::string text) {
  if (const auto date = ParseDate(text)) return *date;
  return String(text);
}

// "{12345678-...}" in capitals.
Variant GuidFromText(std::string text) {
  for (char& c : text) {
    if (c >= 'a' && c <= 'f') c = static_cast<char>(c - 'a' + 'A');
  }
  if (!text.starts_with('{')) text = "{" + text + "}";
  return String(text);
}

Variant FromText(DataType type, std::string text) {
  switch (type) {
    case DataType::Boolean:
      return BooleanFromText(text);
    case DataType::SmallInt:
    case DataType::Integer:
    case DataType::BigInt:
    case DataType::Numeric:
    case DataType::Single:
    case DataType::Double:
      return NumberFromText(type, std::move(text));
    case DataType::DBDate:
    case DataType::DBTime:
    case DataType::DBTimeStamp:
      return DateFromText(std::move(text));
    case DataType::Guid:
      return GuidFromText(std::move(text));
    default:
      return String(text);
  }
}

std::string DateParameter(Date date, SQLSMALLINT sql_type) {
  const auto time = ToCivilTime(date);
  if (!time) Raise(ObjectError::WrongType, kFieldSource);
  if (sql_type == SQL_TYPE_DATE || sql_type == SQL_DATE) return DateOnlyText(*time);
  if (sql_type == SQL_TYPE_TIME || sql_type == SQL_TIME) return TimeOnlyText(*time);
  return TimestampText(*time);
}

std::string CurrencyText(Currency value) {
  const bool negative = value.scaled < 0;
  const auto scaled = static_cast<std::uint64_t>(value.scaled);
  const std::uint64_t magnitude = negative ? 0 - scaled : scaled;
  std::string fraction = std::to_string(10000 + magnitude % 10000);
  fraction.front() = '.';
  return (negative ? "-" : "") + std::to_string(magnitude / 10000) + fraction;
}

}  // namespace

void DescribeType(const OdbcColumn& source, OdbcKind kind, Column& column) {
  const TypeMapping mapping = FindType(source.sql_type);
  column.type = mapping.type;
  column.defined_size = mapping.size;
  if (source.is_unsigned) WidenUnsigned(column);
  if (mapping.size != 0) return;
  // SQLite's driver gives binary columns a size that means nothing, others none at all.
  const bool binary = IsBinary(column.type);
  const bool no_size = source.size == 0 || source.size >= static_cast<SQLULEN>(kLongSize);
  if (binary && (no_size || kind == OdbcKind::SQLite)) column.type = DataType::LongVarBinary;
  column.is_long = column.type == DataType::LongVarBinary || column.type == DataType::LongVarChar ||
                   column.type == DataType::LongVarWChar;
  const bool unlimited = no_size || column.is_long;
  column.defined_size = unlimited ? kLongSize : static_cast<Long>(source.size);
}

std::optional<std::string> ReadText(const OdbcHandle& statement, SQLUSMALLINT number) {
  return ReadBytes(statement, number, SQL_C_CHAR);
}

Variant ReadValue(const OdbcHandle& statement, SQLUSMALLINT number, const Column& column) {
  const bool binary = IsBinary(column.type);
  std::optional<std::string> bytes =
      ReadBytes(statement, number, binary ? SQL_C_BINARY : SQL_C_CHAR);
  if (!bytes) return NullValue{};
  if (!binary) return FromText(column.type, *std::move(bytes));
  return ByteArray(std::vector<Byte>(bytes->begin(), bytes->end()));
}

OdbcParameter::OdbcParameter(const Variant& value, SQLSMALLINT sql_type) : sql_type_(sql_type) {
  if (value.IsNull() || value.IsEmpty()) {
    length_ = SQL_NULL_DATA;
  } else {
    Take(value);
  }
}

void OdbcParameter::Take(const Variant& value) {
  if (const ByteArray* bytes = value.AsByteArray()) {
    const auto elements = bytes->Elements();
    text_.assign(elements.begin(), elements.end());
    c_type_ = SQL_C_BINARY;
    sql_type_ = SQL_LONGVARBINARY;
  } else if (const auto* boolean = value.Get<bool>()) {
    text_ = *boolean ? "1" : "0";
  } else if (const auto* small = value.Get<Integer>()) {
    integer_ = *small;
    c_type_ = SQL_C_SBIGINT;
  } else if (const auto* whole = value.Get<Long>()) {
    integer_ = *whole;
    c_type_ = SQL_C_SBIGINT;
  } else if (const auto* byte = value.Get<Byte>()) {
    integer_ = *byte;
    c_type_ = SQL_C_SBIGINT;
  } else if (const auto* single = value.Get<float>()) {
    real_ = *single;
    c_type_ = SQL_C_DOUBLE;
  } else if (const auto* real = value.Get<double>()) {
    real_ = *real;
    c_type_ = SQL_C_DOUBLE;
  } else if (const auto* currency = value.Get<Currency>()) {
    text_ = CurrencyText(*currency);
  } else if (const auto* date = value.Get<Date>()) {
    text_ = DateParameter(*date, sql_type_);
  } else if (const auto* decimal = value.Get<Decimal>()) {
    text_ = decimal->text();
  } else if (const auto* text = value.Get<String>()) {
    text_ = text->ToUtf8();
  } else {
    Raise(ObjectError::WrongType, kFieldSource);
  }
  length_ = static_cast<SQLLEN>(text_.size());
}

void OdbcParameter::Bind(const OdbcHandle& statement, SQLUSMALLINT number) {
  SQLPOINTER data = text_.data();
  SQLULEN size = std::max<SQLULEN>(1, text_.size());
  if (c_type_ == SQL_C_SBIGINT) {
    data = &integer_;
    size = 20;
  } else if (c_type_ == SQL_C_DOUBLE) {
    data = &real_;
    size = 17;
  }
  statement.Check(statement.library().BindParameter(statement.get(), number, SQL_PARAM_INPUT,
                                                    c_type_, sql_type_, size, 0, data,
                                                    static_cast<SQLLEN>(text_.size()), &length_));
}

}  // namespace vandpublic::ado
