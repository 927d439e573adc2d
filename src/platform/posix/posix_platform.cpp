// The table of services on Linux.
#include "platform/platform.h"
#include "platform/posix/code_pages.h"
#include "platform/posix/posix_clock.h"
#include "platform/posix/posix_files.h"
#include "platform/posix/posix_paths.h"

namespace vandpublic {

std::shared_ptr<const Platform> SystemPlatform() {
  static const std::shared_ptr<const Platform> platform = [] {
    auto made = std::make_shared<Platform>();
    made->clock = std::make_shared<PosixClock>();
    made->code_page = FindCodePage(LocaleCodePage());
    made->files = std::make_shared<PosixFiles>();
    made->message_boxes = NoMessageBoxes();
    made->component_folder = ComponentFolder();
    return made;
  }();
  return platform;
}

}  // namespace vandpublic
