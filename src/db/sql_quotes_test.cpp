// EncodeStrSQL and DecodeStrSQL.
#include <gtest/gtest.h>

#include "support/test_component.h"

namespace vandpublic {
namespace {

TEST(SqlQuotes, Encoding_doubles_every_single_quote) {
  TestComponent component;
  EXPECT_EQ(component.object.EncodeStrSQL("O'Brien").ToUtf8(), "O''Brien");
  EXPECT_EQ(component.object.EncodeStrSQL("'").ToUtf8(), "''");
  EXPECT_EQ(component.object.EncodeStrSQL("''").ToUtf8(), "''''");
  EXPECT_EQ(component.object.EncodeStrSQL("\"a\"").ToUtf8(), "\"a\"");
  EXPECT_EQ(component.object.EncodeStrSQL("").ToUtf8(), "");
  EXPECT_EQ(component.object.EncodeStrSQL(u"\u2019\uff07"), String(u"\u2019\uff07"));
  EXPECT_FALSE(component.object.EncodeStrSQL(String::Absent()).IsAbsent());
}

TEST(SqlQuotes, Decoding_takes_pairs_from_the_left) {
  TestComponent component;
  EXPECT_EQ(component.object.DecodeStrSQL("O''''Brien").ToUtf8(), "O''Brien");
  EXPECT_EQ(component.object.DecodeStrSQL("'''").ToUtf8(), "''");
  EXPECT_EQ(component.object.DecodeStrSQL("'a'").ToUtf8(), "'a'");
  EXPECT_EQ(component.object.DecodeStrSQL("''").ToUtf8(), "'");
  EXPECT_EQ(component.object.DecodeStrSQL("").ToUtf8(), "");
}

TEST(SqlQuotes, Decoding_undoes_encoding) {
  TestComponent component;
  for (const char* text : {"", "'", "''", "a'b''c'''", "no quotes"}) {
    EXPECT_EQ(component.object.DecodeStrSQL(component.object.EncodeStrSQL(text)).ToUtf8(), text);
  }
}

}  // namespace
}  // namespace vandpublic
