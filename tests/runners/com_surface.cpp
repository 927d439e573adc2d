// The component behind COM: the registered class, driven by a client of the pipe's protocol.
#include <windows.h>

#include "cli/pipe_session.h"
#include "com/com_component.h"
#include "platform/host_settings.h"
#include "platform/windows/automation/apartment.h"
#include "runners/surface.h"

namespace vandpublic {
namespace {

class ComSurface final : public Surface {
 public:
  explicit ComSurface(CallStyle style)
      : session_(SystemPlatform(), [style] { return MakeComComponent(style); }) {}

  Json Ask(const Json& request) override { return session_.Handle(request); }
  std::string ComponentFolder() const override { return RegisteredFolder(); }
  std::string Finish() override { return {}; }

 private:
  Apartment apartment_;
  PipeSession session_;
};

void RefuseRegistryFile(const Surroundings& surroundings) {
  if (surroundings.registry_file.empty()) return;
  throw CannotRunHere("the registry is the system's own, not a file");
}

}  // namespace

void UseSurroundings(const Surroundings& surroundings) {
  RefuseRegistryFile(surroundings);
  if (SelectCodePage(surroundings.code_page)) return;
  throw CannotRunHere("there is no code page " + std::to_string(surroundings.code_page));
}

std::unique_ptr<Surface> MakeSystemSurface(const std::string& name, const std::string& argument,
                                           const Surroundings& surroundings) {
  if (name != "com") return nullptr;
  if (static_cast<int>(GetACP()) != surroundings.code_page) {
    throw CannotRunHere("the system's code page is " + std::to_string(GetACP()) + ", not " +
                        std::to_string(surroundings.code_page));
  }
  RefuseRegistryFile(surroundings);
  return std::make_unique<ComSurface>(ParseCallStyle(argument));
}

}  // namespace vandpublic
