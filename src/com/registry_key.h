// Keys of the registry, opened and closed.
#ifndef VANDPUBLIC_COM_REGISTRY_KEY_H
#define VANDPUBLIC_COM_REGISTRY_KEY_H

#include <windows.h>

#include <optional>
#include <string>

namespace vandpublic {

class RegistryKey {
 public:
  // An existing key; nothing where it is not there or may not be read. `view` is 0 for the
  // process's own view, KEY_WOW64_64KEY or KEY_WOW64_32KEY.
  static std::optional<RegistryKey> Open(HKEY root, const std::wstring& path, REGSAM access,
                                         REGSAM view = 0);

  RegistryKey(RegistryKey&& other) noexcept;
  RegistryKey& operator=(RegistryKey&&) = delete;
  ~RegistryKey();

  HKEY get() const noexcept { return key_; }
  // The text of a value, the key's own for an empty name.
  std::optional<std::wstring> Text(const std::wstring& name = L"") const;
  // Whether there is anything in the key.
  bool IsEmpty() const;

 private:
  explicit RegistryKey(HKEY key) noexcept : key_(key) {}

  HKEY key_;
};

// Creates a key where it is missing, and sets a text in it.
LSTATUS WriteText(HKEY root, const std::wstring& path, const std::wstring& name,
                  const std::wstring& text);

}  // namespace vandpublic

#endif
