// modSysSetting: single values of initialisation files and the registry, without any check of the
// names. Nothing here raises for a file, key or value that is missing.
#ifndef VANDPUBLIC_ENV_SYS_SETTING_H
#define VANDPUBLIC_ENV_SYS_SETTING_H

#include <string_view>

#include "platform/platform.h"
#include "runtime/string_value.h"

namespace vandpublic::modSysSetting {

// True when the value was written.
bool WriteIniValue(const Platform& platform, std::u16string_view file, std::u16string_view section,
                   std::u16string_view key, std::u16string_view value);

// The value, or the default when it is not there; at most 255 bytes of the code page, then without
// blanks around it.
String ReadIniValue(const Platform& platform, std::u16string_view file, std::u16string_view section,
                    std::u16string_view key, std::u16string_view default_value);

// The value's bytes in a buffer of 256 blanks, converted and without the blanks around: a text
// keeps its terminating zero, a value of more than 256 bytes and a missing one are "".
String ReadRegistryValue(const Platform& platform, std::u16string_view key_path,
                         std::u16string_view value_name);

}  // namespace vandpublic::modSysSetting

#endif
