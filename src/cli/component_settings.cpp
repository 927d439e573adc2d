// Options to properties.
#include "cli/component_settings.h"

#include "cli/json_values.h"
#include "cli/text_values.h"

namespace vandpublic {
namespace {

// The option's value, or nothing where it is not given.
std::optional<Variant> Setting(const CommandLine& line, std::string_view option,
                               InterfaceType type) {
  const auto word = line.Value(option);
  if (!word) return std::nullopt;
  try {
    return ValueFromWord(*word, type);
  } catch (const std::runtime_error& misfit) {
    throw UsageError("'" + std::string(option) + "': " + misfit.what());
  }
}

}  // namespace

void ApplySettings(clsPublic& component, const CommandLine& line) {
  const auto text = [&line](std::string_view option) {
    return Setting(line, option, InterfaceType::String);
  };
  if (const auto folder = text("--app-path")) component.Init(*folder->Get<String>());
  if (const auto mode = Setting(line, "--debug-mode", InterfaceType::DebugMode)) {
    component.DebugMode(static_cast<enumDebugMode>(*mode->Get<Long>()));
  }
  if (const auto folder = text("--log-path")) component.LogFilePath(*folder->Get<String>());
  if (const auto name = text("--log-name")) component.LogFileName(*name->Get<String>());
}

}  // namespace vandpublic
