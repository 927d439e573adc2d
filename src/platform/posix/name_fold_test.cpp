#include "platform/posix/name_fold.h"

#include <gtest/gtest.h>

namespace vandpublic {
namespace {

TEST(NameFold, letters_of_all_alphabets_become_upper_case) {
  EXPECT_EQ(FoldName(u"abcXYZ019[]`{"), u"ABCXYZ019[]`{");
  EXPECT_EQ(FoldName(u"\u00e4\u00f6\u00fc\u00ff\u00f7"), u"\u00c4\u00d6\u00dc\u0178\u00f7");
  EXPECT_EQ(FoldName(u"\u03b1\u03c9\u03c2"), u"\u0391\u03a9\u03a3") << "Greek";
  EXPECT_EQ(FoldName(u"\u0430\u044f\u0451"), u"\u0410\u042f\u0401") << "Cyrillic";
  EXPECT_EQ(FoldName(u"\uff41\u2170"), u"\uff21\u2160") << "wide letters, small numerals";
  EXPECT_EQ(FoldName(u"\u4e2d\u30a2\u00df"), u"\u4e2d\u30a2\u00df") << "without case";
}

TEST(NameFold, no_foreign_letter_becomes_an_ASCII_letter) {
  EXPECT_EQ(FoldName(u"\u0131\u017f"), u"\u0131\u017f") << "dotless i, long s";
  for (unsigned c = 0x80; c <= 0xFFFF; ++c) {
    const std::u16string folded = FoldName(std::u16string(1, static_cast<char16_t>(c)));
    ASSERT_GE(folded[0], 0x80) << c;
    ASSERT_EQ(FoldName(folded), folded) << c;
  }
}

TEST(NameFold, surrogates_stay) {
  EXPECT_EQ(FoldName(u"\U00010428"), u"\U00010428");
  EXPECT_EQ(FoldName(std::u16string{0xD800}), std::u16string{0xD800});
}

TEST(NameFold, SameName_compares_without_case) {
  EXPECT_TRUE(SameName(u"", u""));
  EXPECT_TRUE(SameName(u"\u00c4bC", u"\u00e4Bc"));
  EXPECT_FALSE(SameName(u"ab", u"abc"));
  EXPECT_FALSE(SameName(u"abc", u"ab"));
  EXPECT_FALSE(SameName(u"@", u"`")) << "no letters, though they differ as letters do";
}

}  // namespace
}  // namespace vandpublic
