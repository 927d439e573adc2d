// Message boxes where there is nobody to see them.
#include "platform/message_box.h"

namespace vandpublic {
namespace {

class UnseenMessageBoxes final : public MessageBoxes {
 public:
  int Show(std::u16string_view, std::u16string_view, int style) override {
    return style == kBoxYesNoQuestionDefaultNo ? kBoxAnswerNo : kBoxAnswerOk;
  }
};

}  // namespace

std::shared_ptr<MessageBoxes> NoMessageBoxes() { return std::make_shared<UnseenMessageBoxes>(); }

}  // namespace vandpublic
