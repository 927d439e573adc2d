#include "runtime/utf8.h"

#include <gtest/gtest.h>

namespace vandpublic {
namespace {

TEST(Utf8, every_code_point_comes_back) {
  for (char32_t c = 0; c <= 0x10FFFF; c += (c < 0x11000 ? 1 : 0x3F)) {
    if (c >= 0xD800 && c <= 0xDFFF) continue;
    std::u16string text;
    if (c < 0x10000) {
      text.push_back(static_cast<char16_t>(c));
    } else {
      text.push_back(static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10)));
      text.push_back(static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FF)));
    }
    ASSERT_EQ(FromUtf8(ToUtf8(text)), text) << static_cast<unsigned>(c);
  }
}

TEST(Utf8, lengths_follow_the_code_point) {
  EXPECT_EQ(ToUtf8(u"A"), "A");
  EXPECT_EQ(ToUtf8(u"\u00e9"), "\xC3\xA9");
  EXPECT_EQ(ToUtf8(u"\u20ac"), "\xE2\x82\xAC");
  EXPECT_EQ(ToUtf8(u"\U0001F600"), "\xF0\x9F\x98\x80");
}

TEST(Utf8, unpaired_surrogates_become_the_replacement_character) {
  EXPECT_EQ(ToUtf8(std::u16string{0xD800}), "\xEF\xBF\xBD");
  EXPECT_EQ(ToUtf8(std::u16string{0xDC00, u'a'}),
            "\xEF\xBF\xBD"
            "a");
  EXPECT_EQ(ToUtf8(std::u16string{0xD800, u'a'}),
            "\xEF\xBF\xBD"
            "a");
}

TEST(Utf8, malformed_bytes_become_one_replacement_each) {
  EXPECT_EQ(FromUtf8("\x80"), u"\uFFFD");
  EXPECT_EQ(FromUtf8("\xC0\x80"), u"\uFFFD\uFFFD") << "overlong zero";
  EXPECT_EQ(FromUtf8("\xE0\x80\x80"), u"\uFFFD\uFFFD\uFFFD") << "overlong";
  EXPECT_EQ(FromUtf8("\xED\xA0\x80"), u"\uFFFD\uFFFD\uFFFD") << "encoded surrogate";
  EXPECT_EQ(FromUtf8("\xF4\x90\x80\x80"), u"\uFFFD\uFFFD\uFFFD\uFFFD") << "past U+10FFFF";
  EXPECT_EQ(FromUtf8("\xE2\x82"), u"\uFFFD\uFFFD") << "cut off";
  EXPECT_EQ(FromUtf8("\xC3(a"), u"\uFFFD(a") << "the byte after a bad lead is kept";
  EXPECT_EQ(FromUtf8("\xFF"), u"\uFFFD");
}

TEST(Utf8, IsWellFormed_tells_paired_from_unpaired) {
  EXPECT_TRUE(IsWellFormed(u""));
  EXPECT_TRUE(IsWellFormed(u"a\U0001F600b"));
  EXPECT_FALSE(IsWellFormed(std::u16string{0xD83D}));
  EXPECT_FALSE(IsWellFormed(std::u16string{0xD83D, u'x'}));
  EXPECT_FALSE(IsWellFormed(std::u16string{0xDE00}));
}

}  // namespace
}  // namespace vandpublic
