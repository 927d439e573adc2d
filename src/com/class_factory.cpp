// IClassFactory.
#include "com/class_factory.h"

#include <new>

#include "com/module.h"
#include "com/public_object.h"

namespace vandpublic {
namespace {

class ClassFactory final : public IClassFactory {
 public:
  ClassFactory() = default;
  ClassFactory(const ClassFactory&) = delete;
  ClassFactory& operator=(const ClassFactory&) = delete;
  virtual ~ClassFactory() = default;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) noexcept override {
    if (object == nullptr) return E_POINTER;
    const bool known = id == IID_IUnknown || id == IID_IClassFactory;
    *object = known ? static_cast<IClassFactory*>(this) : nullptr;
    if (!known) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }

  ULONG STDMETHODCALLTYPE AddRef() noexcept override {
    return static_cast<ULONG>(InterlockedIncrement(&references_));
  }

  ULONG STDMETHODCALLTYPE Release() noexcept override {
    const LONG left = InterlockedDecrement(&references_);
    if (left == 0) delete this;
    return static_cast<ULONG>(left);
  }

  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id,
                                           void** object) noexcept override {
    if (object != nullptr) *object = nullptr;
    return outer == nullptr ? MakePublicObject(id, object) : CLASS_E_NOAGGREGATION;
  }

  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) noexcept override {
    if (lock) {
      ModuleUse::Add();
    } else {
      ModuleUse::Remove();
    }
    return S_OK;
  }

 private:
  ModuleUse use_;
  LONG references_ = 1;
};

}  // namespace

HRESULT MakeClassFactory(const IID& interface_id, void** factory) noexcept {
  if (factory == nullptr) return E_POINTER;
  *factory = nullptr;
  auto* const made = new (std::nothrow) ClassFactory;
  if (made == nullptr) return E_OUTOFMEMORY;
  const HRESULT result = made->QueryInterface(interface_id, factory);
  made->Release();
  return result;
}

}  // namespace vandpublic
