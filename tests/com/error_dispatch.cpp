// The three properties through IDispatch.
#include "com/error_dispatch.h"

#include <array>
#include <cwchar>

#include "platform/windows/automation/automation_values.h"
#include "runtime/errors.h"

namespace vandpublic {
namespace {

struct Property {
  const wchar_t* wide;
  const char* name;
};
constexpr std::array<Property, 3> kProperties = {
    {{L"Number", "Number"}, {L"Source", "Source"}, {L"Description", "Description"}}};

class ErrorDispatch final : public IDispatch {
 public:
  explicit ErrorDispatch(ObjectRef error) : error_(std::move(error)) {}
  virtual ~ErrorDispatch() = default;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) noexcept override {
    *object = id == IID_IUnknown || id == IID_IDispatch ? this : nullptr;
    if (*object == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() noexcept override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() noexcept override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override {
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override {
    return DISP_E_BADINDEX;
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID,
                                          DISPID* ids) noexcept override {
    for (std::size_t i = 0; i < kProperties.size(); ++i) {
      ids[0] = static_cast<DISPID>(i) + 1;
      if (_wcsicmp(names[0], kProperties[i].wide) == 0) return S_OK;
    }
    return DISP_E_UNKNOWNNAME;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS*,
                                   VARIANT* result, EXCEPINFO*, UINT*) noexcept override {
    const auto index = static_cast<std::size_t>(id) - 1;
    if (index >= kProperties.size()) return DISP_E_MEMBERNOTFOUND;
    if ((flags & DISPATCH_PROPERTYGET) == 0 || result == nullptr) return DISP_E_MEMBERNOTFOUND;
    try {
      *result = ToAutomation(error_->Get(kProperties[index].name, {})).Release();
      return S_OK;
    } catch (const AutomationError&) {
      return DISP_E_MEMBERNOTFOUND;
    }
  }

 private:
  ObjectRef error_;
  ULONG references_ = 1;
};

}  // namespace

ComPointer<IDispatch> MakeErrorDispatch(const ObjectRef& error) {
  ComPointer<IDispatch> made;
  *made.Receive() = new ErrorDispatch(error);
  return made;
}

}  // namespace vandpublic
