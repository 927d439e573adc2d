// Whether the tests run under Wine, for the few places where it does other things than Windows.
#ifndef VANDPUBLIC_TESTS_SUPPORT_WINE_VERSION_H
#define VANDPUBLIC_TESTS_SUPPORT_WINE_VERSION_H

#include <windows.h>

namespace vandpublic {

// Wine's ntdll has a function more than that of Windows.
inline bool IsWine() noexcept {
  const HMODULE ntdll = GetModuleHandleW(L"ntdll.dll");
  return ntdll != nullptr && GetProcAddress(ntdll, "wine_get_version") != nullptr;
}

}  // namespace vandpublic

#endif
