// The conversions of values. Arrays are copied; what works on a caller's array in place is the
// business of the one who has it.
#include "platform/windows/automation/automation_values.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <new>
#include <type_traits>
#include <vector>

#include "platform/windows/automation/com_pointer.h"
#include "platform/windows/automation/decimal_values.h"
#include "platform/windows/automation/dispatch_objects.h"
#include "platform/windows/wide_text.h"
#include "runtime/errors.h"

namespace vandpublic {
namespace {

// Access to an array's elements, which stay where they are meanwhile.
class LockedElements {
 public:
  explicit LockedElements(SAFEARRAY* array) : array_(array) {
    void* data = nullptr;
    if (FAILED(SafeArrayAccessData(array, &data))) RaiseFault(FaultNumber::TypeMismatch);
    bytes_ = static_cast<Byte*>(data);
  }
  ~LockedElements() { SafeArrayUnaccessData(array_); }
  LockedElements(const LockedElements&) = delete;
  LockedElements& operator=(const LockedElements&) = delete;

  Byte* bytes() const noexcept { return bytes_; }

 private:
  SAFEARRAY* array_;
  Byte* bytes_ = nullptr;
};

SAFEARRAYBOUND AutomationBound(ArrayBound bound) noexcept {
  return {static_cast<ULONG>(bound.count), bound.lower};
}

// Automation keeps the left subscript of a table running fastest, we the right one.
template <class Copy>
void ForEachPlace(const ByteTable& table, Copy copy) {
  const auto rows = static_cast<std::size_t>(table.Rows().count);
  const auto columns = static_cast<std::size_t>(table.Columns().count);
  for (std::size_t row = 0; row < rows; ++row) {
    for (std::size_t column = 0; column < columns; ++column)
      copy(row * columns + column, column * rows + row);
  }
}

struct Converter {
  VARIANT value{};

  void operator()(std::monostate) const noexcept {}
  void operator()(NullValue) noexcept { value.vt = VT_NULL; }
  void operator()(Integer number) noexcept {
    value.vt = VT_I2;
    value.iVal = number;
  }
  void operator()(Long number) noexcept {
    value.vt = VT_I4;
    value.lVal = number;
  }
  void operator()(float number) noexcept {
    value.vt = VT_R4;
    value.fltVal = number;
  }
  void operator()(double number) noexcept {
    value.vt = VT_R8;
    value.dblVal = number;
  }
  void operator()(Currency amount) noexcept {
    value.vt = VT_CY;
    value.cyVal.int64 = amount.scaled;
  }
  void operator()(Date date) noexcept {
    value.vt = VT_DATE;
    value.date = date.days;
  }
  void operator()(const String& text) {
    value.bstrVal = MakeBstr(text);
    value.vt = VT_BSTR;
  }
  void operator()(const ObjectRef& object) {
    IDispatch* const dispatch = object == nullptr ? nullptr : WrappedDispatch(*object);
    if (object != nullptr && dispatch == nullptr) RaiseFault(FaultNumber::TypeMismatch);
    if (dispatch != nullptr) dispatch->AddRef();
    value.vt = VT_DISPATCH;
    value.pdispVal = dispatch;
  }
  void operator()(bool truth) noexcept {
    value.vt = VT_BOOL;
    value.boolVal = truth ? VARIANT_TRUE : VARIANT_FALSE;
  }
  void operator()(const Decimal& number) noexcept {
    // The number's first two bytes lie where the type stands.
    value.decVal = ToDecimalValue(number);
    value.vt = VT_DECIMAL;
  }
  void operator()(Byte number) noexcept {
    value.vt = VT_UI1;
    value.bVal = number;
  }
  void operator()(const ByteArray& array) { SetArray(MakeSafeArray(array)); }
  void operator()(const ByteTable& table) { SetArray(MakeSafeArray(table)); }
  void operator()(const ByteArray* array) { SetArray(MakeSafeArray(*array)); }
  void operator()(const ByteTable* table) { SetArray(MakeSafeArray(*table)); }
  [[noreturn]] void operator()(const ArrayShape&) const { RaiseFault(FaultNumber::TypeMismatch); }

