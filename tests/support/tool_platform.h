// Services for the tool's own tests: nothing they do leaves the process.
#ifndef VANDPUBLIC_TESTS_SUPPORT_TOOL_PLATFORM_H
#define VANDPUBLIC_TESTS_SUPPORT_TOOL_PLATFORM_H

#include <memory>
#include <string>
#include <string_view>

#include "platform/code_page.h"
#include "platform/message_box.h"
#include "platform/platform.h"
#include "support/fake_platform.h"

namespace vandpublic {

class NoIniFiles final : public IniFiles {
 public:
  std::string Read(std::string_view, std::string_view, std::string_view,
                   std::string_view default_value) override {
    return std::string(default_value);
  }
  bool Write(std::string_view, std::string_view, std::string_view, std::string_view) override {
    return false;
  }
};

// The system's services with code page 1252, files in memory, and without boxes and settings.
inline std::shared_ptr<const Platform> TestPlatform() {
  auto platform = std::make_shared<Platform>(*SystemPlatform());
  platform->code_page = FindCodePage(1252);
  platform->files = std::make_shared<FakeFiles>();
  platform->message_boxes = NoMessageBoxes();
  platform->ini_files = std::make_shared<NoIniFiles>();
  return platform;
}

}  // namespace vandpublic

#endif
