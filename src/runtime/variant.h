// Variant: a tagged value with automation's type codes.
#ifndef VANDPUBLIC_RUNTIME_VARIANT_H
#define VANDPUBLIC_RUNTIME_VARIANT_H

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "arrays.h"
#include "basic_types.h"
#include "object.h"
#include "string_value.h"

namespace vandpublic {

// Type codes, as in the platform's VARTYPE.
enum class VarType : std::uint16_t {
  Empty = 0,
  Null = 1,
  Integer = 2,
  Long = 3,
  Single = 4,
  Double = 5,
  Currency = 6,
  Date = 7,
  String = 8,
  Object = 9,
  Boolean = 11,
  Variant = 12,  // as the element type of an array only
  Decimal = 14,
  Byte = 17,
  Array = 0x2000,        // added to the element type
  ByReference = 0x4000,  // added to the type of the variable
  ByteArray = Array | Byte,
};

struct NullValue {
  bool operator==(const NullValue&) const = default;
};

// A fixed-point amount: the value times 10,000.
struct Currency {
  std::int64_t scaled = 0;
  bool operator==(const Currency&) const = default;
};

// Days since 30 December 1899; the time of day is the fraction.
struct Date {
  double days = 0;
  bool operator==(const Date&) const = default;
};

// A decimal number of up to 28 digits, kept as its text ("-1234.50"), so that nothing rounds it.
class VANDPUBLIC_API Decimal {
 public:
  // An optional sign, digits, at most one point. Nothing for other texts and longer numbers.
  static std::optional<Decimal> Parse(std::string_view text);

  // A "-" where needed, at least one digit before the point, zeros behind it as they were given.
  const std::string& text() const noexcept { return text_; }
  // Nothing when that takes more than 28 digits.
  std::optional<Decimal> PlusOne() const;
  bool operator==(const Decimal&) const = default;

 private:
  explicit Decimal(std::string text) : text_(std::move(text)) {}
  std::string text_;
};

class VANDPUBLIC_API Variant {
 public:
  // Empty, as in a variable that nothing was assigned to.
  Variant() = default;
  Variant(NullValue value) : value_(value) {}
  Variant(Integer value) : value_(value) {}
  Variant(Long value) : value_(value) {}
  Variant(float value) : value_(value) {}
  Variant(double value) : value_(value) {}
  Variant(Currency value) : value_(value) {}
  Variant(Date value) : value_(value) {}
  Variant(String value) : value_(std::move(value)) {}
  Variant(const char16_t* value) : value_(String(value)) {}
  Variant(const char* value) : value_(String(value)) {}
  Variant(ObjectRef value) : value_(std::move(value)) {}
  Variant(bool value) : value_(value) {}
  Variant(Decimal value) : value_(std::move(value)) {}
  Variant(Byte value) : value_(value) {}
  Variant(ByteArray value) : value_(std::move(value)) {}
  Variant(ByteTable value) : value_(std::move(value)) {}
  Variant(ArrayShape value) : value_(std::move(value)) {}

  // A variant that refers to the caller's array, which must outlive it; nothing is copied.
  static Variant Referring(ByteArray& array) { return Variant(&array); }
  static Variant Referring(ByteTable& table) { return Variant(&table); }

  // The type code; arrays and references with their flags.
  VarType Type() const noexcept;
  bool IsNull() const noexcept { return std::holds_alternative<NullValue>(value_); }
  bool IsEmpty() const noexcept { return std::holds_alternative<std::monostate>(value_); }

  // The value when it is exactly a T, else null.
  template <class T>
  T* Get() noexcept {
    return std::get_if<T>(&value_);
  }
  template <class T>
  const T* Get() const noexcept {
    return std::get_if<T>(&value_);
  }
  // The byte array that the variant holds or refers to, else null.
  ByteArray* AsByteArray() noexcept;
  const ByteArray* AsByteArray() const noexcept;
  ByteTable* AsByteTable() noexcept;
  const ByteTable* AsByteTable() const noexcept;

  // The bounds of one dimension of the array that the variant holds or refers to; nothing when
  // there is no array, no storage or no such dimension. Dimensions count from 1.
  std::optional<ArrayBound> Bound(Integer dimension) const noexcept;

  // Calls the visitor with the value as the type it has (std::monostate when empty).
  template <class Visitor>
  decltype(auto) Visit(Visitor&& visitor) const {
    return std::visit(std::forward<Visitor>(visitor), value_);
  }

  bool operator==(const Variant&) const = default;

 private:
  explicit Variant(ByteArray* array) : value_(array) {}
  explicit Variant(ByteTable* table) : value_(table) {}

  std::variant<std::monostate, NullValue, Integer, Long, float, double, Currency, Date, String,
               ObjectRef, bool, Decimal, Byte, ByteArray, ByteTable, ArrayShape, ByteArray*,
               ByteTable*>
      value_;
};

}  // namespace vandpublic

#endif
