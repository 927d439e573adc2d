// The command about registry files.
#include "cli/registry_command.h"
#include "cli/system_commands.h"
#include "platform/host_settings.h"

namespace vandpublic {

bool IsOffered(std::string_view command) noexcept { return command != "com-check"; }

std::optional<CommandResult> RunSystemCommand(const CommandLine& line) {
  if (line.command->name == "registry") return RunRegistry(line);
  return std::nullopt;
}

void ChooseRegistryFile(const std::string& path) { SelectRegistryFile(path); }

}  // namespace vandpublic
