// The calls, as programs of this interface have always made them.
#include "platform/windows/settings_stores.h"

#include <windows.h>

#include <algorithm>

namespace vandpublic {
namespace {

constexpr DWORD kBufferSize = 256;

std::string BlankBuffer() { return std::string(kBufferSize, ' '); }

// The buffer cut to the count, which may be more than the buffer holds.
std::string Cut(std::string buffer, DWORD count) {
  buffer.resize(std::min(count, kBufferSize));
  return buffer;
}

}  // namespace

std::string ProfileFiles::Read(std::string_view file, std::string_view section,
                               std::string_view key, std::string_view default_value) {
  std::string buffer = BlankBuffer();
  const DWORD count = GetPrivateProfileStringA(
      std::string(section).c_str(), std::string(key).c_str(), std::string(default_value).c_str(),
      buffer.data(), kBufferSize, std::string(file).c_str());
  return Cut(std::move(buffer), count);
}

bool ProfileFiles::Write(std::string_view file, std::string_view section, std::string_view key,
                         std::string_view value) {
  return WritePrivateProfileStringA(std::string(section).c_str(), std::string(key).c_str(),
                                    std::string(value).c_str(), std::string(file).c_str()) != 0;
}

std::optional<std::string> MachineRegistry::Read(std::string_view key_path,
                                                 std::string_view value_name) {
  HKEY key = nullptr;
  const LSTATUS opened =
      RegOpenKeyExA(HKEY_LOCAL_MACHINE, std::string(key_path).c_str(), 0, KEY_READ, &key);
  if (opened != ERROR_SUCCESS) return std::nullopt;
  std::string buffer = BlankBuffer();
  DWORD type = 0;
  DWORD size = kBufferSize;
  const LSTATUS read = RegQueryValueExA(key, std::string(value_name).c_str(), nullptr, &type,
                                        reinterpret_cast<BYTE*>(buffer.data()), &size);
  RegCloseKey(key);
  if (read != ERROR_SUCCESS) return std::nullopt;
  return Cut(std::move(buffer), size);
}

std::string WindowsSystemNames::SystemDirectory() {
  std::string buffer = BlankBuffer();
  const UINT count = GetSystemDirectoryA(buffer.data(), kBufferSize);
  return Cut(std::move(buffer), count);
}

std::string WindowsSystemNames::WindowsDirectory() {
  std::string buffer = BlankBuffer();
  const UINT count = GetWindowsDirectoryA(buffer.data(), kBufferSize);
  return Cut(std::move(buffer), count);
}

std::string WindowsSystemNames::ComputerName() {
  std::string buffer = BlankBuffer();
  DWORD size = kBufferSize;
  GetComputerNameA(buffer.data(), &size);  // its result is not looked at, on purpose
  return Cut(std::move(buffer), size);
}

}  // namespace vandpublic
