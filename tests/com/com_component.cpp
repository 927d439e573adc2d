// The four styles: how arguments are packed, called with and unpacked.
#include "com/com_component.h"

#include <windows.h>
// After windows.h, which it builds on.
#include <oleauto.h>

#include <array>
#include <map>
#include <stdexcept>
#include <vector>

#include "cli/json_values.h"
#include "com/client_values.h"
#include "members/member_table.h"
#include "platform/windows/automation/automation_values.h"
#include "platform/windows/automation/com_pointer.h"
#include "platform/windows/wide_text.h"
#include "runtime/utf8.h"

namespace vandpublic {
namespace {

constexpr const wchar_t* kProgId = L"Public_Module.clsPublic";
constexpr UINT kSlotsOfDispatch = 7;
constexpr HRESULT kRuntimeBase = static_cast<HRESULT>(0x800A0000);

bool IsByteArray(const Variant& value) {
  return value.AsByteArray() != nullptr || value.AsByteTable() != nullptr;
}

// A plain fault has its small number inside the component and in its cases.
Long PlainNumber(HRESULT code) {
  const auto number = static_cast<unsigned long>(code);
  return (number & 0xFFFF0000ul) == 0x800A0000ul ? Long{code} - Long{kRuntimeBase} : Long{code};
}

[[noreturn]] void RaiseRefused(HRESULT result, const MemberInfo& member, std::size_t index) {
  const auto name =
      index < member.parameters.size() ? member.parameters[index].name : std::string_view();
  switch (result) {
    case DISP_E_TYPEMISMATCH:
      throw ArgumentError(FaultNumber::TypeMismatch, index, name);
    case DISP_E_OVERFLOW:
      throw ArgumentError(FaultNumber::Overflow, index, name);
    case DISP_E_PARAMNOTOPTIONAL:
      throw ArgumentError(FaultNumber::ArgumentNotOptional, index, name);
    case DISP_E_BADPARAMCOUNT:
      throw ArgumentError(FaultNumber::WrongNumberOfArguments, index, name);
    default:
      throw std::runtime_error("COM failure " + std::to_string(result));
  }
}

void FreeTexts(EXCEPINFO& record) {
  SysFreeString(record.bstrSource);
  SysFreeString(record.bstrDescription);
  SysFreeString(record.bstrHelpFile);
}

std::u16string Required(BSTR text, const char* what) {
  if (text == nullptr) throw std::runtime_error(std::string(what) + " is null");
  return std::u16string(FromBstr(text).view());
}

// One caller's variable, which several parameters may refer to.
struct Holder {
  OwnedVariant value;
  bool by_reference = false;
};

class ComComponent final : public Component {
 public:
  ComComponent(ComPointer<IDispatch> object, CallStyle style)
      : object_(std::move(object)), style_(style) {}

  Variant Invoke(std::size_t slot, std::span<Variant* const> arguments) override {
    return style_ == CallStyle::Vtable ? CallVtable(slot, arguments)
                                       : CallDispatch(slot, arguments);
  }

 private:
  using Holders = std::map<Variant*, Holder>;

  // Script engines have nothing but Empty for an array without storage.
  OwnedVariant Packed(const Variant& value, InterfaceType type) const {
    OwnedVariant packed =
        style_ == CallStyle::Script && IsByteArray(value) ? ScriptArray(value) : ClientValue(value);
    const bool no_storage = (packed.get().vt & VT_ARRAY) != 0 && packed.get().parray == nullptr;
    const bool as_empty = style_ != CallStyle::Typed && type != InterfaceType::Variant;
    if (no_storage && as_empty) return {};
    return packed;
  }

  VARIANTARG Argument(const Parameter& parameter, Variant* value, Holders& holders) const {
    VARIANTARG argument;
    VariantInit(&argument);
    if (value == nullptr) {
      argument.vt = VT_ERROR;
      argument.scode = DISP_E_PARAMNOTFOUND;
      return argument;
    }
    const auto [found, is_new] = holders.try_emplace(value);
    Holder& holder = found->second;
    if (is_new) holder.value = Packed(*value, parameter.type);
    if (!parameter.by_reference) return holder.value.get();
    holder.by_reference = true;
    VARIANT* const variable = holder.value.Receive();
    const bool as_variant = style_ != CallStyle::Typed || variable->vt == VT_EMPTY ||
                            variable->vt == VT_NULL || variable->vt == VT_DECIMAL ||
                            parameter.type == InterfaceType::Variant;
    const VARTYPE type = as_variant ? VARTYPE{VT_VARIANT} : variable->vt;
    argument.vt = static_cast<VARTYPE>(VT_BYREF | type);
    argument.byref = as_variant ? static_cast<void*>(variable) : &variable->byref;
    return argument;
  }

