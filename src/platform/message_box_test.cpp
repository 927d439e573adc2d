#include "platform/message_box.h"

#include <gtest/gtest.h>

namespace vandpublic {
namespace {

TEST(MessageBoxes, Without_a_desktop_the_default_button_answers) {
  const auto boxes = NoMessageBoxes();
  EXPECT_EQ(boxes->Show(u"text", u"title", 48), 1) << "OK";
  EXPECT_EQ(boxes->Show(u"text", u"title", 324), 7) << "No";
}

}  // namespace
}  // namespace vandpublic
