#include "runtime/string_value.h"

#include <gtest/gtest.h>

namespace vandpublic {
namespace {

TEST(StringValue, A_new_one_is_empty_and_not_absent) {
  const String text;
  EXPECT_EQ(text.Length(), 0u);
  EXPECT_EQ(text.ByteLength(), 0u);
  EXPECT_FALSE(text.IsAbsent());
}

TEST(StringValue, Absent_and_empty_compare_equal_but_can_be_told_apart) {
  EXPECT_TRUE(String::Absent().IsAbsent());
  EXPECT_EQ(String::Absent(), String());
  EXPECT_EQ(String::Absent().Length(), 0u);
  EXPECT_FALSE(String("").IsAbsent());
  EXPECT_FALSE(String(u"").IsAbsent());
}

TEST(StringValue, Narrow_texts_are_UTF8_and_wide_ones_units) {
  EXPECT_EQ(String("\xE2\x82\xAC").view(), u"\u20ac");
  EXPECT_EQ(String(std::string("a\0b", 3)).view(), std::u16string_view(u"a\0b", 3));
  EXPECT_EQ(String(std::string_view("\xFF")).view(), u"\uFFFD");
  EXPECT_EQ(String(std::u16string(u"\u00e9")).ToUtf8(), "\xC3\xA9");
  EXPECT_EQ(String(std::u16string_view(u"abc").substr(1)).view(), u"bc");
  EXPECT_EQ(String(u"\U0001F600").Length(), 2u);
}

TEST(StringValue, ByteAt_gives_the_low_byte_of_a_unit_first) {
  const String text = u"\u20ac\u0141";
  ASSERT_EQ(text.ByteLength(), 4u);
  EXPECT_EQ(text.ByteAt(0), 0xAC);
  EXPECT_EQ(text.ByteAt(1), 0x20);
  EXPECT_EQ(text.ByteAt(2), 0x41);
  EXPECT_EQ(text.ByteAt(3), 0x01);
}

TEST(StringValue, An_odd_byte_count_keeps_half_a_unit_that_is_no_character) {
  const String text = String::FromBytes("ABC");
  EXPECT_EQ(text.Length(), 1u);
  EXPECT_EQ(text.ByteLength(), 3u);
  EXPECT_EQ(text.ByteAt(2), 'C');
  EXPECT_EQ(text.view(), std::u16string_view(u"\u4241"));
  EXPECT_EQ(text.ToUtf8(), "\xE4\x89\x81");
  EXPECT_EQ(text.ToBytes(), "ABC");
}

TEST(StringValue, Bytes_come_back_whatever_their_number) {
  for (const std::string_view bytes : {"", "A", "AB", "ABC", "\xFF\xFE\x80\xD8\x01"}) {
    EXPECT_EQ(String::FromBytes(bytes).ToBytes(), bytes);
  }
  const std::string_view with_zeros("\0\0\0", 3);
  EXPECT_EQ(String::FromBytes(with_zeros).ToBytes(), with_zeros);
}

TEST(StringValue, Equality_counts_the_stray_byte) {
  EXPECT_EQ(String::FromBytes("ABC"), String::FromBytes("ABC"));
  EXPECT_FALSE(String::FromBytes("ABC") == String::FromBytes("ABD"));
  EXPECT_FALSE(String::FromBytes("ABC") == String::FromBytes("AB"));
  EXPECT_FALSE(String(u"a") == String(u"A"));
}

TEST(StringValue, ToUtf8_replaces_unpaired_surrogates) {
  EXPECT_EQ(String(std::u16string{u'a', 0xD800, u'b'}).ToUtf8(),
            "a\xEF\xBF\xBD"
            "b");
}

TEST(StringValue, TrimSpaces_takes_blanks_from_the_ends_and_nothing_else) {
  struct Case {
    std::u16string_view text;
    std::u16string_view trimmed;
  };
  constexpr Case kCases[] = {
      {u"", u""},           {u" ", u""},
      {u"    ", u""},       {u"a", u"a"},
      {u"  a b  ", u"a b"}, {u"\ta\t", u"\ta\t"},
      {u" \t ", u"\t"},     {u"\u3000a\u00a0", u"\u3000a\u00a0"},
      {u"\r\n ", u"\r\n"},
  };
  for (const Case& one : kCases)
    EXPECT_EQ(TrimSpaces(one.text), one.trimmed);
}

}  // namespace
}  // namespace vandpublic