  static void Unpack(Holders& holders) {
    for (auto& [variable, holder] : holders) {
      const VARIANT& value = holder.value.get();
      if (!holder.by_reference || value.vt == VT_DISPATCH) continue;
      // An array that was given without storage and has none still.
      if (value.vt == VT_EMPTY && IsByteArray(*variable)) continue;
      *variable = IsByteArray(*variable) ? FromScriptArray(value) : FromAutomation(value);
    }
  }

  Variant CallDispatch(std::size_t slot, std::span<Variant* const> given) {
    const MemberInfo& member = MemberTable()[slot];
    Holders holders;
    std::vector<VARIANTARG> arguments(given.size());
    for (std::size_t i = 0; i < given.size(); ++i) {
      arguments[given.size() - 1 - i] = Argument(member.parameters[i], given[i], holders);
    }
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
    WORD flags = DISPATCH_METHOD;
    if (member.kind == SlotKind::PropertyGet) flags = DISPATCH_PROPERTYGET;
    if (member.kind == SlotKind::PropertyPut) {
      flags = DISPATCH_PROPERTYPUT;
      parameters.rgdispidNamedArgs = &put;
      parameters.cNamedArgs = 1;
    }
    OwnedVariant result;
    EXCEPINFO record{};
    UINT bad_argument = 0;
    const HRESULT outcome = object_->Invoke(IdOf(member), IID_NULL, LOCALE_USER_DEFAULT, flags,
                                            &parameters, result.Receive(), &record, &bad_argument);
    Unpack(holders);
    if (outcome == DISP_E_EXCEPTION) RaiseRecord(record);
    if (FAILED(outcome)) {
      RaiseRefused(outcome, member, arguments.size() - 1 - std::size_t{bad_argument});
    }
    // What came in as an array of variants goes out as one.
    const bool returns_array = style_ == CallStyle::Script && member.name == "NotNull";
    return returns_array ? FromScriptArray(result.get()) : FromAutomation(result.get());
  }

  DISPID IdOf(const MemberInfo& member) {
    std::wstring name(member.name.begin(), member.name.end());
    LPOLESTR names[] = {name.data()};
    DISPID id = DISPID_UNKNOWN;
    if (FAILED(object_->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id))) {
      throw std::runtime_error("the object does not know " + std::string(member.name));
    }
    return id;
  }

  [[noreturn]] static void RaiseRecord(EXCEPINFO& record) {
    try {
      throw AutomationError(PlainNumber(record.scode), Required(record.bstrSource, "the source"),
                            Required(record.bstrDescription, "the description"));
    } catch (...) {
      FreeTexts(record);
      throw;
    }
  }

  // ---- the vtable

  // The value with exactly the type that the function takes.
  static OwnedVariant Exact(const Variant& value, InterfaceType type) {
    const bool fits = type == InterfaceType::Variant || Holds(value, type) || IsByteArray(value);
    if (fits) return ClientValue(value);
    if (const auto* object = value.Get<ObjectRef>()) return ClientValue(*object);
    return ClientValue(Converted(value, type));
  }

  struct Frame {
    std::vector<VARTYPE> types;
    std::vector<VARIANTARG> values;

    void Add(const VARIANTARG& value) {
      types.push_back(value.vt);
      values.push_back(value);
    }
    // Pointers travel as numbers of their size: that needs no knowledge of what they point to.
    void AddPointer(void* pointer) {
      VARIANTARG value;
      VariantInit(&value);
      value.vt = sizeof(void*) == 8 ? VT_I8 : VT_I4;
      value.byref = pointer;
      Add(value);
    }
  };

  Variant CallVtable(std::size_t slot, std::span<Variant* const> given) {
    const MemberInfo& member = MemberTable()[slot];
    Holders holders;
    Frame frame;
    for (std::size_t i = 0; i < given.size(); ++i) {
      if (given[i] == nullptr) RaiseRefused(DISP_E_PARAMNOTOPTIONAL, member, i);
      AddToFrame(member.parameters[i], *given[i], holders, frame);
    }
    VARIANT result;
    VariantInit(&result);
    const VARTYPE result_type = ResultType(member.result);
    if (result_type == VT_VARIANT) frame.AddPointer(&result);
    if (result_type != VT_VARIANT && result_type != VT_EMPTY) frame.AddPointer(&result.byref);
    const HRESULT outcome = CallFunction(slot, frame);
    if (result_type != VT_VARIANT) result.vt = result_type;
    const OwnedVariant owned(result);
    Unpack(holders);
    if (FAILED(outcome)) RaiseErrorInfo(outcome, member);
    return FromAutomation(owned.get());
  }

