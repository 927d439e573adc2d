// `vandpublic members`: the member table for people and for scripts.
#ifndef VANDPUBLIC_CLI_MEMBERS_COMMAND_H
#define VANDPUBLIC_CLI_MEMBERS_COMMAND_H

#include "cli/call_command.h"
#include "cli/command_line.h"

namespace vandpublic {

// No word lists all members, one tells about that member. Raises UsageError.
CommandResult RunMembers(const CommandLine& line);

}  // namespace vandpublic

#endif
