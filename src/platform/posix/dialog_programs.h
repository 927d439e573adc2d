// Message boxes through the dialog programs of a desktop: zenity, kdialog, xmessage.
#ifndef VANDPUBLIC_PLATFORM_POSIX_DIALOG_PROGRAMS_H
#define VANDPUBLIC_PLATFORM_POSIX_DIALOG_PROGRAMS_H

#include <optional>
#include <string>

#include "platform/posix/child_process.h"

namespace vandpublic {

// One message box. Text and title are as BoxText and BoxTitle make them.
struct BoxRequest {
  std::string text;
  std::string title;
  bool is_question;  // Yes and No, No the default; otherwise OK
};

// Shows the box with the first of the three programs that is on the PATH and works, and waits for
// the answer: true for OK and Yes, false for No and for a question closed without an answer.
// Nothing when no program could show it, or when the environment names no display.
std::optional<bool> ShowByDialogProgram(const BoxRequest& box, const Environment& environment);

}  // namespace vandpublic

#endif
