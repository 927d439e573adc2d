// What the tool has on one kind of system only: registry, or com-check.
#ifndef VANDPUBLIC_CLI_SYSTEM_COMMANDS_H
#define VANDPUBLIC_CLI_SYSTEM_COMMANDS_H

#include <optional>
#include <string>
#include <string_view>

#include "cli/call_command.h"
#include "cli/command_line.h"

namespace vandpublic {

// Whether the tool offers the command on this system.
bool IsOffered(std::string_view command) noexcept;

// Runs one of this system's own commands; nothing for the commands of all systems.
std::optional<CommandResult> RunSystemCommand(const CommandLine& line);

// What --registry names. Raises UsageError where the system has a registry of its own.
void ChooseRegistryFile(const std::string& path);

}  // namespace vandpublic

#endif
