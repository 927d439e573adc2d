// The three private procedures behind the settings members.
#include "env/sys_setting.h"

#include <algorithm>
#include <string>

namespace vandpublic::modSysSetting {
namespace {

constexpr std::size_t kBufferSize = 256;

// As the platform's functions see a text: in the code page, up to the first zero.
std::string Ansi(const Platform& platform, std::u16string_view text) {
  return platform.code_page->Encode(text.substr(0, text.find(u'\0')));
}

String Trimmed(const Platform& platform, std::string_view bytes) {
  const std::u16string text = platform.code_page->Decode(bytes);
  return TrimSpaces(text);
}

}  // namespace

bool WriteIniValue(const Platform& platform, std::u16string_view file, std::u16string_view section,
                   std::u16string_view key, std::u16string_view value) {
  return platform.ini_files->Write(Ansi(platform, file), Ansi(platform, section),
                                   Ansi(platform, key), Ansi(platform, value));
}

String ReadIniValue(const Platform& platform, std::u16string_view file, std::u16string_view section,
                    std::u16string_view key, std::u16string_view default_value) {
  return Trimmed(platform,
                 platform.ini_files->Read(Ansi(platform, file), Ansi(platform, section),
                                          Ansi(platform, key), Ansi(platform, default_value)));
}

String ReadRegistryValue(const Platform& platform, std::u16string_view key_path,
                         std::u16string_view value_name) {
  std::string buffer(kBufferSize, ' ');
  const auto value = platform.registry->Read(Ansi(platform, key_path), Ansi(platform, value_name));
  // A value that does not fit leaves the buffer as it is. Type and length are not looked at, on
  // purpose: the terminating zero of a text stays in the result.
  if (value && value->size() <= kBufferSize) {
    std::copy(value->begin(), value->end(), buffer.begin());
  }
  return Trimmed(platform, buffer);
}

}  // namespace vandpublic::modSysSetting
