// The table of services on Windows, and the host settings of its stores.
#include "platform/host_settings.h"
#include "platform/system_platform.h"
#include "platform/windows/ansi_code_page.h"
#include "platform/windows/automation/dispatch_objects.h"
#include "platform/windows/automation/regexp_object.h"
#include "platform/windows/component_folder.h"
#include "platform/windows/desktop_message_boxes.h"
#include "platform/windows/settings_stores.h"
#include "platform/windows/windows_clock.h"
#include "platform/windows/windows_files.h"

namespace vandpublic {

std::shared_ptr<Platform> MakeSystemPlatform() {
  auto platform = std::make_shared<Platform>();
  platform->code_page = SystemCodePage();
  platform->clock = std::make_shared<WindowsClock>();
  platform->files = std::make_shared<WindowsFiles>();
  platform->message_boxes = MakeSystemMessageBoxes();
  platform->random = MakeRandomSource();
  platform->regexp = MakeRegExpObjects();
  platform->ini_files = std::make_shared<ProfileFiles>();
  platform->registry = std::make_shared<MachineRegistry>();
  platform->system_names = std::make_shared<WindowsSystemNames>();
  platform->database = MakeAdoObjects();
  platform->component_folder = ComponentFolder();
  return platform;
}

std::shared_ptr<MessageBoxes> MakeSystemMessageBoxes() {
  return std::make_shared<DesktopMessageBoxes>();
}

bool SelectCodePage(int number) {
  const auto page = FindCodePage(number);
  if (page == nullptr) return false;
  ChangeSystemPlatform([&](Platform& platform) { platform.code_page = page; });
  return true;
}

}  // namespace vandpublic
