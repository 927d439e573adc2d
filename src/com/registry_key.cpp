// The registry functions behind the keys.
#include "com/registry_key.h"

#include <utility>

namespace vandpublic {

std::optional<RegistryKey> RegistryKey::Open(HKEY root, const std::wstring& path, REGSAM access,
                                             REGSAM view) {
  HKEY key = nullptr;
  if (RegOpenKeyExW(root, path.c_str(), 0, access | view, &key) != ERROR_SUCCESS) return {};
  return RegistryKey(key);
}

RegistryKey::RegistryKey(RegistryKey&& other) noexcept : key_(std::exchange(other.key_, nullptr)) {}

RegistryKey::~RegistryKey() {
  if (key_ != nullptr) RegCloseKey(key_);
}

std::optional<std::wstring> RegistryKey::Text(const std::wstring& name) const {
  DWORD size = 0;
  LSTATUS status =
      RegGetValueW(key_, nullptr, name.c_str(), RRF_RT_REG_SZ, nullptr, nullptr, &size);
  if (status != ERROR_SUCCESS) return {};
  std::wstring text(size / sizeof(wchar_t) + 1, L'\0');
  size = static_cast<DWORD>(text.size() * sizeof(wchar_t));
  status = RegGetValueW(key_, nullptr, name.c_str(), RRF_RT_REG_SZ, nullptr, text.data(), &size);
  if (status != ERROR_SUCCESS) return {};
  text.resize(size / sizeof(wchar_t));
  while (!text.empty() && text.back() == L'\0')
    text.pop_back();
  return text;
}

bool RegistryKey::IsEmpty() const {
  DWORD keys = 0;
  DWORD values = 0;
  const LSTATUS status = RegQueryInfoKeyW(key_, nullptr, nullptr, nullptr, &keys, nullptr, nullptr,
                                          &values, nullptr, nullptr, nullptr, nullptr);
  return status == ERROR_SUCCESS && keys == 0 && values == 0;
}

LSTATUS WriteText(HKEY root, const std::wstring& path, const std::wstring& name,
                  const std::wstring& text) {
  HKEY key = nullptr;
  LSTATUS status =
      RegCreateKeyExW(root, path.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr);
  if (status != ERROR_SUCCESS) return status;
  status = RegSetValueExW(key, name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                          static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
  RegCloseKey(key);
  return status;
}

}  // namespace vandpublic
