// The tool as a whole: what main() does.
#ifndef VANDPUBLIC_CLI_TOOL_H
#define VANDPUBLIC_CLI_TOOL_H

#include <memory>
#include <span>

#include "cli/command_line.h"
#include "platform/platform.h"

namespace vandpublic {

// Runs the command that the arguments (without the program's name) stand for, on the process's
// standard streams. Returns the exit status: 0, 1 when the member failed, 2 for a wrong command
// line and when reading or writing fails.
int RunTool(std::span<const char* const> arguments);

// The services of this system, with the code page that --codepage names and the registry file of
// --registry. Raises UsageError for a page that does not exist.
std::shared_ptr<const Platform> ChosenPlatform(const CommandLine& line);

}  // namespace vandpublic

#endif
