// A program that uses the component without registration: VandPublic.dll and VandPublic.manifest
// lie beside it, its own manifest names them. Early-bound: public_module.h is made from the type
// library's source (widl -h, midl /h, or #import of VandPublic.tlb).
#include <windows.h>
// After windows.h, which it builds on.
#include <oleauto.h>

#include <cstdio>

#include "com/public_module.h"

namespace {

// What the failed call left on the thread.
void PrintError(HRESULT result) {
  IErrorInfo* info = nullptr;
  BSTR source = nullptr;
  BSTR description = nullptr;
  if (GetErrorInfo(0, &info) == S_OK) {
    info->GetSource(&source);
    info->GetDescription(&description);
    info->Release();
  }
  std::printf("%08lX %ls: %ls\n", static_cast<unsigned long>(result),
              source != nullptr ? source : L"", description != nullptr ? description : L"");
  SysFreeString(source);
  SysFreeString(description);
}

void PrintNumber(_clsPublic* component, const wchar_t* digits) {
  BSTR text = SysAllocString(digits);
  LONG number = 0;
  const HRESULT result = component->HexToDec(text, &number);
  SysFreeString(text);
  if (SUCCEEDED(result)) {
    std::printf("%ls is %ld\n", digits, number);
  } else {
    PrintError(result);
  }
}

// The name finds the class in the manifest; nothing of it is in the registry.
_clsPublic* CreateComponent() {
  CLSID class_id{};
  IDispatch* object = nullptr;
  _clsPublic* component = nullptr;
  HRESULT result = CLSIDFromProgID(L"Public_Module.clsPublic", &class_id);
  if (SUCCEEDED(result)) {
    result = CoCreateInstance(class_id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                              reinterpret_cast<void**>(&object));
  }
  if (SUCCEEDED(result)) {
    result = object->QueryInterface(__uuidof(_clsPublic), reinterpret_cast<void**>(&component));
    object->Release();
  }
  if (FAILED(result)) {
    std::printf("no component: %08lX\n", static_cast<unsigned long>(result));
  }
  return component;
}

}  // namespace

int main() {
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  _clsPublic* const component = CreateComponent();
  if (component != nullptr) {
    component->put_DebugMode(DEBUG_MODE_OFF);
    PrintNumber(component, L"FF");
    PrintNumber(component, L"no number");
    component->Release();
  }
  CoUninitialize();
  return component != nullptr ? 0 : 1;
}
