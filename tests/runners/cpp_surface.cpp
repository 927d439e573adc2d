// The component in this process.
#include <stdexcept>

#include "cli/pipe_session.h"
#include "platform/posix/code_pages.h"
#include "runners/surface.h"
#include "runtime/utf8.h"

namespace vandpublic {
namespace {

std::shared_ptr<const Platform> PlatformWith(int code_page) {
  auto platform = std::make_shared<Platform>(*SystemPlatform());
  platform->code_page = FindCodePage(code_page);
  if (platform->code_page == nullptr) throw std::runtime_error("no such code page");
  return platform;
}

class CppSurface final : public Surface {
 public:
  explicit CppSurface(int code_page) : session_(PlatformWith(code_page)) {}

  Json Ask(const Json& request) override { return session_.Handle(request); }
  std::string ComponentFolder() const override {
    return ToUtf8(SystemPlatform()->component_folder);
  }
  std::string Finish() override { return {}; }

 private:
  PipeSession session_;
};

}  // namespace

std::unique_ptr<Surface> MakeCppSurface(int code_page) {
  return std::make_unique<CppSurface>(code_page);
}

}  // namespace vandpublic
