// Message boxes on Linux: on the desktop, else on the terminal, else not at all.
#ifndef VANDPUBLIC_PLATFORM_POSIX_MESSAGE_BOX_DESKTOP_H
#define VANDPUBLIC_PLATFORM_POSIX_MESSAGE_BOX_DESKTOP_H

#include "platform/message_box.h"
#include "platform/posix/child_process.h"

namespace vandpublic {

// Where DISPLAY or WAYLAND_DISPLAY is set, shows a box through zenity, kdialog or xmessage, the
// first of them that is on the PATH and works. Otherwise, or when none works, asks on the
// controlling terminal, provided that standard input is a terminal too. Otherwise shows nothing
// and returns the default button at once.
//
// Texts are cut as BoxText tells. Nothing is ever written to standard output or standard error.
// Blocks the calling thread until the box is answered; boxes of several threads stand side by side.
class DesktopMessageBoxes final : public MessageBoxes {
 public:
  // The environment that decides and that the programs get.
  explicit DesktopMessageBoxes(Environment environment = ProcessEnvironment());

  int Show(std::u16string_view text, std::u16string_view title, int style) override;

 private:
  Environment environment_;
};

}  // namespace vandpublic

#endif
