// JSON to values. Nothing is converted here that the protocol does not name: a number in quotes is
// a text, and does not fit a number.
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

#include "cli/hex_text.h"
#include "cli/json_values.h"
#include "cli/property_object.h"
#include "runtime/string_value.h"

namespace vandpublic {
namespace {

[[noreturn]] void Misfit(const std::string& needed) { throw ProtocolError(needed + " is needed"); }

// The object's value under the key, or null when there is none.
const Json* Find(const Json& object, const char* key) {
  const auto found = object.find(key);
  return found == object.end() ? nullptr : &*found;
}

void AllowOnly(const Json& object, std::initializer_list<std::string_view> keys) {
  for (const auto& [key, value] : object.items()) {
    bool known = false;
    for (const std::string_view allowed : keys)
      known = known || key == allowed;
    if (!known) throw ProtocolError("key '" + Quoted(key) + "' does not belong in this value");
  }
}

// A JSON number without a fraction (2.0 is one) in the range of T.
template <class T>
std::optional<T> WholeNumber(const Json& json) {
  if (json.is_number_unsigned()) {
    const auto number = json.get<std::uint64_t>();
    if (std::in_range<T>(number)) return static_cast<T>(number);
  } else if (json.is_number_integer()) {
    const auto number = json.get<std::int64_t>();
    if (std::in_range<T>(number)) return static_cast<T>(number);
  } else if (json.is_number_float()) {
    const auto number = json.get<double>();
    const bool in_range =
        number >= std::numeric_limits<T>::min() && number <= std::numeric_limits<T>::max();
    if (in_range && std::trunc(number) == number) return static_cast<T>(number);
  }
  return std::nullopt;
}

template <class T>
T NeedWhole(const Json& json, const char* needed) {
  if (const auto number = WholeNumber<T>(json)) return *number;
  Misfit(needed);
}

Integer NeedInteger(const Json& json) {
  return NeedWhole<Integer>(json, "a whole number from -32768 to 32767");
}
Long NeedLong(const Json& json) { return NeedWhole<Long>(json, "a whole number of 32 bits"); }
Byte NeedByte(const Json& json) { return NeedWhole<Byte>(json, "a whole number from 0 to 255"); }

bool NeedBoolean(const Json& json) {
  if (!json.is_boolean()) Misfit("true or false");
  return json.get<bool>();
}

void NeedNull(const Json& json) {
  if (!json.is_null()) Misfit("null");
}

double NeedNumber(const Json& json) {
  if (!json.is_number()) Misfit("a number");
  return json.get<double>();
}

float NeedSingle(const Json& json) {
  const double number = NeedNumber(json);
  if (std::abs(number) > std::numeric_limits<float>::max()) Misfit("a number of single precision");
  return static_cast<float>(number);
}

const std::string& NeedText(const Json& json) {
  if (!json.is_string()) Misfit("a text");
  return json.get_ref<const std::string&>();
}

std::vector<Byte> NeedHex(const Json& json) {
  if (json.is_string()) {
    if (auto bytes = FromHexText(json.get_ref<const std::string&>())) return std::move(*bytes);
  }
  Misfit("hexadecimal text, two digits a byte,");
}

String NeedString(const Json& json) {
  if (json.is_string()) return json.get_ref<const std::string&>();
  if (json.is_null()) return String::Absent();
  const Json* units = json.is_object() ? Find(json, "utf16le") : nullptr;
  if (units == nullptr) Misfit("a text, null or {\"utf16le\":HEX}");
  AllowOnly(json, {"utf16le"});
  const std::vector<Byte> bytes = NeedHex(*units);
  return String::FromBytes(std::string(bytes.begin(), bytes.end()));
}

Variant NeedEnumeration(const Json& json, const Enumeration& enumeration) {
  if (json.is_string()) {
    for (const EnumerationValue& member : enumeration.values) {
      if (SameName(member.name, json.get_ref<const std::string&>())) return Long{member.value};
    }
    Misfit("a member of " + std::string(enumeration.name));
  }
  return NeedLong(json);
}

ArrayBound NeedBound(const Json& json) {
  if (!json.is_array() || json.size() != 2) Misfit("[lower,upper]");
  const std::int64_t lower = NeedLong(json[0]);
  const std::int64_t upper = NeedLong(json[1]);
  const std::int64_t count = upper - lower + 1;
  if (count < 0 || !std::in_range<Long>(count)) Misfit("an upper bound not below the lower one");
  return {static_cast<Long>(lower), static_cast<Long>(count)};
}

Variant NeedTable(const Json& json) {
  AllowOnly(json, {"bytes", "bounds"});
  const Json& bounds = json["bounds"];
  if (!bounds.is_array() || bounds.size() != 2) Misfit("\"bounds\":[[lower,upper],[lower,upper]]");
  const ArrayBound rows = NeedBound(bounds[0]);
  const ArrayBound columns = NeedBound(bounds[1]);
  const std::vector<Byte> bytes = NeedHex(json["bytes"]);
  // Compared before the table is made, so that no memory is asked for that the text does not fill.
  if (std::int64_t{rows.count} * columns.count != static_cast<std::int64_t>(bytes.size()) ||
      bytes.empty()) {
    Misfit("one byte for each element between the bounds");
  }
  ByteTable table(rows, columns);
  std::copy(bytes.begin(), bytes.end(), table.Elements().begin());
  return table;
}

Variant NeedByteArray(const Json& json) {
  if (json.is_null()) return ByteArray();
  const bool fits = json.is_object() && Find(json, "bytes") != nullptr;
  if (!fits) Misfit("{\"bytes\":HEX} or null");
  AllowOnly(json, {"bytes", "lower"});
  const Json* lower = Find(json, "lower");
  std::vector<Byte> bytes = NeedHex(json["bytes"]);
  const Long first = lower == nullptr ? 0 : NeedLong(*lower);
  const std::int64_t last = first + static_cast<std::int64_t>(bytes.size()) - 1;
  if (last > std::numeric_limits<Long>::max()) Misfit("a smaller lower bound");
  return ByteArray(std::move(bytes), first);
}

// An array of one or two dimensions, whichever the value describes.
Variant NeedAnyByteArray(const Json& json) {
  const bool two_dimensional =
      json.is_object() && Find(json, "bounds") != nullptr && Find(json, "bytes") != nullptr;
  return two_dimensional ? NeedTable(json) : NeedByteArray(json);
}

Variant NeedErrorObject(const Json& json) {
  if (json.is_null()) return ObjectRef();
  if (!json.is_object()) Misfit("an object with Number, Source and Description, or null,");
  auto object = std::make_shared<PropertyObject>();
  for (const auto& [key, value] : json.items()) {
    if (SameName(key, "Number")) {
      object->Add(key, NeedLong(value));
    } else if (SameName(key, "Source") || SameName(key, "Description")) {
      object->Add(key, NeedString(value));
    } else {
      throw ProtocolError("key '" + Quoted(key) + "' does not belong in an error object");
    }
  }
  return ObjectRef(std::move(object));
}

Variant NeedUnsetObject(const Json& json) {
  if (json.is_null()) return ObjectRef();
  Misfit("{\"var\":NAME} of an object or null");
}

// "-12.5" with up to four decimals.
Variant NeedCurrency(const Json& json) {
  constexpr std::size_t kDecimals = 4;
  const std::string& text = NeedText(json);
  const std::size_t point = text.find('.');
  std::string digits = text.substr(0, point);
  std::string decimals = point == text.npos ? "" : text.substr(point + 1);
  const bool decimal_digits = decimals.find_first_not_of("0123456789") == decimals.npos;
  const bool has_digit = text.find_first_of("0123456789") != text.npos;
  if (!has_digit || !decimal_digits || decimals.size() > kDecimals) Misfit("text like \"12.5000\"");
  decimals.resize(kDecimals, '0');
  digits += decimals;
  Currency amount;
  const auto [end, error] =
      std::from_chars(digits.data(), digits.data() + digits.size(), amount.scaled);
  if (error != std::errc{} || end != digits.data() + digits.size()) {
    Misfit("text like \"12.5000\"");
  }
  return amount;
}

Variant NeedDecimal(const Json& json) {
  if (auto number = Decimal::Parse(NeedText(json))) return std::move(*number);
  Misfit("text like \"1234.50\"");
}

// An array whose elements the component never reads.
Variant NeedArrayShape(const Json& json, std::uint16_t element_type) {
  ArrayShape shape{element_type, {}};
  if (json.is_null()) return shape;
  const Json* bounds = json.is_object() ? Find(json, "bounds") : nullptr;
  if (bounds == nullptr || !bounds->is_array() || bounds->empty()) {
    Misfit("{\"bounds\":[[lower,upper],...]} or null");
  }
  AllowOnly(json, {"bounds"});
  for (const Json& bound : *bounds)
    shape.bounds.push_back(NeedBound(bound));
  return shape;
}

Variant DecodeTyped(int code, const Json& value) {
  switch (static_cast<VarType>(code)) {
    case VarType::Empty:
      NeedNull(value);
      return {};
    case VarType::Null:
      NeedNull(value);
      return NullValue{};
    case VarType::Integer:
      return NeedInteger(value);
    case VarType::Long:
      return NeedLong(value);
    case VarType::Single:
      return NeedSingle(value);
    case VarType::Double:
      return NeedNumber(value);
    case VarType::Currency:
      return NeedCurrency(value);
    case VarType::Date:
      return Date{NeedNumber(value)};
    case VarType::String:
      return NeedString(value);
    case VarType::Object:
      return NeedUnsetObject(value);
    case VarType::Boolean:
      return NeedBoolean(value);
    case VarType::Decimal:
      return NeedDecimal(value);
    case VarType::Byte:
      return NeedByte(value);
    case VarType::ByteArray:
      return NeedAnyByteArray(value);
    default:
      break;
  }
  constexpr int kArray = static_cast<int>(VarType::Array);
  const int element = code - kArray;
  const bool known_element = element >= 2 && element <= 17 && element != 10 && element != 15;
  if (!known_element) Misfit("a known variant type code");
  return NeedArrayShape(value, static_cast<std::uint16_t>(element));
}

}  // namespace

Variant DecodeVariant(const Json& json) {
  if (json.is_string()) return NeedString(json);
  if (json.is_boolean()) return json.get<bool>();
  if (json.is_null()) return NullValue{};
  if (json.is_number_float()) return json.get<double>();
  if (json.is_number()) {
    if (const auto number = WholeNumber<Long>(json)) return *number;
    return json.get<double>();
  }
  if (json.is_object()) {
    if (Find(json, "utf16le") != nullptr) return NeedString(json);
    if (Find(json, "bytes") != nullptr) return NeedAnyByteArray(json);
    if (const Json* code = Find(json, "vt")) {
      AllowOnly(json, {"vt", "value"});
      const Json* value = Find(json, "value");
      return DecodeTyped(NeedInteger(*code), value == nullptr ? Json() : *value);
    }
  }
  Misfit("plain JSON or {\"vt\":CODE,\"value\":...}");
}

Variant DecodeValue(const Json& json, InterfaceType type) {
  if (const Enumeration* enumeration = FindEnumeration(type)) {
    return NeedEnumeration(json, *enumeration);
  }
  switch (type) {
    case InterfaceType::Boolean:
      return NeedBoolean(json);
    case InterfaceType::Byte:
      return NeedByte(json);
    case InterfaceType::Integer:
      return NeedInteger(json);
    case InterfaceType::Long:
      return NeedLong(json);
    case InterfaceType::String:
      return NeedString(json);
    case InterfaceType::ByteArray:
      return NeedByteArray(json);
    case InterfaceType::ByteTable:
      // A one-dimensional array is passed as such; the member then finds no second subscript.
      return json.is_null() ? Variant(ByteTable()) : NeedAnyByteArray(json);
    case InterfaceType::ErrObject:
      return NeedErrorObject(json);
    case InterfaceType::Connection:
    case InterfaceType::Recordset:
    case InterfaceType::Field:
      return NeedUnsetObject(json);
    default:
      return DecodeVariant(json);
  }
}

}  // namespace vandpublic
