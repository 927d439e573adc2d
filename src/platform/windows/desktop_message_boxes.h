// Message boxes on Windows.
#ifndef VANDPUBLIC_PLATFORM_WINDOWS_DESKTOP_MESSAGE_BOXES_H
#define VANDPUBLIC_PLATFORM_WINDOWS_DESKTOP_MESSAGE_BOXES_H

#include "platform/message_box.h"

namespace vandpublic {

// MessageBoxW, without an owner and modal to the calling thread's windows. Texts end at their
// first zero.
//
// Nothing is shown, and the default button is the answer, where nobody would see a box: in a
// service or any other process whose window station is not visible, and where the system cannot
// make a window.
class DesktopMessageBoxes final : public MessageBoxes {
 public:
  int Show(std::u16string_view text, std::u16string_view title, int style) override;
};

}  // namespace vandpublic

#endif
