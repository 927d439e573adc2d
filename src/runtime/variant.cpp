// Variant's type codes and its view on arrays.
#include "runtime/variant.h"

namespace vandpublic {
namespace {

constexpr VarType operator|(VarType a, VarType b) {
  return static_cast<VarType>(static_cast<std::uint16_t>(a) | static_cast<std::uint16_t>(b));
}

struct TypeOf {
  VarType operator()(std::monostate) const { return VarType::Empty; }
  VarType operator()(NullValue) const { return VarType::Null; }
  VarType operator()(Integer) const { return VarType::Integer; }
  VarType operator()(Long) const { return VarType::Long; }
  VarType operator()(float) const { return VarType::Single; }
  VarType operator()(double) const { return VarType::Double; }
  VarType operator()(Currency) const { return VarType::Currency; }
  VarType operator()(Date) const { return VarType::Date; }
  VarType operator()(const String&) const { return VarType::String; }
  VarType operator()(const ObjectRef&) const { return VarType::Object; }
  VarType operator()(bool) const { return VarType::Boolean; }
  VarType operator()(const Decimal&) const { return VarType::Decimal; }
  VarType operator()(Byte) const { return VarType::Byte; }
  VarType operator()(const ByteArray&) const { return VarType::ByteArray; }
  VarType operator()(const ByteTable&) const { return VarType::ByteArray; }
  VarType operator()(const ArrayShape& shape) const {
    return VarType::Array | static_cast<VarType>(shape.element_type);
  }
  VarType operator()(const ByteArray*) const { return VarType::ByReference | VarType::ByteArray; }
  VarType operator()(const ByteTable*) const { return VarType::ByReference | VarType::ByteArray; }
};

}  // namespace

VarType Variant::Type() const noexcept { return std::visit(TypeOf{}, value_); }

ByteArray* Variant::AsByteArray() noexcept {
  if (auto* reference = Get<ByteArray*>()) return *reference;
  return Get<ByteArray>();
}

const ByteArray* Variant::AsByteArray() const noexcept {
  if (const auto* reference = Get<ByteArray*>()) return *reference;
  return Get<ByteArray>();
}

ByteTable* Variant::AsByteTable() noexcept {
  if (auto* reference = Get<ByteTable*>()) return *reference;
  return Get<ByteTable>();
}

const ByteTable* Variant::AsByteTable() const noexcept {
  if (const auto* reference = Get<ByteTable*>()) return *reference;
  return Get<ByteTable>();
}

std::optional<ArrayBound> Variant::Bound(Integer dimension) const noexcept {
  if (const ByteArray* array = AsByteArray()) {
    if (dimension != 1 || !array->IsDimensioned()) return std::nullopt;
    return array->Bound();
  }
  if (const ByteTable* table = AsByteTable()) {
    if (!table->IsDimensioned()) return std::nullopt;
    if (dimension == 1) return table->Rows();
    if (dimension == 2) return table->Columns();
    return std::nullopt;
  }
  const auto* shape = Get<ArrayShape>();
  if (shape == nullptr || dimension < 1) return std::nullopt;
  if (static_cast<std::size_t>(dimension) > shape->bounds.size()) return std::nullopt;
  return shape->bounds[static_cast<std::size_t>(dimension) - 1];
}

}  // namespace vandpublic
