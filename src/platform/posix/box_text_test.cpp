#include "platform/posix/box_text.h"

#include <gtest/gtest.h>

namespace vandpublic {
namespace {

using std::string_literals::operator""s;

TEST(BoxText, is_the_text_in_utf8) {
  EXPECT_EQ(BoxText(u""), "");
  EXPECT_EQ(BoxText(u"caf\u00e9 \u4e2d \U0001F600"), "caf\xC3\xA9 \xE4\xB8\xAD \xF0\x9F\x98\x80");
}

TEST(BoxText, ends_at_the_first_zero) {
  EXPECT_EQ(BoxText(u"ab\0cd"s), "ab");
  EXPECT_EQ(BoxText(u"\0"s), "");
}

TEST(BoxText, makes_every_line_end_a_line_feed) {
  EXPECT_EQ(BoxText(u"a\r\nb\rc\nd\r"), "a\nb\nc\nd\n");
  EXPECT_EQ(BoxText(u"\r\r\n\n"), "\n\n\n");
}

TEST(BoxText, lets_no_control_character_through) {
  EXPECT_EQ(BoxText(u"a\x1B[2Jb\x07\x7F\x9B\x80z\tq"), "a?[2Jb????z\tq");
}

TEST(BoxText, cuts_a_long_text) {
  const std::u16string longest(kLongestBoxText, u'x');
  EXPECT_EQ(BoxText(longest), std::string(kLongestBoxText, 'x'));
  EXPECT_EQ(BoxText(longest + u"y"), std::string(kLongestBoxText, 'x') + "...");
}

TEST(BoxText, never_cuts_a_surrogate_pair) {
  const std::u16string before(kLongestBoxText - 1, u'x');
  EXPECT_EQ(BoxText(before + u"\U0001F600y"), std::string(kLongestBoxText - 1, 'x') + "...");
}

TEST(BoxTitle, is_one_line) { EXPECT_EQ(BoxTitle(u"a\r\nb\tc\0d"s), "a b c"); }

}  // namespace
}  // namespace vandpublic