 private:
  void SetArray(SAFEARRAY* array) noexcept {
    value.vt = VT_ARRAY | VT_UI1;
    value.parray = array;
  }
};

ArrayBound BoundOf(SAFEARRAY* array, UINT dimension) {
  LONG lower = 0;
  LONG upper = -1;
  SafeArrayGetLBound(array, dimension, &lower);
  SafeArrayGetUBound(array, dimension, &upper);
  const std::int64_t count = std::int64_t{upper} - lower + 1;
  if (count > INT32_MAX) RaiseFault(FaultNumber::Overflow);
  return {lower, static_cast<Long>(count)};
}

Variant Shape(SAFEARRAY* array, VARTYPE element_type) {
  ArrayShape shape{.element_type = element_type, .bounds = {}};
  const UINT dimensions = array == nullptr ? 0 : SafeArrayGetDim(array);
  for (UINT i = 1; i <= dimensions; ++i)
    shape.bounds.push_back(BoundOf(array, i));
  return shape;
}

Variant FromByteRow(SAFEARRAY* array) {
  const ArrayBound bound = BoundOf(array, 1);
  const LockedElements elements(array);
  return ByteArray(std::vector<Byte>(elements.bytes(), elements.bytes() + bound.count),
                   bound.lower);
}

Variant FromByteTable(SAFEARRAY* array) {
  ByteTable table(BoundOf(array, 1), BoundOf(array, 2));
  const LockedElements elements(array);
  ForEachPlace(table, [&](std::size_t ours, std::size_t theirs) {
    table.Elements()[ours] = elements.bytes()[theirs];
  });
  return table;
}

Variant FromArray(SAFEARRAY* array, VARTYPE element_type) {
  if (element_type != VT_UI1) return Shape(array, element_type);
  if (array == nullptr) return ByteArray();
  const UINT dimensions = SafeArrayGetDim(array);
  if (dimensions == 1) return FromByteRow(array);
  const bool is_table =
      dimensions == 2 && BoundOf(array, 1).count > 0 && BoundOf(array, 2).count > 0;
  return is_table ? FromByteTable(array) : Shape(array, element_type);
}

Variant FromWholeNumber(std::uint64_t magnitude, bool negative) {
  return *Decimal::Parse((negative ? "-" : "") + std::to_string(magnitude));
}

Variant FromUnknown(IUnknown* unknown) {
  if (unknown == nullptr) return ObjectRef();
  ComPointer<IDispatch> object;
  const HRESULT result =
      unknown->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(object.Receive()));
  if (FAILED(result)) RaiseFault(FaultNumber::TypeMismatch);
  return WrapObject(object.get());
}

Variant FollowReference(const VARIANT& value) {
  VARIANT source = value;  // the function wants it writable, and leaves it as it is
  OwnedVariant target;
  if (FAILED(VariantCopyInd(target.Receive(), &source))) RaiseFault(FaultNumber::TypeMismatch);
  return FromAutomation(target.get());
}

Variant FromScalar(const VARIANT& value) {
  switch (value.vt) {
    case VT_EMPTY:
      return {};
    case VT_NULL:
      return NullValue{};
    case VT_I2:
      return Integer{value.iVal};
    case VT_I4:
    case VT_INT:
      return static_cast<Long>(value.lVal);
    case VT_R4:
      return value.fltVal;
    case VT_R8:
      return value.dblVal;
    case VT_CY:
      return Currency{value.cyVal.int64};
    case VT_DATE:
      return Date{value.date};
    case VT_BSTR:
      return FromBstr(value.bstrVal);
    case VT_DISPATCH:
      return WrapObject(value.pdispVal);
    case VT_UNKNOWN:
      return FromUnknown(value.punkVal);
    case VT_BOOL:
      return value.boolVal != VARIANT_FALSE;
    case VT_DECIMAL:
      return FromDecimalValue(value.decVal);
    case VT_UI1:
      return Byte{value.bVal};
    case VT_I1:
      return static_cast<Integer>(static_cast<signed char>(value.bVal));
    case VT_UI2:
      return static_cast<Long>(value.uiVal);
    case VT_UI4:
    case VT_UINT:
      return FromWholeNumber(value.ulVal, false);
    case VT_I8:
      return FromWholeNumber(value.llVal < 0 ? 0 - value.ullVal : value.ullVal, value.llVal < 0);
    case VT_UI8:
      return FromWholeNumber(value.ullVal, false);
    case VT_ERROR:
      if (value.scode == DISP_E_PARAMNOTFOUND) return {};
      RaiseFault(FaultNumber::TypeMismatch);
    default:
      RaiseFault(FaultNumber::TypeMismatch);
  }
}

}  // namespace

BSTR MakeBstr(const String& text) {
  if (text.IsAbsent()) return nullptr;
  const std::size_t size = text.ByteLength();
  const std::size_t whole = text.Length() * sizeof(char16_t);
  BSTR const made = size > UINT32_MAX - sizeof(char16_t)
                        ? nullptr
                        : SysAllocStringByteLen(nullptr, static_cast<UINT>(size));
  if (made == nullptr) RaiseFault(FaultNumber::OutOfMemory);
  if (whole > 0) std::memcpy(made, text.view().data(), whole);
  if (size > whole) reinterpret_cast<Byte*>(made)[whole] = text.ByteAt(whole);
  return made;
}

BSTR MakeBstr(std::u16string_view text) { return MakeBstr(String(text)); }

String FromBstr(BSTR text) {
  if (text == nullptr) return String::Absent();
  return String::FromBytes({reinterpret_cast<const char*>(text), SysStringByteLen(text)});
}

OwnedVariant ToAutomation(const Variant& value) {
  Converter converter;
  VariantInit(&converter.value);
  value.Visit([&](const auto& held) { converter(held); });
  return OwnedVariant(converter.value);
}

Variant FromAutomation(const VARIANT& value) {
  if ((value.vt & VT_BYREF) != 0) return FollowReference(value);
  if ((value.vt & VT_ARRAY) != 0) {
    return FromArray(value.parray, static_cast<VARTYPE>(value.vt & ~VT_ARRAY));
  }
  return FromScalar(value);
}

SAFEARRAY* MakeSafeArray(const ByteArray& array) {
  if (!array.IsDimensioned()) return nullptr;
  SAFEARRAYBOUND bound = AutomationBound(array.Bound());
  SAFEARRAY* const made = SafeArrayCreate(VT_UI1, 1, &bound);
  if (made == nullptr) RaiseFault(FaultNumber::OutOfMemory);
  const LockedElements elements(made);
  std::copy(array.Elements().begin(), array.Elements().end(), elements.bytes());
  return made;
}

SAFEARRAY* MakeSafeArray(const ByteTable& table) {
  if (!table.IsDimensioned()) return nullptr;
  std::array<SAFEARRAYBOUND, 2> bounds = {AutomationBound(table.Rows()),
                                          AutomationBound(table.Columns())};
  SAFEARRAY* const made = SafeArrayCreate(VT_UI1, 2, bounds.data());
  if (made == nullptr) RaiseFault(FaultNumber::OutOfMemory);
  const LockedElements elements(made);
  ForEachPlace(table, [&](std::size_t ours, std::size_t theirs) {
    elements.bytes()[theirs] = table.Elements()[ours];
  });
  return made;
}

}  // namespace vandpublic
