// Message boxes on a terminal.
#ifndef VANDPUBLIC_PLATFORM_POSIX_TERMINAL_BOX_H
#define VANDPUBLIC_PLATFORM_POSIX_TERMINAL_BOX_H

#include <optional>

#include "platform/posix/dialog_programs.h"

namespace vandpublic {

// Writes title and text to the controlling terminal and waits for a line: any line for OK, one
// that says "y" or "yes" for Yes, any other for No. Standard output is not touched.
//
// Nothing, and nothing is written, when nobody sits there: there is no controlling terminal,
// standard input is not a terminal, or the process runs in the background (where reading would
// stop it). A terminal that is closed before the line is complete answers No.
std::optional<bool> AskOnTerminal(const BoxRequest& box);

}  // namespace vandpublic

#endif
