// Chooses the way a message box is shown.
#include "platform/posix/message_box_desktop.h"

#include <optional>
#include <utility>

#include "platform/posix/box_text.h"
#include "platform/posix/dialog_programs.h"
#include "platform/posix/terminal_box.h"

namespace vandpublic {
namespace {

// The lowest four bits of a style choose the buttons.
bool IsQuestion(int style) noexcept {
  constexpr int kButtons = 0xF;
  return (style & kButtons) == (kBoxYesNoQuestionDefaultNo & kButtons);
}

}  // namespace

DesktopMessageBoxes::DesktopMessageBoxes(Environment environment)
    : environment_(std::move(environment)) {}

int DesktopMessageBoxes::Show(std::u16string_view text, std::u16string_view title, int style) {
  const BoxRequest box = {BoxText(text), BoxTitle(title), IsQuestion(style)};
  std::optional<bool> answer = ShowByDialogProgram(box, environment_);
  if (!answer) answer = AskOnTerminal(box);
  if (!box.is_question) return kBoxAnswerOk;
  return answer.value_or(false) ? kBoxAnswerYes : kBoxAnswerNo;
}

}  // namespace vandpublic
