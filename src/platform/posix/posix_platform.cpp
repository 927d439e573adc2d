// The table of services on Linux, and what a host may change in it.
#include <mutex>

#include "platform/host_settings.h"
#include "platform/platform.h"
#include "platform/posix/ado/database_objects.h"
#include "platform/posix/code_pages.h"
#include "platform/posix/message_box_desktop.h"
#include "platform/posix/posix_clock.h"
#include "platform/posix/posix_files.h"
#include "platform/posix/posix_paths.h"
#include "platform/posix/regexp_pcre2.h"
#include "runtime/errors.h"

namespace vandpublic {
namespace {

// The current table. Objects share it and never see it change: a setting makes a new one.
class CurrentPlatform {
 public:
  std::shared_ptr<const Platform> Get() {
    const std::lock_guard lock(mutex_);
    return GetLocked();
  }

  void Replace(const std::shared_ptr<const CodePage>& code_page) {
    const std::lock_guard lock(mutex_);
    auto changed = std::make_shared<Platform>(*GetLocked());
    changed->code_page = code_page;
    platform_ = std::move(changed);
  }

 private:
  const std::shared_ptr<const Platform>& GetLocked() {
    if (platform_ == nullptr) {
      auto made = std::make_shared<Platform>();
      made->clock = std::make_shared<PosixClock>();
      made->code_page = FindCodePage(LocaleCodePage());
      made->files = std::make_shared<PosixFiles>();
      made->message_boxes = std::make_shared<DesktopMessageBoxes>();
      made->database = ado::MakeDatabaseObjects();
      made->random = MakeRandomSource();
      made->regexp = MakeRegExpEngine();
      made->component_folder = ComponentFolder();
      platform_ = std::move(made);
    }
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
    if (page != nullptr) Current().Replace(page);
    return page != nullptr;
  } catch (const AutomationError&) {
    return false;
  }
}

}  // namespace vandpublic
