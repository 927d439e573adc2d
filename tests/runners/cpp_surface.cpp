// The component in this process.
#include "cli/pipe_session.h"
#include "runners/surface.h"
#include "runtime/utf8.h"

namespace vandpublic {
namespace {

std::shared_ptr<const Platform> PlatformWith(const Surroundings& surroundings) {
  UseSurroundings(surroundings);
  return SystemPlatform();
}

class CppSurface final : public Surface {
 public:
  explicit CppSurface(const Surroundings& surroundings) : session_(PlatformWith(surroundings)) {}

  Json Ask(const Json& request) override { return session_.Handle(request); }
  std::string ComponentFolder() const override {
    return ToUtf8(SystemPlatform()->component_folder);
  }
  std::string Finish() override { return {}; }

 private:
  PipeSession session_;
};

}  // namespace

std::unique_ptr<Surface> MakeCppSurface(const Surroundings& surroundings) {
  return std::make_unique<CppSurface>(surroundings);
}

}  // namespace vandpublic
