// Fixed folders and the kernel's host name.
#include "platform/posix/system_names.h"

#include <unistd.h>
#include <climits>

namespace vandpublic {

std::string PosixSystemNames::SystemDirectory() { return "/usr/lib"; }

std::string PosixSystemNames::WindowsDirectory() { return "/usr"; }

std::string PosixSystemNames::ComputerName() {
  // Read up to the zero, which a name of full length leaves to the buffer.
  std::string buffer(HOST_NAME_MAX + 1, '\0');
  if (gethostname(buffer.data(), buffer.size()) != 0) return {};
  return std::string(FirstLabel(buffer.c_str()));
}

std::string_view FirstLabel(std::string_view host_name) noexcept {
  return host_name.substr(0, host_name.find('.'));
}

}  // namespace vandpublic
