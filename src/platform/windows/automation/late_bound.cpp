// GetIDsOfNames and Invoke.
#include "platform/windows/automation/late_bound.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <vector>

#include "platform/windows/automation/automation_errors.h"
#include "platform/windows/automation/automation_values.h"
#include "runtime/errors.h"

namespace vandpublic {
namespace {

HRESULT LookUp(IDispatch& object, const wchar_t* name, DISPID& id) {
  std::wstring spelled = name;  // the interface wants it writable
  LPOLESTR names[] = {spelled.data()};
  return object.GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id);
}

DISPID FindMember(IDispatch& object, const wchar_t* name) {
  DISPID id = DISPID_UNKNOWN;
  const HRESULT result = LookUp(object, name, id);
  if (FAILED(result)) RaiseResult(result);
  return id;
}

Variant Invoke(IDispatch& object, DISPID member, WORD flags, DISPPARAMS& parameters) {
  OwnedVariant result;
  EXCEPINFO exception{};
  UINT bad_argument = 0;
  const bool wants_result = (flags & (DISPATCH_METHOD | DISPATCH_PROPERTYGET)) != 0;
  const HRESULT outcome =
      object.Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                    wants_result ? result.Receive() : nullptr, &exception, &bad_argument);
  if (FAILED(outcome)) RaiseInvokeFailure(outcome, exception);
  return FromAutomation(result.get());
}

// `arguments` stand last first, as Invoke takes them.
Variant Invoke(IDispatch& object, DISPID member, WORD flags, std::vector<VARIANT>& arguments) {
  DISPPARAMS parameters{};
  parameters.rgvarg = arguments.data();
  parameters.cArgs = static_cast<UINT>(arguments.size());
  return Invoke(object, member, flags, parameters);
}

void InvokePut(IDispatch& object, const wchar_t* name, WORD flags, VARIANT value) {
  DISPID put = DISPID_PROPERTYPUT;
  DISPPARAMS parameters{};
  parameters.rgvarg = &value;
  parameters.cArgs = 1;
  parameters.rgdispidNamedArgs = &put;
  parameters.cNamedArgs = 1;
  Invoke(object, FindMember(object, name), flags, parameters);
}

// The values without their ownership, last first.
std::vector<VARIANT> Reversed(std::span<const OwnedVariant> values) {
  std::vector<VARIANT> reversed;
  std::transform(values.rbegin(), values.rend(), std::back_inserter(reversed),
                 [](const OwnedVariant& value) { return value.get(); });
  return reversed;
}

std::vector<OwnedVariant> Converted(std::span<const Variant> values) {
  std::vector<OwnedVariant> converted;
  std::transform(values.begin(), values.end(), std::back_inserter(converted), &ToAutomation);
  return converted;
}

Variant InvokeGet(IDispatch& object, DISPID member, std::span<const Variant> arguments) {
  const std::vector<OwnedVariant> converted = Converted(arguments);
  std::vector<VARIANT> reversed = Reversed(converted);
  // As script engines ask: with an argument, what looks like a property may be a method.
  const WORD with_arguments = DISPATCH_PROPERTYGET | DISPATCH_METHOD;
  return Invoke(object, member, arguments.empty() ? WORD{DISPATCH_PROPERTYGET} : with_arguments,
                reversed);
}

}  // namespace

OwnedVariant MissingArgument() noexcept {
  VARIANT missing;
  VariantInit(&missing);
  missing.vt = VT_ERROR;
  missing.scode = DISP_E_PARAMNOTFOUND;
  return OwnedVariant(missing);
}

Variant LateBound::Get(const wchar_t* name, std::span<const Variant> arguments) const {
  return InvokeGet(*object_.get(), FindMember(*object_.get(), name), arguments);
}

Variant LateBound::GetElseDefault(const wchar_t* name, std::span<const Variant> arguments) const {
  DISPID member = DISPID_UNKNOWN;
  if (LookUp(*object_.get(), name, member) == DISP_E_UNKNOWNNAME) member = DISPID_VALUE;
  return InvokeGet(*object_.get(), member, arguments);
}

void LateBound::Put(const wchar_t* name, const Variant& value) const {
  const OwnedVariant converted = ToAutomation(value);
  InvokePut(*object_.get(), name, DISPATCH_PROPERTYPUT, converted.get());
}

void LateBound::PutReference(const wchar_t* name, IDispatch* value) const {
  VARIANT reference;
  VariantInit(&reference);
  reference.vt = VT_DISPATCH;
  reference.pdispVal = value;
  InvokePut(*object_.get(), name, DISPATCH_PROPERTYPUTREF, reference);
}

Variant LateBound::Call(const wchar_t* name, std::span<OwnedVariant> arguments) const {
  std::vector<VARIANT> reversed = Reversed(arguments);
  return Invoke(*object_.get(), FindMember(*object_.get(), name), DISPATCH_METHOD, reversed);
}

Variant LateBound::Call(const wchar_t* name, std::initializer_list<Variant> arguments) const {
  std::vector<OwnedVariant> converted = Converted({arguments.begin(), arguments.size()});
  return Call(name, converted);
}

Variant LateBound::CallWithReferences(const wchar_t* name, std::span<Variant> arguments) const {
  std::vector<OwnedVariant> converted = Converted(arguments);
  std::vector<VARIANT> references;
  std::transform(converted.rbegin(), converted.rend(), std::back_inserter(references),
                 [](OwnedVariant& value) {
                   VARIANT reference;
                   VariantInit(&reference);
                   reference.vt = VT_BYREF | VT_VARIANT;
                   reference.pvarVal = value.Receive();
                   return reference;
                 });
  Variant result = Invoke(*object_.get(), FindMember(*object_.get(), name),
                          DISPATCH_METHOD | DISPATCH_PROPERTYGET, references);
  std::transform(converted.begin(), converted.end(), arguments.begin(),
                 [](const OwnedVariant& value) { return FromAutomation(value.get()); });
  return result;
}

LateBound CreateObject(const wchar_t* class_name) {
  CLSID id{};
  ComPointer<IDispatch> object;
  const bool made =
      SUCCEEDED(CLSIDFromProgID(class_name, &id)) &&
      SUCCEEDED(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER,
                                 IID_IDispatch, reinterpret_cast<void**>(object.Receive())));
  if (!made || !object) RaiseFault(FaultNumber::CannotCreateObject);
  return LateBound(object.get());
}

}  // namespace vandpublic
