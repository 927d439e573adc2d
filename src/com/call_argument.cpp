// The conversions by the parameter's type.
#include "com/call_argument.h"

#include "com/byte_elements.h"
#include "platform/windows/automation/automation_values.h"
#include "platform/windows/automation/com_pointer.h"
#include "platform/windows/automation/dispatch_objects.h"
#include "runtime/errors.h"

namespace vandpublic {
namespace {

bool IsArrayType(InterfaceType type) noexcept {
  return type == InterfaceType::ByteArray || type == InterfaceType::ByteTable;
}

VARTYPE AutomationType(InterfaceType type) noexcept {
  switch (type) {
    case InterfaceType::Boolean:
      return VT_BOOL;
    case InterfaceType::Byte:
      return VT_UI1;
    case InterfaceType::Integer:
      return VT_I2;
    case InterfaceType::String:
      return VT_BSTR;
    default:
      return VT_I4;
  }
}

// An object as a parameter's class sees it: a stand-in needs nothing but the members used.
ObjectRef Wrapped(IDispatch* object, InterfaceType type) {
  switch (type) {
    case InterfaceType::Connection:
      return WrapConnection(object);
    case InterfaceType::Recordset:
      return WrapRecordset(object);
    case InterfaceType::Field:
      return WrapField(object);
    default:
      return WrapObject(object);
  }
}

// The component's own conversion, its faults as automation's results.
Variant FromValue(const VARIANT& value) {
  try {
    return FromAutomation(value);
  } catch (const RuntimeFault& fault) {
    const bool overflow = fault.number() == static_cast<Long>(FaultNumber::Overflow);
    throw Refused{overflow ? DISP_E_OVERFLOW : DISP_E_TYPEMISMATCH};
  }
}

bool IsSameText(const Variant& a, const Variant& b) noexcept {
  const auto* const first = a.Get<String>();
  const auto* const second = b.Get<String>();
  return first == nullptr || second == nullptr || first->IsAbsent() == second->IsAbsent();
}

}  // namespace

CallArgument::CallArgument(const Parameter& parameter, VARIANTARG& given, LCID locale)
    : parameter_(parameter), place_(given), locale_(locale), missing_(place_.IsMissing()) {
  if (missing_) return;
  value_ = Read();
  if (parameter_.by_reference) before_ = value_;
}

Variant CallArgument::Read() {
  switch (parameter_.type) {
    case InterfaceType::ByteArray:
    case InterfaceType::ByteTable:
      return ReadBytes(place_, locale_);
    case InterfaceType::Variant:
      return ReadVariant();
    case InterfaceType::ErrObject:
    case InterfaceType::Connection:
    case InterfaceType::Recordset:
    case InterfaceType::Field:
      return ReadObject();
    default:
      break;
  }
  const VARTYPE type = AutomationType(parameter_.type);
  const VARIANT value = place_.Value();
  // A text of an odd number of bytes would lose the last one in the conversion.
  if (value.vt == type) return FromAutomation(value);
  return FromAutomation(ChangedType(value, type, locale_).get());
}

Variant CallArgument::ReadVariant() {
  const VARIANT value = place_.Value();
  if (value.vt == (VT_ARRAY | VT_VARIANT)) {
    try {
      const Variant bytes = ReadBytes(place_, locale_);
      return bytes.IsEmpty() ? ByteArray() : bytes;
    } catch (const Refused&) {
      // Other elements than bytes: an array of which the component sees the bounds only.
    }
  }
  return FromValue(value);
}

Variant CallArgument::ReadObject() {
  const VARIANT value = place_.Value();
  if (value.vt == VT_EMPTY || value.vt == VT_NULL) return ObjectRef();
  if (value.vt == VT_DISPATCH) return Wrapped(value.pdispVal, parameter_.type);
  if (value.vt != VT_UNKNOWN) throw Refused{DISP_E_TYPEMISMATCH};
  if (value.punkVal == nullptr) return ObjectRef();
  ComPointer<IDispatch> object;
  const HRESULT result =
      value.punkVal->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(object.Receive()));
  if (FAILED(result)) throw Refused{DISP_E_TYPEMISMATCH};
  return Wrapped(object.get(), parameter_.type);
}

bool CallArgument::IsSameVariable(const CallArgument& other) const noexcept {
  if (missing_ || other.missing_ || parameter_.type != other.parameter_.type) return false;
  if (!parameter_.by_reference || !other.parameter_.by_reference) return false;
  if (IsArrayType(parameter_.type) && place_.Array() != nullptr) {
    return place_.Array() == other.place_.Array();
  }
  return place_.IsWritable() && place_.Address() == other.place_.Address();
}

void CallArgument::WriteBack() {
  if (missing_ || !parameter_.by_reference || !place_.IsWritable()) return;
  // A variable that nothing was assigned to has the parameter's type afterwards: 0 is written too.
  const bool was_empty = place_.Value().vt == VT_EMPTY && !IsArrayType(parameter_.type) &&
                         parameter_.type != InterfaceType::Variant;
  if (!was_empty && value_ == before_ && IsSameText(value_, before_)) return;
  if (value_.Get<ObjectRef>() != nullptr && parameter_.type != InterfaceType::Variant) return;
  const bool same_array =
      place_.IsArray() && value_.Type() == before_.Type() && value_.AsByteArray() != nullptr;
  if (IsArrayType(parameter_.type) || same_array) return WriteBytes(place_, value_, locale_);
  place_.Store(ToAutomation(value_), locale_);
}

bool CallArgument::IsReturnedBy(const Variant& result) const {
  return !missing_ && parameter_.type == InterfaceType::Variant && result == value_ &&
         value_ == before_;
}

OwnedVariant CallArgument::CopyOfGiven() const {
  OwnedVariant copy;
  VARIANT value = place_.Value();
  Require(VariantCopy(copy.Receive(), &value));
  return copy;
}

}  // namespace vandpublic
