// The table of services on Linux, and what a host may change in it.
#include <mutex>

#include "platform/host_settings.h"
#include "platform/platform.h"
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
#include "runtime/errors.h"

namespace vandpublic {
namespace {

// The page, and the stores whose texts are in it.
void UseCodePage(Platform& platform, const std::shared_ptr<const CodePage>& page) {
  platform.code_page = page;
  platform.ini_files = std::make_shared<PosixIniFiles>(page);
  platform.registry = std::make_shared<RegistryFile>(page);
}

std::shared_ptr<const Platform> MakePlatform() {
  auto platform = std::make_shared<Platform>();
  UseCodePage(*platform, FindCodePage(LocaleCodePage()));
  platform->clock = std::make_shared<PosixClock>();
  platform->files = std::make_shared<PosixFiles>();
  platform->message_boxes = std::make_shared<DesktopMessageBoxes>();
  platform->random = MakeRandomSource();
  platform->regexp = MakeRegExpEngine();
  platform->system_names = std::make_shared<PosixSystemNames>();
  platform->database = ado::MakeDatabaseObjects();
  platform->component_folder = ComponentFolder();
  return platform;
}

// A host's own function in place of the boxes.
class HandledMessageBoxes final : public MessageBoxes {
 public:
  explicit HandledMessageBoxes(MessageBoxHandler handler) : handler_(std::move(handler)) {}
  int Show(std::u16string_view text, std::u16string_view title, int style) override {
    return handler_(text, title, style);
  }

 private:
  MessageBoxHandler handler_;
};

// The current table. Objects share it and never see it change: a setting makes a new one.
class CurrentPlatform {
 public:
  std::shared_ptr<const Platform> Get() {
    const std::lock_guard lock(mutex_);
    return GetLocked();
  }

  template <class Change>
  void Replace(Change change) {
    const std::lock_guard lock(mutex_);
    auto changed = std::make_shared<Platform>(*GetLocked());
    change(*changed);
    platform_ = std::move(changed);
  }

 private:
  const std::shared_ptr<const Platform>& GetLocked() {
    if (platform_ == nullptr) platform_ = MakePlatform();
    return platform_;
  }

  std::mutex mutex_;
  std::shared_ptr<const Platform> platform_;
};

CurrentPlatform& Current() {
  static CurrentPlatform current;
  return current;
}

}  // namespace

std::shared_ptr<const Platform> SystemPlatform() { return Current().Get(); }

void SeedRandom(std::uint64_t seed) { SystemPlatform()->random->Seed(seed); }

bool SelectCodePage(int number) {
  try {
    const auto page = FindCodePage(number);
    if (page == nullptr) return false;
    Current().Replace([&](Platform& platform) { UseCodePage(platform, page); });
    return true;
  } catch (const AutomationError&) {
    return false;
  }
}

void SelectRegistryFile(const std::string& path) {
  Current().Replace([&](Platform& platform) {
    platform.registry = std::make_shared<RegistryFile>(platform.code_page, path);
  });
}

void SetMessageBoxHandler(MessageBoxHandler handler) {
  Current().Replace([&](Platform& platform) {
    if (handler) {
      platform.message_boxes = std::make_shared<HandledMessageBoxes>(std::move(handler));
    } else {
      platform.message_boxes = std::make_shared<DesktopMessageBoxes>();
    }
  });
}

}  // namespace vandpublic
