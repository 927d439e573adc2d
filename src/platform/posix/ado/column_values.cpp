// Conversions to the types of columns.
#include "platform/posix/ado/column_values.h"

#include <cmath>
#include <limits>
#include <string>

#include "platform/posix/ado/ado_errors.h"
#include "platform/posix/ado/dates.h"
#include "runtime/coerce.h"
#include "runtime/errors.h"
#include "runtime/utf8.h"

namespace vandpublic::ado {
namespace {

[[noreturn]] void RaiseWrongType() { Raise(ObjectError::WrongType, kFieldSource); }

Variant ToDecimal(const Variant& value) {
  if (const auto* decimal = value.Get<Decimal>()) return *decimal;
  // A number's own text has all its digits; only Double and Single may come with an exponent.
  const std::string text = ToText(value).ToUtf8();
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string::npos) RaiseWrongType();
  const std::size_t last = text.find_last_not_of(' ');
  if (auto decimal = Decimal::Parse(text.substr(first, last - first + 1))) return *decimal;
  RaiseWrongType();
}

Variant ToCurrency(const Variant& value) {
  if (const auto* currency = value.Get<Currency>()) return *currency;
  constexpr double kScale = 10000.0;
  constexpr double kMost = 9.2e18;
  const double scaled = std::nearbyint(ToDouble(value) * kScale);
  if (!(std::fabs(scaled) < kMost)) RaiseWrongType();
  return Currency{static_cast<std::int64_t>(scaled)};
}

Variant ToDateValue(const Variant& value) {
  if (const auto* date = value.Get<Date>()) return *date;
  if (const auto* text = value.Get<String>()) {
    if (const auto date = ParseDate(text->ToUtf8())) return *date;
    RaiseWrongType();
  }
  const Date date{ToDouble(value)};
  if (!ToCivilTime(date)) RaiseWrongType();
  return date;
}

Variant ToBytes(const Variant& value) {
  const ByteArray* const bytes = value.AsByteArray();
  if (bytes == nullptr) RaiseWrongType();
  const auto elements = bytes->Elements();
  return ByteArray(std::vector<Byte>(elements.begin(), elements.end()));
}

Variant Convert(DataType type, const Variant& value) {
  switch (type) {
    case DataType::SmallInt:
      return ToInteger(value);
    case DataType::Integer:
      return ToLong(value);
    case DataType::Single:
      return ToSingle(value);
    case DataType::Double:
      return ToDouble(value);
    case DataType::Currency:
      return ToCurrency(value);
    case DataType::Boolean:
      return ToBoolean(value);
    case DataType::UnsignedTinyInt:
      return ToByte(value);
    case DataType::BigInt:
    case DataType::Numeric:
      return ToDecimal(value);
    case DataType::Binary:
    case DataType::VarBinary:
    case DataType::LongVarBinary:
      return ToBytes(value);
    case DataType::Date:
    case DataType::DBDate:
    case DataType::DBTime:
    case DataType::DBTimeStamp:
      return ToDateValue(value);
    default:
      return ToText(value);
  }
}

}  // namespace

bool IsBinary(DataType type) noexcept {
  return type == DataType::Binary || type == DataType::VarBinary || type == DataType::LongVarBinary;
}

bool IsWideText(DataType type) noexcept {
  return type == DataType::WChar || type == DataType::VarWChar || type == DataType::LongVarWChar;
}

bool IsText(DataType type) noexcept {
  return IsWideText(type) || type == DataType::Char || type == DataType::VarChar ||
         type == DataType::LongVarChar;
}

float ToSingle(const Variant& value) {
  const double number = ToDouble(value);
  if (std::fabs(number) > std::numeric_limits<float>::max()) RaiseFault(FaultNumber::Overflow);
  return static_cast<float>(number);
}

Variant ToColumnValue(const Column& column, const Variant& value) {
  if (value.IsNull()) return value;
  try {
    return Convert(column.type, value);
  } catch (const RuntimeFault&) {
    RaiseWrongType();
  }
}

Long ActualSizeOf(const Column& column, const Variant& value) {
  if (value.IsNull() || value.IsEmpty()) return 0;
  if (const ByteArray* bytes = value.AsByteArray()) return bytes->Count();
  if (const auto* text = value.Get<String>()) {
    return static_cast<Long>(text->Length() * (IsWideText(column.type) ? 2 : 1));
  }
  return column.defined_size;
}

}  // namespace vandpublic::ado
