// Conversions between variants and SQLite's values.
#include "platform/posix/ado/sql/sqlite_values.h"

#include <array>
#include <charconv>
#include <cmath>
#include <string>
#include <utility>

#include "platform/posix/ado/column_values.h"
#include "runtime/coerce.h"
#include "runtime/errors.h"
#include "runtime/utf8.h"

namespace vandpublic::ado {
namespace {

constexpr double kCurrencyScale = 10000;

ByteArray BytesOf(const void* data, int size) {
  const auto* const bytes = static_cast<const Byte*>(data);
  return ByteArray(std::vector<Byte>(bytes, bytes + size));
}

String TextOf(const unsigned char* text, int size) {
  return {std::string_view(reinterpret_cast<const char*>(text), static_cast<std::size_t>(size))};
}

Decimal DecimalOf(double value) {
  std::array<char, 400> text{};
  const auto end =
      std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed).ptr;
  const auto decimal = Decimal::Parse({text.data(), static_cast<std::size_t>(end - text.data())});
  if (!decimal) RaiseFault(FaultNumber::Overflow);
  return *decimal;
}

Currency CurrencyOf(double value) {
  const double scaled = value * kCurrencyScale;
  if (!(std::abs(scaled) < 9.2233720368547e18)) RaiseFault(FaultNumber::Overflow);
  return {std::llrint(scaled)};
}

}  // namespace

void SetResult(sqlite3_context* context, const Variant& value) {
  const SqliteLibrary& sqlite = Sqlite();
  if (value.IsNull() || value.IsEmpty()) return sqlite.result_null(context);
  if (const auto* const text = value.Get<String>()) {
    const std::string utf8 = text->ToUtf8();
    return sqlite.result_text64(context, utf8.data(), utf8.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
  }
  if (const ByteArray* const bytes = value.AsByteArray()) {
    static constexpr Byte kNothing = 0;
    const auto elements = bytes->Elements();
    // A null pointer would make a null value of the empty array.
    return sqlite.result_blob64(context, elements.empty() ? &kNothing : elements.data(),
                                elements.size(), SQLITE_TRANSIENT);
  }
  const bool is_whole = value.Get<Long>() != nullptr || value.Get<Integer>() != nullptr ||
                        value.Get<Byte>() != nullptr || value.Get<bool>() != nullptr;
  if (is_whole) return sqlite.result_int64(context, ToLong(value));
  sqlite.result_double(context, ToDouble(value));
}

Variant ArgumentValue(sqlite3_value* value) {
  const SqliteLibrary& sqlite = Sqlite();
  switch (sqlite.value_type(value)) {
    case SQLITE_INTEGER:
      return static_cast<double>(sqlite.value_int64(value));
    case SQLITE_FLOAT:
      return sqlite.value_double(value);
    case SQLITE_TEXT: {
      // The text first: asking for it may change the size.
      const unsigned char* const text = sqlite.value_text(value);
      return TextOf(text, sqlite.value_bytes(value));
    }
    case SQLITE_BLOB: {
      const void* const bytes = sqlite.value_blob(value);
      return BytesOf(bytes, sqlite.value_bytes(value));
    }
    default:
      return NullValue{};
  }
}

Variant PlainColumnValue(sqlite3_stmt* statement, int column) {
  const SqliteLibrary& sqlite = Sqlite();
  switch (sqlite.column_type(statement, column)) {
    case SQLITE_INTEGER: {
      const sqlite3_int64 number = sqlite.column_int64(statement, column);
      if (std::in_range<Long>(number)) return static_cast<Long>(number);
      return static_cast<double>(number);
    }
    case SQLITE_FLOAT:
      return sqlite.column_double(statement, column);
    case SQLITE_TEXT: {
      const unsigned char* const text = sqlite.column_text(statement, column);
      return TextOf(text, sqlite.column_bytes(statement, column));
    }
    case SQLITE_BLOB: {
      const void* const bytes = sqlite.column_blob(statement, column);
      return BytesOf(bytes, sqlite.column_bytes(statement, column));
    }
    default:
      return NullValue{};
  }
}

Variant AsType(const Variant& plain, DataType type) {
  if (plain.IsNull()) return plain;
  switch (type) {
    case DataType::SmallInt:
      return ToInteger(plain);
    case DataType::Integer:
      return ToLong(plain);
    case DataType::UnsignedTinyInt:
      return ToByte(plain);
    case DataType::Single:
      return ToSingle(plain);
    case DataType::Double:
      return ToDouble(plain);
    case DataType::Currency:
      return CurrencyOf(ToDouble(plain));
    case DataType::Boolean:
      return ToBoolean(plain);
    case DataType::BigInt:
    case DataType::Numeric:
      return DecimalOf(ToDouble(plain));
    case DataType::Date:
    case DataType::DBDate:
    case DataType::DBTime:
    case DataType::DBTimeStamp:
      return Date{ToDouble(plain)};
    case DataType::Binary:
    case DataType::VarBinary:
    case DataType::LongVarBinary:
      if (plain.AsByteArray() == nullptr) RaiseFault(FaultNumber::TypeMismatch);
      return plain;
    default:
      return ToText(plain);
  }
}

bool MayBeRounded(DataType type) {
  return type == DataType::Currency || type == DataType::Numeric || type == DataType::BigInt;
}

}  // namespace vandpublic::ado
