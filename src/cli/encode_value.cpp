// Values to JSON.
#include <array>

#include "cli/hex_text.h"
#include "cli/json_values.h"
#include "invoke/argument.h"
#include "members/member_text.h"
#include "runtime/utf8.h"

namespace vandpublic {
namespace {

Json EncodeText(const String& text) {
  if (text.IsAbsent()) return nullptr;
  if (text.ByteLength() % 2 == 0 && IsWellFormed(text.view())) return text.ToUtf8();
  const std::string bytes = text.ToBytes();
  return JsonObject("utf16le", ToHexText(std::vector<Byte>(bytes.begin(), bytes.end())));
}

Json EncodeBound(ArrayBound bound) {
  return Json::array({bound.lower, std::int64_t{bound.lower} + bound.count - 1});
}

Json EncodeArray(const ByteArray& array) {
  if (!array.IsDimensioned()) return nullptr;
  Json json = JsonObject("bytes", ToHexText(array.Elements()));
  if (array.LowerBound() != 0) json["lower"] = array.LowerBound();
  return json;
}

Json EncodeTable(const ByteTable& table) {
  if (!table.IsDimensioned()) return nullptr;
  Json json = JsonObject("bytes", ToHexText(table.Elements()));
  json["bounds"] = Json::array({EncodeBound(table.Rows()), EncodeBound(table.Columns())});
  return json;
}

Json EncodeShape(const ArrayShape& shape) {
  if (shape.bounds.empty()) return nullptr;
  Json bounds = Json::array();
  for (const ArrayBound& bound : shape.bounds)
    bounds.push_back(EncodeBound(bound));
  return JsonObject("bounds", std::move(bounds));
}

// "-12.5000": always four decimals, no digit lost.
std::string CurrencyText(Currency amount) {
  constexpr std::uint64_t kScale = 10000;
  const bool negative = amount.scaled < 0;
  auto magnitude = static_cast<std::uint64_t>(amount.scaled);
  if (negative) magnitude = 0 - magnitude;
  const std::string decimals = std::to_string(kScale + magnitude % kScale).substr(1);
  return (negative ? "-" : "") + std::to_string(magnitude / kScale) + "." + decimals;
}

struct Plain {
  Json operator()(std::monostate) const { return nullptr; }
  Json operator()(NullValue) const { return nullptr; }
  Json operator()(Currency amount) const { return CurrencyText(amount); }
  Json operator()(Date date) const { return date.days; }
  Json operator()(const String& text) const { return EncodeText(text); }
  Json operator()(const ObjectRef& object) const {
    if (object == nullptr) return nullptr;
    return JsonObject("object", std::string(object->ClassName()));
  }
  Json operator()(const Decimal& number) const { return number.text(); }
  Json operator()(const ByteArray& array) const { return EncodeArray(array); }
  Json operator()(const ByteTable& table) const { return EncodeTable(table); }
  Json operator()(const ArrayShape& shape) const { return EncodeShape(shape); }
  Json operator()(ByteArray* array) const { return EncodeArray(*array); }
  Json operator()(ByteTable* table) const { return EncodeTable(*table); }
  // Numbers and Booleans.
  template <class T>
  Json operator()(T number) const {
    return number;
  }
};

}  // namespace

bool Holds(const Variant& value, InterfaceType type) noexcept {
  switch (type) {
    case InterfaceType::None:
    case InterfaceType::Variant:
      return true;
    case InterfaceType::Boolean:
      return value.Get<bool>() != nullptr;
    case InterfaceType::Byte:
      return value.Get<Byte>() != nullptr;
    case InterfaceType::Integer:
      return value.Get<Integer>() != nullptr;
    case InterfaceType::String:
      return value.Get<String>() != nullptr;
    case InterfaceType::ByteArray:
      return value.AsByteArray() != nullptr;
    case InterfaceType::ByteTable:
      return value.AsByteTable() != nullptr;
    case InterfaceType::ErrObject:
    case InterfaceType::Connection:
    case InterfaceType::Recordset:
    case InterfaceType::Field:
      return value.Get<ObjectRef>() != nullptr;
    default:
      return value.Get<Long>() != nullptr;
  }
}

Variant Converted(const Variant& value, InterfaceType type) {
  if (Holds(value, type)) return value;
  switch (type) {
    case InterfaceType::Boolean:
      return ToBoolean(value);
    case InterfaceType::Byte:
      return ToByte(value);
    case InterfaceType::Integer:
      return ToInteger(value);
    case InterfaceType::String:
      return ToText(value);
    case InterfaceType::ByteArray:
      if (value.IsEmpty()) return ByteArray();
      RaiseFault(FaultNumber::TypeMismatch);
    case InterfaceType::ByteTable:
      if (value.IsEmpty()) return ByteTable();
      RaiseFault(FaultNumber::TypeMismatch);
    case InterfaceType::ErrObject:
    case InterfaceType::Connection:
    case InterfaceType::Recordset:
    case InterfaceType::Field:
      return ConvertTo<ObjectRef>(value);
    default:
      return ToLong(value);
  }
}

Json EncodeVariant(const Variant& value) {
  constexpr int kReference = static_cast<int>(VarType::ByReference);
  Json json = JsonObject("vt", static_cast<int>(value.Type()) & ~kReference);
  json["value"] = value.Visit(Plain{});
  return json;
}

Json EncodeValue(const Variant& value, InterfaceType type) {
  if (type == InterfaceType::Variant) return EncodeVariant(value);
  if (Holds(value, type)) return value.Visit(Plain{});
  try {
    return Converted(value, type).Visit(Plain{});
  } catch (const RuntimeFault&) {
    return EncodeVariant(value);
  }
}

Json EncodeError(const AutomationError& error) {
  Json json = JsonObject("number", error.number());
  json["hex"] = HexNumber(error.number());
  json["source"] = EncodeText(error.source());
  json["description"] = EncodeText(error.description());
  return json;
}

}  // namespace vandpublic
