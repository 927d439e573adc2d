// Loading, values and calls.
#include "com/server_fixture.h"

#include <algorithm>

#include "com/guids.h"

namespace vandpublic {

HMODULE ServerModule() {
  static const HMODULE module = LoadLibraryW(L"VandPublic.dll");
  if (module == nullptr) throw std::runtime_error("VandPublic.dll is not beside the test program");
  return module;
}

ComPointer<IClassFactory> MakeFactory() {
  const auto get_class =
      EntryPoint<HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, LPVOID*)>("DllGetClassObject");
  ComPointer<IClassFactory> factory;
  get_class(kClassGuid, IID_IClassFactory, reinterpret_cast<void**>(factory.Receive()));
  return factory;
}

ComPointer<_clsPublic> MakeObject() {
  ComPointer<_clsPublic> object;
  MakeFactory()->CreateInstance(nullptr, kInterfaceGuid,
                                reinterpret_cast<void**>(object.Receive()));
  return object;
}

ComTest::ComTest() {
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  object_ = MakeObject();
  object_->put_DebugMode(DEBUG_MODE_OFF);
}

ComTest::~ComTest() {
  object_ = {};
  CoUninitialize();
}

Bytes::Bytes(std::initializer_list<unsigned> bytes, LONG lower) {
  SAFEARRAYBOUND bound{static_cast<ULONG>(bytes.size()), lower};
  array_ = SafeArrayCreate(VT_UI1, 1, &bound);
  std::transform(bytes.begin(), bytes.end(), static_cast<BYTE*>(array_->pvData),
                 [](unsigned byte) { return static_cast<BYTE>(byte); });
}

std::vector<unsigned> Bytes::values() const {
  if (array_ == nullptr) return {};
  const auto* const data = static_cast<const BYTE*>(array_->pvData);
  return {data, data + array_->rgsabound[0].cElements};
}

LONG Bytes::lower() const { return array_ == nullptr ? -1 : array_->rgsabound[0].lLbound; }

VARIANT Number(short value) {
  VARIANT variant{};
  variant.vt = VT_I2;
  variant.iVal = value;
  return variant;
}

VARIANT Number32(LONG value) {
  VARIANT variant{};
  variant.vt = VT_I4;
  variant.lVal = value;
  return variant;
}

VARIANT Real(double value) {
  VARIANT variant{};
  variant.vt = VT_R8;
  variant.dblVal = value;
  return variant;
}

VARIANT Truth(bool value) {
  VARIANT variant{};
  variant.vt = VT_BOOL;
  variant.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
  return variant;
}

VARIANT Missing() {
  VARIANT variant{};
  variant.vt = VT_ERROR;
  variant.scode = DISP_E_PARAMNOTFOUND;
  return variant;
}

VARIANT Borrowed(BSTR text) {
  VARIANT variant{};
  variant.vt = VT_BSTR;
  variant.bstrVal = text;
  return variant;
}

VARIANT Reference(VARIANT& variable) { return Reference(VT_VARIANT, &variable); }

VARIANT Reference(VARTYPE type, void* data) {
  VARIANT variant{};
  variant.vt = static_cast<VARTYPE>(VT_BYREF | type);
  variant.byref = data;
  return variant;
}

std::wstring Outcome::text() const {
  if (value.get().vt != VT_BSTR) return L"(no text)";
  return {value.get().bstrVal, value.get().bstrVal + SysStringLen(value.get().bstrVal)};
}

namespace {

std::wstring Taken(BSTR text) {
  const std::wstring taken(text, text + SysStringLen(text));
  SysFreeString(text);
  return taken;
}

Outcome Invoke(IDispatch& object, DISPID id, DISPPARAMS parameters, WORD flags) {
  Outcome outcome;
  EXCEPINFO record{};
  outcome.result = object.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                                 outcome.value.Receive(), &record, &outcome.bad_argument);
  outcome.code = record.scode;
  outcome.texts_are_there = record.bstrSource != nullptr && record.bstrDescription != nullptr;
  outcome.source = Taken(record.bstrSource);
  outcome.description = Taken(record.bstrDescription);
  return outcome;
}

}  // namespace

DISPID IdOf(IDispatch& object, const wchar_t* name) {
  std::wstring writable = name;
  LPOLESTR names[] = {writable.data()};
  DISPID id = DISPID_UNKNOWN;
  object.GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id);
  return id;
}

Outcome Call(IDispatch& object, const wchar_t* name, std::vector<VARIANT> arguments, WORD flags) {
  std::reverse(arguments.begin(), arguments.end());
  DISPID put = DISPID_PROPERTYPUT;
  DISPPARAMS parameters{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
  if ((flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0) {
    parameters.rgdispidNamedArgs = &put;
    parameters.cNamedArgs = 1;
  }
  return Invoke(object, IdOf(object, name), parameters, flags);
}

Outcome CallNamed(IDispatch& object, const wchar_t* name, std::vector<VARIANT> positional,
                  const std::vector<std::pair<const wchar_t*, VARIANT>>& named) {
  std::vector<std::wstring> texts = {name};
  for (const auto& argument : named)
    texts.push_back(argument.first);
  std::vector<LPOLESTR> names;
  for (std::wstring& text : texts)
    names.push_back(text.data());
  std::vector<DISPID> ids(names.size());
  Outcome outcome;
  outcome.result = object.GetIDsOfNames(IID_NULL, names.data(), static_cast<UINT>(names.size()),
                                        LOCALE_USER_DEFAULT, ids.data());
  if (FAILED(outcome.result)) return outcome;
  std::vector<VARIANT> arguments;
  for (const auto& argument : named)
    arguments.push_back(argument.second);
  arguments.insert(arguments.end(), positional.rbegin(), positional.rend());
  const DISPPARAMS parameters{arguments.data(), ids.data() + 1, static_cast<UINT>(arguments.size()),
                              static_cast<UINT>(named.size())};
  return Invoke(object, ids[0], parameters, DISPATCH_METHOD);
}

}  // namespace vandpublic
