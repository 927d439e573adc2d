// The system's names on Linux.
#ifndef VANDPUBLIC_PLATFORM_POSIX_SYSTEM_NAMES_H
#define VANDPUBLIC_PLATFORM_POSIX_SYSTEM_NAMES_H

#include <string>
#include <string_view>

#include "platform/settings_stores.h"

namespace vandpublic {

// The system folder is /usr/lib, the folder of the system itself /usr. The computer's name is the
// host name up to its first dot, in the case it is written in.
class PosixSystemNames final : public SystemNames {
 public:
  std::string SystemDirectory() override;
  std::string WindowsDirectory() override;
  std::string ComputerName() override;
};

// The part before the first dot; all of a name without one.
std::string_view FirstLabel(std::string_view host_name) noexcept;

}  // namespace vandpublic

#endif
