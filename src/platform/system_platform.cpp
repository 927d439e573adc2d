// The current table of services, and the host settings that are the same on every system.
#include "platform/system_platform.h"

#include <mutex>
#include <utility>

#include "platform/host_settings.h"

namespace vandpublic {
namespace {

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

// Objects share the table and never see it change: a setting makes a new one.
class CurrentPlatform {
 public:
  std::shared_ptr<const Platform> Get() {
    const std::lock_guard lock(mutex_);
    return GetLocked();
  }

  void Replace(const std::function<void(Platform&)>& change) {
    const std::lock_guard lock(mutex_);
    auto changed = std::make_shared<Platform>(*GetLocked());
    change(*changed);
    platform_ = std::move(changed);
  }

 private:
  const std::shared_ptr<const Platform>& GetLocked() {
    if (platform_ == nullptr) platform_ = MakeSystemPlatform();
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

void ChangeSystemPlatform(const std::function<void(Platform&)>& change) {
  Current().Replace(change);
}

void SeedRandom(std::uint64_t seed) { SystemPlatform()->random->Seed(seed); }

void SetMessageBoxHandler(MessageBoxHandler handler) {
  std::shared_ptr<MessageBoxes> boxes;
  if (handler) {
    boxes = std::make_shared<HandledMessageBoxes>(std::move(handler));
  } else {
    boxes = MakeSystemMessageBoxes();
  }
  ChangeSystemPlatform([&](Platform& platform) { platform.message_boxes = boxes; });
}

}  // namespace vandpublic
