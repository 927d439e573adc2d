// `vandpublic batch`: one member for every row of a file.
#ifndef VANDPUBLIC_CLI_BATCH_BATCH_COMMAND_H
#define VANDPUBLIC_CLI_BATCH_BATCH_COMMAND_H

#include "cli/call_command.h"
#include "cli/command_line.h"

namespace vandpublic {

// Reads standard input or --input, writes standard output or --output; with --resume goes on behind
// the rows that the output has already. Status 0 when every row was good, 1 when some were bad, 2
// when reading or writing fails. Raises UsageError.
CommandResult RunBatchCommand(const CommandLine& line);

}  // namespace vandpublic

#endif
