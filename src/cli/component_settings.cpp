// Options to properties.
#include "cli/component_settings.h"

#include "cli/json_values.h"
#include "cli/text_values.h"

namespace vandpublic {

void ApplySettings(clsPublic& component, const CommandLine& line) {
  if (const auto folder = line.Value("--app-path")) component.Init(*folder);
  if (const auto mode = line.Value("--debug-mode")) {
    try {
      const Variant value = ValueFromWord(*mode, InterfaceType::DebugMode);
      component.DebugMode(static_cast<enumDebugMode>(*value.Get<Long>()));
    } catch (const ProtocolError& misfit) {
      throw UsageError("'--debug-mode': " + std::string(misfit.what()));
    }
  }
  if (const auto folder = line.Value("--log-path")) component.LogFilePath(*folder);
  if (const auto name = line.Value("--log-name")) component.LogFileName(*name);
}

}  // namespace vandpublic
