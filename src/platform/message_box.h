// The port for modal message boxes. Answers and styles are the platform's classic numbers.
#ifndef VANDPUBLIC_PLATFORM_MESSAGE_BOX_H
#define VANDPUBLIC_PLATFORM_MESSAGE_BOX_H

#include <memory>
#include <string_view>

namespace vandpublic {

class MessageBoxes {
 public:
  virtual ~MessageBoxes() = default;

  // Shows a modal box and returns the button pressed: 1 OK, 6 Yes, 7 No. Style 48 is an OK box
  // with the exclamation icon; 324 a question with Yes and No, No being the default. Without a
  // desktop nothing is shown, nothing blocks, and the default button is the answer.
  virtual int Show(std::u16string_view text, std::u16string_view title, int style) = 0;
};

// The boxes of a process without a desktop: the default button answers at once.
std::shared_ptr<MessageBoxes> NoMessageBoxes();

}  // namespace vandpublic

#endif
