// `vandpublic call`: one member called from a command line.
#ifndef VANDPUBLIC_CLI_CALL_COMMAND_H
#define VANDPUBLIC_CLI_CALL_COMMAND_H

#include <memory>
#include <string>

#include "cli/command_line.h"
#include "platform/platform.h"

namespace vandpublic {

// What a command leaves for its caller.
struct CommandResult {
  int status = 0;  // 0 done, 1 the member failed
  std::string output = {};
  std::string errors = {};
};

// The words are the member's name and its arguments. Raises UsageError.
CommandResult RunCall(const CommandLine& line, std::shared_ptr<const Platform> platform);

}  // namespace vandpublic

#endif
