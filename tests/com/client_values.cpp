// Element by element. The functions for single elements would do, but Wine refuses the last
// subscript there is.
#include "com/client_values.h"

#include <algorithm>
#include <stdexcept>
#include <vector>

#include "com/error_dispatch.h"
#include "platform/windows/automation/automation_values.h"
#include "platform/windows/automation/dispatch_objects.h"

namespace vandpublic {
namespace {

void Check(HRESULT result) {
  if (FAILED(result)) throw std::runtime_error("automation refuses a client's value");
}

OwnedVariant Held(SAFEARRAY* array, VARTYPE element_type) {
  VARIANT value;
  VariantInit(&value);
  value.vt = static_cast<VARTYPE>(VT_ARRAY | element_type);
  value.parray = array;
  return OwnedVariant(value);
}

SAFEARRAY* MakeArray(const std::vector<ArrayBound>& bounds, VARTYPE type) {
  if (bounds.empty()) return nullptr;
  std::vector<SAFEARRAYBOUND> theirs;
  for (const ArrayBound& bound : bounds)
    theirs.push_back({static_cast<ULONG>(bound.count), bound.lower});
  SAFEARRAY* const array = SafeArrayCreate(type, static_cast<UINT>(theirs.size()), theirs.data());
  if (array == nullptr) throw std::runtime_error("automation makes no array");
  return array;
}

OwnedVariant ObjectValue(const ObjectRef& object) {
  VARIANT value;
  VariantInit(&value);
  value.vt = VT_DISPATCH;
  if (object == nullptr) return OwnedVariant(value);
  auto dispatch = ComPointer<IDispatch>::Sharing(WrappedDispatch(*object));
  if (!dispatch) dispatch = MakeErrorDispatch(object);
  dispatch->AddRef();
  value.pdispVal = dispatch.get();
  return OwnedVariant(value);
}

// Where the element of our array or table stands in automation's, whose left subscript runs
// fastest.
std::size_t TheirPlace(std::size_t ours, const std::vector<ArrayBound>& bounds) {
  if (bounds.size() == 1) return ours;
  const auto rows = static_cast<std::size_t>(bounds[0].count);
  const auto columns = static_cast<std::size_t>(bounds[1].count);
  return ours % columns * rows + ours / columns;
}

VARIANT* ElementsOf(SAFEARRAY* array) { return static_cast<VARIANT*>(array->pvData); }

ArrayBound BoundOf(SAFEARRAY* array, UINT dimension) {
  LONG lower = 0;
  LONG upper = 0;
  Check(SafeArrayGetLBound(array, dimension, &lower));
  Check(SafeArrayGetUBound(array, dimension, &upper));
  return {lower, upper - lower + 1};
}

}  // namespace

OwnedVariant ClientValue(const Variant& value) {
  if (const auto* shape = value.Get<ArrayShape>()) {
    const auto type = static_cast<VARTYPE>(shape->element_type);
    return Held(MakeArray(shape->bounds, type), type);
  }
  if (const auto* object = value.Get<ObjectRef>()) return ObjectValue(*object);
  return ToAutomation(value);
}

OwnedVariant ScriptArray(const Variant& bytes) {
  const ByteArray* const array = bytes.AsByteArray();
  const ByteTable* const table = bytes.AsByteTable();
  const bool dimensioned = array != nullptr ? array->IsDimensioned() : table->IsDimensioned();
  if (!dimensioned) return Held(nullptr, VT_VARIANT);
  std::vector<ArrayBound> bounds;
  if (array != nullptr) bounds = {array->Bound()};
  if (table != nullptr) bounds = {table->Rows(), table->Columns()};
  OwnedVariant made = Held(MakeArray(bounds, VT_VARIANT), VT_VARIANT);
  const auto elements = array != nullptr ? array->Elements() : table->Elements();
  for (std::size_t i = 0; i < elements.size(); ++i) {
    VARIANT& element = ElementsOf(made.get().parray)[TheirPlace(i, bounds)];
    element.vt = VT_I2;
    element.iVal = elements[i];
  }
  return made;
}

Variant FromScriptArray(const VARIANT& value) {
  if (value.vt != (VT_ARRAY | VT_VARIANT)) return FromAutomation(value);
  SAFEARRAY* const array = value.parray;
  if (array == nullptr) return ByteArray();
  std::vector<ArrayBound> bounds;
  for (UINT i = 1; i <= SafeArrayGetDim(array); ++i)
    bounds.push_back(BoundOf(array, i));
  std::size_t count = 1;
  for (const ArrayBound& bound : bounds)
    count *= static_cast<std::size_t>(bound.count);
  std::vector<Byte> bytes(count);
  for (std::size_t i = 0; i < count; ++i) {
    OwnedVariant byte;
    Check(VariantChangeType(byte.Receive(), &ElementsOf(array)[TheirPlace(i, bounds)], 0, VT_UI1));
    bytes[i] = byte.get().bVal;
  }
  if (bounds.size() == 1) return ByteArray(std::move(bytes), bounds[0].lower);
  ByteTable table(bounds[0], bounds[1]);
  std::copy(bytes.begin(), bytes.end(), table.Elements().begin());
  return table;
}

}  // namespace vandpublic