  static void AddToFrame(const Parameter& parameter, Variant& value, Holders& holders,
                         Frame& frame) {
    const auto [found, is_new] = holders.try_emplace(&value);
    Holder& holder = found->second;
    if (is_new) holder.value = Exact(value, parameter.type);
    VARIANT* const variable = holder.value.Receive();
    if (!parameter.by_reference) return frame.Add(*variable);
    holder.by_reference = true;
    const bool as_variant = parameter.type == InterfaceType::Variant;
    frame.AddPointer(as_variant ? static_cast<void*>(variable) : &variable->byref);
  }

  HRESULT CallFunction(std::size_t slot, Frame& frame) {
    std::vector<VARIANTARG*> pointers;
    for (VARIANTARG& value : frame.values)
      pointers.push_back(&value);
    VARIANT outcome;
    VariantInit(&outcome);
    const auto offset = static_cast<ULONG_PTR>(kSlotsOfDispatch + slot) * sizeof(void*);
    const HRESULT called = DispCallFunc(interface_.get(), offset, CC_STDCALL, VT_I4,
                                        static_cast<UINT>(pointers.size()), frame.types.data(),
                                        pointers.data(), &outcome);
    if (FAILED(called)) throw std::runtime_error("the vtable cannot be called");
    return outcome.lVal;
  }

  static VARTYPE ResultType(InterfaceType type) {
    switch (type) {
      case InterfaceType::None:
        return VT_EMPTY;
      case InterfaceType::Boolean:
        return VT_BOOL;
      case InterfaceType::Integer:
        return VT_I2;
      case InterfaceType::String:
        return VT_BSTR;
      case InterfaceType::Variant:
        return VT_VARIANT;
      case InterfaceType::ByteArray:
        return VT_ARRAY | VT_UI1;
      default:
        return VT_I4;
    }
  }

  [[noreturn]] static void RaiseErrorInfo(HRESULT outcome, const MemberInfo& member) {
    ComPointer<IErrorInfo> info;
    if (GetErrorInfo(0, info.Receive()) != S_OK) RaiseRefused(outcome, member, 0);
    EXCEPINFO record{};
    record.scode = outcome;
    info->GetSource(&record.bstrSource);
    info->GetDescription(&record.bstrDescription);
    RaiseRecord(record);
  }

 public:
  // Asks for the interface of the vtable by the id in the type library that the object names.
  void FindInterface() {
    ComPointer<ITypeInfo> info;
    TYPEATTR* attributes = nullptr;
    if (FAILED(object_->GetTypeInfo(0, LOCALE_USER_DEFAULT, info.Receive())) ||
        FAILED(info->GetTypeAttr(&attributes))) {
      throw std::runtime_error("the object has no type information");
    }
    const HRESULT result =
        object_->QueryInterface(attributes->guid, reinterpret_cast<void**>(interface_.Receive()));
    info->ReleaseTypeAttr(attributes);
    if (FAILED(result)) throw std::runtime_error("the object lacks its own interface");
  }

 private:
  ComPointer<IDispatch> object_;
  ComPointer<IDispatch> interface_;
  CallStyle style_;
};

CLSID ClassId() {
  CLSID id{};
  if (FAILED(CLSIDFromProgID(kProgId, &id)))
    throw std::runtime_error("the class is not registered");
  return id;
}

}  // namespace

CallStyle ParseCallStyle(std::string_view name) {
  if (name == "typed") return CallStyle::Typed;
  if (name == "variant") return CallStyle::Variant;
  if (name == "script") return CallStyle::Script;
  if (name == "vtable") return CallStyle::Vtable;
  throw std::runtime_error("there is no style '" + std::string(name) + "'");
}

std::unique_ptr<Component> MakeComComponent(CallStyle style) {
  ComPointer<IDispatch> object;
  const HRESULT result = CoCreateInstance(ClassId(), nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                                          reinterpret_cast<void**>(object.Receive()));
  if (FAILED(result)) throw std::runtime_error("no object: " + std::to_string(result));
  auto component = std::make_unique<ComComponent>(std::move(object), style);
  component->FindInterface();
  return component;
}

std::string RegisteredFolder() {
  wchar_t id[40] = {};
  StringFromGUID2(ClassId(), id, 40);
  const std::wstring key = L"CLSID\\" + std::wstring(id) + L"\\InprocServer32";
  wchar_t path[MAX_PATH] = {};
  DWORD size = sizeof path;
  if (RegGetValueW(HKEY_CLASSES_ROOT, key.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, path, &size) !=
      ERROR_SUCCESS) {
    throw std::runtime_error("the class names no DLL");
  }
  const std::wstring full = path;
  return ToUtf8(FromWide(full.substr(0, full.find_last_of(L'\\'))));
}

}  // namespace vandpublic
