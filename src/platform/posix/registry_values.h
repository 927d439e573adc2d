// The values below HKEY_LOCAL_MACHINE, found by key path and value name without case.
#ifndef VANDPUBLIC_PLATFORM_POSIX_REGISTRY_VALUES_H
#define VANDPUBLIC_PLATFORM_POSIX_REGISTRY_VALUES_H

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace vandpublic {

// A key path is what follows "HKEY_LOCAL_MACHINE\": names separated by "\", empty for the root
// itself. One "\" at its end does not count. The value name "" is the key's default value.
class RegistryValues {
 public:
  void Set(std::u16string_view key_path, std::u16string_view name, std::string bytes);
  void RemoveValue(std::u16string_view key_path, std::u16string_view name);
  // Removes the key's values and those of all keys below it.
  void RemoveKey(std::u16string_view key_path);

  // The value's bytes as the platform's query function for the ANSI page gives them: a text in
  // that page with its terminating zero, a number as four bytes, low byte first.
  std::optional<std::string> Find(std::u16string_view key_path, std::u16string_view name) const;

 private:
  using Values = std::map<std::u16string, std::string>;

  std::map<std::u16string, Values> keys_;  // all names folded
};

}  // namespace vandpublic

#endif
