#include "platform/posix/utf16_bytes.h"

#include <gtest/gtest.h>

namespace vandpublic {
namespace {

using std::string_literals::operator""s;

TEST(Utf16Bytes, the_mark_tells_the_order) {
  EXPECT_EQ(MarkedByteOrder("\xFF\xFE"), std::endian::little);
  EXPECT_EQ(MarkedByteOrder("\xFE\xFFxy"), std::endian::big);
  EXPECT_EQ(MarkedByteOrder("\xFF"), std::nullopt);
  EXPECT_EQ(MarkedByteOrder(""), std::nullopt);
  EXPECT_EQ(MarkedByteOrder("\xEF\xBB\xBF"), std::nullopt);
}

TEST(Utf16Bytes, both_orders_there_and_back) {
  const std::u16string text = u"A\u20ac\U0001F600";
  const std::string little = "A\0\xAC\x20\x3D\xD8\x00\xDE"s;
  const std::string big = "\0A\x20\xAC\xD8\x3D\xDE\x00"s;
  EXPECT_EQ(Utf16ToBytes(text, std::endian::little), little);
  EXPECT_EQ(Utf16ToBytes(text, std::endian::big), big);
  EXPECT_EQ(Utf16FromBytes(little, std::endian::little), text);
  EXPECT_EQ(Utf16FromBytes(big, std::endian::big), text);
}

TEST(Utf16Bytes, empty_texts_and_odd_bytes) {
  EXPECT_EQ(Utf16FromBytes("", std::endian::little), u"");
  EXPECT_EQ(Utf16FromBytes("A", std::endian::little), u"");
  EXPECT_EQ(Utf16FromBytes("A\0B"s, std::endian::little), u"A");
  EXPECT_EQ(Utf16ToBytes(u"", std::endian::big), "");
}

}  // namespace
}  // namespace vandpublic
