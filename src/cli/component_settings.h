// The options of the command line that set up a component.
#ifndef VANDPUBLIC_CLI_COMPONENT_SETTINGS_H
#define VANDPUBLIC_CLI_COMPONENT_SETTINGS_H

#include "cli/command_line.h"
#include "frame/clsPublic.h"

namespace vandpublic {

// --app-path calls Init; then --debug-mode, --log-path and --log-name set their properties. Raises
// UsageError for a debug mode that is none and a text that is not in UTF-8.
void ApplySettings(clsPublic& component, const CommandLine& line);

}  // namespace vandpublic

#endif
