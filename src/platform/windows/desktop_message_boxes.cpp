// The system's box, behind a look at the window station.
#include "platform/windows/desktop_message_boxes.h"

#include <windows.h>

#include "platform/windows/wide_text.h"

namespace vandpublic {
namespace {

// A box on an invisible station waits for ever: nobody can press its button.
bool CanBeSeen() {
  USEROBJECTFLAGS flags{};
  const HWINSTA station = GetProcessWindowStation();
  const bool told = station != nullptr && GetUserObjectInformationW(station, UOI_FLAGS, &flags,
                                                                    sizeof(flags), nullptr) != 0;
  return told && (flags.dwFlags & WSF_VISIBLE) != 0;
}

}  // namespace

int DesktopMessageBoxes::Show(std::u16string_view text, std::u16string_view title, int style) {
  const UINT shown_style = static_cast<UINT>(style) | MB_TASKMODAL;
  const int answer =
      CanBeSeen() ? MessageBoxW(nullptr, Wide(text).c_str(), Wide(title).c_str(), shown_style) : 0;
  // No answer: the box could not be shown.
  return answer > 0 ? answer : NoMessageBoxes()->Show(text, title, style);
}

}  // namespace vandpublic
