// Asks for the module that holds an address of ours.
#include "platform/windows/component_folder.h"

#include <windows.h>

#include "platform/windows/wide_text.h"

namespace vandpublic {
namespace {

std::wstring ModuleFile() {
  HMODULE module = nullptr;
  constexpr DWORD kFlags =
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
  if (GetModuleHandleExW(kFlags, reinterpret_cast<LPCWSTR>(&ComponentFolder), &module) == 0) {
    return {};
  }
  constexpr std::size_t kLongestPath = 32768;
  std::wstring file(kLongestPath, L'\0');
  file.resize(GetModuleFileNameW(module, file.data(), kLongestPath));
  return file;
}

}  // namespace

std::u16string ComponentFolder() {
  const std::wstring file = ModuleFile();
  const std::size_t separator = file.find_last_of(L'\\');
  if (separator == std::wstring::npos) return u".";
  const bool is_root = separator > 0 && file[separator - 1] == L':';
  return FromWide(std::wstring_view(file).substr(0, is_root ? separator + 1 : separator));
}

}  // namespace vandpublic
