// The ports for initialisation files, the registry and the machine's three names.
#ifndef VANDPUBLIC_PLATFORM_SETTINGS_STORES_H
#define VANDPUBLIC_PLATFORM_SETTINGS_STORES_H

#include <optional>
#include <string>
#include <string_view>

namespace vandpublic {

// All texts are bytes in the ANSI code page, as the platform's profile functions take them.
class IniFiles {
 public:
  virtual ~IniFiles() = default;

  // The value of the key, or the default when file, section or key is missing; cut to 255 bytes.
  // Never fails: a file that cannot be read counts as missing.
  virtual std::string Read(std::string_view file, std::string_view section, std::string_view key,
                           std::string_view default_value) = 0;

  // Creates a missing file but not a missing folder. False when nothing could be written; the
  // file is then as it was.
  virtual bool Write(std::string_view file, std::string_view section, std::string_view key,
                     std::string_view value) = 0;
};

// Values under HKEY_LOCAL_MACHINE.
class Registry {
 public:
  virtual ~Registry() = default;

  // The raw bytes of a value of any type (a text with its terminating zero, in the ANSI code
  // page); nothing when the key or value is missing. Names are compared without case, the key
  // path is separated by "\".
  virtual std::optional<std::string> Read(std::string_view key_path,
                                          std::string_view value_name) = 0;
};

// Each name as bytes in the ANSI code page; empty when the system does not tell.
class SystemNames {
 public:
  virtual ~SystemNames() = default;
  virtual std::string SystemDirectory() = 0;
  virtual std::string WindowsDirectory() = 0;
  virtual std::string ComputerName() = 0;
};

}  // namespace vandpublic

#endif
