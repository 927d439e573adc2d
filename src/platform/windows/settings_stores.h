// Initialisation files, the registry and the machine's names through the system's ANSI functions.
#ifndef VANDPUBLIC_PLATFORM_WINDOWS_SETTINGS_STORES_H
#define VANDPUBLIC_PLATFORM_WINDOWS_SETTINGS_STORES_H

#include "platform/settings_stores.h"

namespace vandpublic {

// All bytes are in the system's own page (CP_ACP), whatever page a host has selected for the
// conversions of the component: the functions know no other. Texts end at their first zero.

// The profile functions. A file name without a folder is one in the Windows folder.
class ProfileFiles final : public IniFiles {
 public:
  // GetPrivateProfileStringA with a buffer of 256 bytes, which cuts a value to 255.
  std::string Read(std::string_view file, std::string_view section, std::string_view key,
                   std::string_view default_value) override;
  // WritePrivateProfileStringA.
  bool Write(std::string_view file, std::string_view section, std::string_view key,
             std::string_view value) override;
};

// HKEY_LOCAL_MACHINE, opened for KEY_READ without a view: a 32-bit program sees the 32-bit one.
class MachineRegistry final : public Registry {
 public:
  // RegOpenKeyExA, RegQueryValueExA with 256 bytes, RegCloseKey. A value that is longer counts as
  // missing.
  std::optional<std::string> Read(std::string_view key_path, std::string_view value_name) override;
};

// GetSystemDirectoryA, GetWindowsDirectoryA and GetComputerNameA with a buffer of 256 blanks, of
// which each name is as much as the function counts.
class WindowsSystemNames final : public SystemNames {
 public:
  std::string SystemDirectory() override;
  std::string WindowsDirectory() override;
  std::string ComputerName() override;
};

}  // namespace vandpublic

#endif
