// What a host sets for the whole process.
#include <gtest/gtest.h>

#include <typeinfo>

#include "platform/host_settings.h"
#include "platform/platform.h"

namespace vandpublic {
namespace {

TEST(SystemPlatform, A_selected_code_page_is_that_of_tables_taken_later) {
  const auto earlier = SystemPlatform();
  const int page = earlier->code_page->number();
  EXPECT_TRUE(SelectCodePage(936));
  const auto later = SystemPlatform();
  EXPECT_EQ(earlier->code_page->number(), page);
  EXPECT_EQ(later->code_page->number(), 936);
  EXPECT_EQ(earlier->files, later->files) << "everything else is shared";
  for (const int number : {0, -1, 437, 65001, 1259})
    EXPECT_FALSE(SelectCodePage(number)) << number;
  EXPECT_EQ(SystemPlatform()->code_page->number(), 936);
  EXPECT_TRUE(SelectCodePage(page));
}

TEST(SystemPlatform, SeedRandom_starts_the_sequence_that_all_objects_draw_from) {
  const auto earlier = SystemPlatform();
  SeedRandom(5);
  const double first = earlier->random->Next();
  const double second = SystemPlatform()->random->Next();
  EXPECT_NE(first, second);
  SeedRandom(5);
  EXPECT_EQ(SystemPlatform()->random->Next(), first);
  EXPECT_EQ(earlier->random->Next(), second);
}

TEST(SystemPlatform, A_handler_gets_the_boxes_until_it_is_taken_back) {
  const auto before = SystemPlatform()->message_boxes;
  SetMessageBoxHandler([](std::u16string_view text, std::u16string_view title, int style) {
    return text == u"t" && title == u"h" && style == 324 ? 6 : 0;
  });
  const auto handled = SystemPlatform()->message_boxes;
  EXPECT_EQ(handled->Show(u"t", u"h", 324), 6);
  SetMessageBoxHandler({});
  const MessageBoxes& own = *before;
  const MessageBoxes& after = *SystemPlatform()->message_boxes;
  EXPECT_EQ(typeid(after), typeid(own));
  EXPECT_NE(&after, handled.get());
}

}  // namespace
}  // namespace vandpublic
