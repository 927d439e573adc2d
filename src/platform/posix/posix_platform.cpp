// The table of services on Linux, and the host settings of its stores.
#include "platform/host_settings.h"
#include "platform/posix/ado/database_objects.h"
#include "platform/posix/code_pages.h"
#include "platform/posix/ini_files.h"
#include "platform/posix/message_box_desktop.h"
#include "platform/posix/posix_clock.h"
#include "platform/posix/posix_files.h"
#include "platform/posix/posix_paths.h"
#include "platform/posix/regexp_pcre2.h"
#include "platform/posix/registry_file.h"
#include "platform/posix/system_names.h"
#include "platform/system_platform.h"
#include "runtime/errors.h"

namespace vandpublic {
namespace {

// The page, and the stores whose texts are in it.
void UseCodePage(Platform& platform, const std::shared_ptr<const CodePage>& page) {
  platform.code_page = page;
  platform.ini_files = std::make_shared<PosixIniFiles>(page);
  platform.registry = std::make_shared<RegistryFile>(page);
}

}  // namespace

std::shared_ptr<Platform> MakeSystemPlatform() {
  auto platform = std::make_shared<Platform>();
  UseCodePage(*platform, FindCodePage(LocaleCodePage()));
  platform->clock = std::make_shared<PosixClock>();
  platform->files = std::make_shared<PosixFiles>();
  platform->message_boxes = MakeSystemMessageBoxes();
  platform->random = MakeRandomSource();
  platform->regexp = MakeRegExpEngine();
  platform->system_names = std::make_shared<PosixSystemNames>();
  platform->database = ado::MakeDatabaseObjects();
  platform->component_folder = ComponentFolder();
  return platform;
}

std::shared_ptr<MessageBoxes> MakeSystemMessageBoxes() {
  return std::make_shared<DesktopMessageBoxes>();
}

bool SelectCodePage(int number) {
  try {
    const auto page = FindCodePage(number);
    if (page == nullptr) return false;
    ChangeSystemPlatform([&](Platform& platform) { UseCodePage(platform, page); });
    return true;
  } catch (const AutomationError&) {
    return false;
  }
}

void SelectRegistryFile(const std::string& path) {
  ChangeSystemPlatform([&](Platform& platform) {
    platform.registry = std::make_shared<RegistryFile>(platform.code_page, path);
  });
}

}  // namespace vandpublic
