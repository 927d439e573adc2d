// The DLL's entry points, as COM and regsvr32 call them. Nothing is thrown out of them.
#include <windows.h>
// After windows.h, which it builds on.
#include <oleauto.h>

#include "com/class_factory.h"
#include "com/failure.h"
#include "com/guids.h"
#include "com/module.h"
#include "com/registration.h"

namespace vandpublic {
namespace {

template <class Work>
HRESULT Guarded(Work work) noexcept {
  try {
    return work();
  } catch (...) {
    return CurrentFailure().result;
  }
}

HRESULT Install(bool install, RegistrationScope scope) noexcept {
  return Guarded([&] { return install ? Register(scope, ModulePath()) : Unregister(scope); });
}

}  // namespace
}  // namespace vandpublic

using vandpublic::RegistrationScope;

STDAPI DllGetClassObject(REFCLSID class_id, REFIID interface_id, LPVOID* factory) {
  if (factory == nullptr) return E_POINTER;
  *factory = nullptr;
  if (class_id != vandpublic::kClassGuid) return CLASS_E_CLASSNOTAVAILABLE;
  return vandpublic::MakeClassFactory(interface_id, factory);
}

STDAPI DllCanUnloadNow() { return vandpublic::ModuleUse::IsAny() ? S_FALSE : S_OK; }

STDAPI DllRegisterServer() { return vandpublic::Install(true, RegistrationScope::Machine); }

STDAPI DllUnregisterServer() { return vandpublic::Install(false, RegistrationScope::Machine); }

// regsvr32 /n /i:user registers for the current user, who needs no rights for it.
STDAPI DllInstall(BOOL install, LPCWSTR command) {
  const bool machine = command == nullptr || *command == L'\0';
  if (!machine && CompareStringOrdinal(command, -1, L"user", -1, TRUE) != CSTR_EQUAL) {
    return E_INVALIDARG;
  }
  return vandpublic::Install(install != FALSE,
                             machine ? RegistrationScope::Machine : RegistrationScope::User);
}
