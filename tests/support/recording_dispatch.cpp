// The recording stand-in.
#include "support/recording_dispatch.h"

#include <algorithm>
#include <utility>

#include "platform/windows/automation/automation_values.h"
#include "runtime/object.h"
#include "runtime/utf8.h"

namespace vandpublic {
namespace {

std::string Narrow(const wchar_t* text) {
  const std::wstring wide = text;
  return ToUtf8(std::u16string(wide.begin(), wide.end()));
}

class RecordingObject final : public IDispatch {
 public:
  RecordingObject(DispatchLog& log, std::string label, DispatchMembers members)
      : log_(log), label_(std::move(label)), members_(std::move(members)) {}

  const std::string& label() const noexcept { return label_; }

  STDMETHODIMP QueryInterface(REFIID id, void** object) override {
    *object = nullptr;
    if (id != IID_IUnknown && id != IID_IDispatch) return E_NOINTERFACE;
    *object = static_cast<IDispatch*>(this);
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
  STDMETHODIMP_(ULONG) Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }
  STDMETHODIMP GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }

  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
    const std::string name = Narrow(names[0]);
    DISPID id = 1;
    for (const auto& member : members_) {
      ids[0] = id++;
      if (!name.empty() && SameName(member.first, name)) return S_OK;
    }
    ids[0] = DISPID_UNKNOWN;
    return DISP_E_UNKNOWNNAME;
  }

  STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                      EXCEPINFO* exception, UINT*) override {
    const auto member = Find(id);
    if (member == members_.end()) return DISP_E_MEMBERNOTFOUND;
    std::vector<VARIANT*> arguments;
    for (UINT i = parameters->cArgs; i-- > 0;)
      arguments.push_back(&parameters->rgvarg[i]);
    log_.push_back(Describe(member->first, flags, *parameters, arguments));
    return member->second ? member->second(arguments, result, exception) : S_OK;
  }

 private:
  DispatchMembers::const_iterator Find(DISPID id) const {
    if (id == DISPID_VALUE) return members_.find("");
    auto member = members_.begin();
    for (DISPID i = 1; i < id && member != members_.end(); ++i)
      ++member;
    return id < 1 ? members_.end() : member;
  }

  std::string Describe(const std::string& member, WORD flags, const DISPPARAMS& parameters,
                       const std::vector<VARIANT*>& arguments) const {
    const bool is_put = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    const bool names_put =
        parameters.cNamedArgs == 1 && parameters.rgdispidNamedArgs[0] == DISPID_PROPERTYPUT;
    std::string text;
    if ((flags & DISPATCH_PROPERTYGET) != 0) text = "get ";
    if ((flags & DISPATCH_METHOD) != 0) text += "call ";
    if ((flags & DISPATCH_PROPERTYPUT) != 0) text += "put ";
    if ((flags & DISPATCH_PROPERTYPUTREF) != 0) text += "putref ";
    text += label_ + "." + member + (is_put ? " = " : arguments.empty() ? "" : "(");
    for (std::size_t i = 0; i < arguments.size(); ++i)
      text += (i == 0 ? "" : ", ") + vandpublic::Describe(*arguments[i]);
    if (!is_put && !arguments.empty()) text += ")";
    if (is_put != names_put) text += " with the wrong named arguments";
    return text;
  }

  ~RecordingObject() = default;

  DispatchLog& log_;
  std::string label_;
  DispatchMembers members_;
  ULONG references_ = 1;
};

std::string DescribeArray(const VARIANT& value) {
  LONG lower = 0;
  LONG upper = -1;
  if (value.parray == nullptr) return "no array";
  SafeArrayGetLBound(value.parray, 1, &lower);
  SafeArrayGetUBound(value.parray, 1, &upper);
  return "array of type " + std::to_string(value.vt & ~VT_ARRAY) + ", " + std::to_string(lower) +
         " to " + std::to_string(upper);
}

std::string DescribeObject(IDispatch* object) {
  if (object == nullptr) return "no object";
  const auto* const ours = dynamic_cast<RecordingObject*>(object);
  return ours == nullptr ? "another object" : "object " + ours->label();
}

}  // namespace

ComPointer<IDispatch> MakeRecordingObject(DispatchLog& log, std::string label,
                                          DispatchMembers members) {
  ComPointer<IDispatch> object;
  *object.Receive() = new RecordingObject(log, std::move(label), std::move(members));
  return object;
}

ULONG CountReferences(IDispatch* object) {
  object->AddRef();
  return object->Release();
}

DispatchAnswer Giving(const Variant& value) {
  return [value](std::vector<VARIANT*>&, VARIANT* result, EXCEPINFO*) {
    if (result != nullptr) *result = ToAutomation(value).Release();
    return S_OK;
  };
}

DispatchAnswer Giving(ComPointer<IDispatch> object) {
  return [object](std::vector<VARIANT*>&, VARIANT* result, EXCEPINFO*) {
    if (result == nullptr) return S_OK;
    object->AddRef();
    result->vt = VT_DISPATCH;
    result->pdispVal = object.get();
    return S_OK;
  };
}

DispatchAnswer Raising(SCODE number, const wchar_t* source, const wchar_t* description) {
  return [=](std::vector<VARIANT*>&, VARIANT*, EXCEPINFO* exception) {
    exception->scode = number;
    exception->bstrSource = SysAllocString(source);
    exception->bstrDescription = SysAllocString(description);
    return DISP_E_EXCEPTION;
  };
}

DispatchAnswer Failing(HRESULT result) {
  return [=](std::vector<VARIANT*>&, VARIANT*, EXCEPINFO*) { return result; };
}

std::string Describe(const VARIANT& value) {
  if ((value.vt & VT_ARRAY) != 0) return DescribeArray(value);
  switch (value.vt) {
    case VT_EMPTY:
      return "Empty";
    case VT_NULL:
      return "Null";
    case VT_I2:
      return "I2 " + std::to_string(value.iVal);
    case VT_I4:
      return "I4 " + std::to_string(value.lVal);
    case VT_BOOL:
      return "BOOL " + std::to_string(value.boolVal);
    case VT_BSTR:
      return "BSTR \"" + FromBstr(value.bstrVal).ToUtf8() + "\"";
    case VT_DISPATCH:
      return DescribeObject(value.pdispVal);
    case VT_ERROR:
      return value.scode == DISP_E_PARAMNOTFOUND ? "missing" : "error";
    case VT_BYREF | VT_VARIANT:
      return "reference to " + Describe(*value.pvarVal);
    default:
      return "type " + std::to_string(value.vt);
  }
}

}  // namespace vandpublic
