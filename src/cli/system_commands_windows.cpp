// The command about the component's registration.
#include "cli/system_commands.h"
#include "com/com_check.h"

namespace vandpublic {

bool IsOffered(std::string_view command) noexcept { return command != "registry"; }

std::optional<CommandResult> RunSystemCommand(const CommandLine& line) {
  if (line.command->name != "com-check") return std::nullopt;
  if (!line.words.empty()) throw UsageError("com-check takes no arguments");
  const RegistrationReport report = CheckRegistration();
  return CommandResult{report.is_good ? 0 : 1, report.text, ""};
}

void ChooseRegistryFile(const std::string&) {
  throw UsageError("there is no --registry here: Windows has a registry of its own");
}

}  // namespace vandpublic
