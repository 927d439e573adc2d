// How long one call of the COM server takes an early-bound client, a late-bound one that keeps the
// number of a name, and one that asks for it each time. One line a kind: name, nanoseconds a call,
// the least of several rounds.
#include <windows.h>
// After windows.h, which it builds on.
#include <oleauto.h>

#include <algorithm>
#include <chrono>
#include <cstdio>

#include "com/guids.h"
#include "com/public_module.h"
#include "platform/windows/automation/com_pointer.h"

namespace vandpublic {
namespace {

constexpr int kRounds = 20;
constexpr int kCalls = 20'000;

template <class Call>
void Measure(const char* name, Call call) {
  double least = 1e9;
  for (int round = 0; round < kRounds; ++round) {
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < kCalls; ++i) {
      if (FAILED(call())) {
        std::printf("%s: the call failed\n", name);
        return;
      }
    }
    const std::chrono::duration<double, std::nano> time = std::chrono::steady_clock::now() - start;
    least = std::min(least, time.count() / kCalls);
  }
  std::printf("%-32s %5.0f ns\n", name, least);
}

// The factory of the DLL beside the program: nothing needs to be registered.
ComPointer<IClassFactory> Factory() {
  ComPointer<IClassFactory> factory;
  const HMODULE module = LoadLibraryW(L"VandPublic.dll");
  if (module == nullptr) return factory;
  const auto get_class = reinterpret_cast<HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, LPVOID*)>(
      reinterpret_cast<void*>(GetProcAddress(module, "DllGetClassObject")));
  get_class(kClassGuid, IID_IClassFactory, reinterpret_cast<void**>(factory.Receive()));
  return factory;
}

// IsHex of a text, by the number of the name.
HRESULT InvokeIsHex(_clsPublic* object, DISPID id, BSTR text) {
  VARIANT argument{};
  argument.vt = VT_BSTR;
  argument.bstrVal = text;
  DISPPARAMS arguments{&argument, nullptr, 1, 0};
  VARIANT result{};
  return object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &arguments, &result,
                        nullptr, nullptr);
}

int Run() {
  const ComPointer<IClassFactory> factory = Factory();
  if (!factory) {
    std::printf("VandPublic.dll is not beside this program\n");
    return 1;
  }
  const auto create = [&factory](ComPointer<_clsPublic>& made) {
    return factory->CreateInstance(nullptr, kInterfaceGuid,
                                   reinterpret_cast<void**>(made.Receive()));
  };
  ComPointer<_clsPublic> object;
  if (FAILED(create(object))) return 1;

  BSTR text = SysAllocString(L"0123456789ABCDEF");
  wchar_t member[] = L"IsHex";
  wchar_t* name = member;
  DISPID id = 0;
  const auto ask = [&] {
    return object->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id);
  };
  ask();
  Measure("early-bound", [&] {
    VARIANT_BOOL answer = 0;
    return object->IsHex(text, &answer);
  });
  Measure("late-bound, number kept", [&] { return InvokeIsHex(object.get(), id, text); });
  Measure("late-bound, name each time", [&] {
    const HRESULT known = ask();
    return SUCCEEDED(known) ? InvokeIsHex(object.get(), id, text) : known;
  });
  Measure("an object made and released", [&] {
    ComPointer<_clsPublic> made;
    return create(made);
  });
  SysFreeString(text);
  return 0;
}

}  // namespace
}  // namespace vandpublic

int main() {
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  const int status = vandpublic::Run();
  CoUninitialize();
  return status;
}
