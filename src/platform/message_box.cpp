// Message boxes where there is nobody to see them.
#include "platform/message_box.h"

namespace vandpublic {
namespace {

constexpr int kOk = 1;
constexpr int kNo = 7;
constexpr int kQuestion = 324;  // Yes and No, No being the default

class UnseenMessageBoxes final : public MessageBoxes {
 public:
  int Show(std::u16string_view, std::u16string_view, int style) override {
    return style == kQuestion ? kNo : kOk;
  }
};

}  // namespace

std::shared_ptr<MessageBoxes> NoMessageBoxes() { return std::make_shared<UnseenMessageBoxes>(); }

}  // namespace vandpublic
