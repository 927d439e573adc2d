// `vandpublic registry`: the registry file for its administrator.
#ifndef VANDPUBLIC_CLI_REGISTRY_COMMAND_H
#define VANDPUBLIC_CLI_REGISTRY_COMMAND_H

#include "cli/call_command.h"
#include "cli/command_line.h"

namespace vandpublic {

// The word "check" and a file: what cannot be read in it, one line "FILE:LINE: problem" each, and
// status 1; one line that says so and status 0 where there is nothing. The file of --registry, or
// the system's, where none is named. Raises UsageError.
CommandResult RunRegistry(const CommandLine& line);

}  // namespace vandpublic

#endif
