// The port for modal message boxes. Answers and styles are the platform's classic numbers.
#ifndef VANDPUBLIC_PLATFORM_MESSAGE_BOX_H
#define VANDPUBLIC_PLATFORM_MESSAGE_BOX_H

#include <memory>
#include <string_view>

namespace vandpublic {

inline constexpr int kBoxOkExclamation = 48;            // an OK button, the exclamation icon
inline constexpr int kBoxYesNoQuestionDefaultNo = 324;  // Yes and No (the default), question icon

inline constexpr int kBoxAnswerOk = 1;
inline constexpr int kBoxAnswerYes = 6;
inline constexpr int kBoxAnswerNo = 7;

class MessageBoxes {
 public:
  virtual ~MessageBoxes() = default;

  // Shows a modal box of one of the two styles and returns the button pressed: 1 OK, 6 Yes, 7 No.
  // A box closed without a button counts as OK or No. Where nobody can see a box nothing is shown,
  // nothing blocks, and the default button is the answer.
  virtual int Show(std::u16string_view text, std::u16string_view title, int style) = 0;
};

// The boxes of a process without a desktop: the default button answers at once.
std::shared_ptr<MessageBoxes> NoMessageBoxes();

}  // namespace vandpublic

#endif
