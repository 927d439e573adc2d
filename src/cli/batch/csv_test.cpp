// CSV fields and records.
#include "cli/batch/csv.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vandpublic {
namespace {

using testing::ElementsAre;

std::vector<std::string> Texts(std::string_view record, char separator = ',') {
  std::vector<std::string_view> fields;
  SplitCsvRecord(record, separator, fields);
  std::vector<std::string> texts;
  for (const std::string_view field : fields)
    texts.push_back(CsvFieldText(field));
  return texts;
}

TEST(Csv, Fields_are_split_and_lose_their_quotation_marks) {
  EXPECT_THAT(Texts("a,b,c\n"), ElementsAre("a", "b", "c"));
  EXPECT_THAT(Texts("a,b\r\n"), ElementsAre("a", "b"));
  EXPECT_THAT(Texts(""), ElementsAre(""));
  EXPECT_THAT(Texts(",\n"), ElementsAre("", ""));
  EXPECT_THAT(Texts("\"a,b\",\"c\"\"d\",\"\"\n"), ElementsAre("a,b", "c\"d", ""));
  EXPECT_THAT(Texts("\"two\r\nlines\",x\n"), ElementsAre("two\r\nlines", "x"));
  EXPECT_THAT(Texts("a;b,c", ';'), ElementsAre("a", "b,c"));
}

TEST(Csv, Quotation_marks_count_only_where_a_field_starts) {
  EXPECT_THAT(Texts("5\" pipe,b\n"), ElementsAre("5\" pipe", "b"));
  EXPECT_THAT(Texts("\"a\"b,c\n"), ElementsAre("ab", "c"));
  EXPECT_THAT(Texts(" \"a\",b"), ElementsAre(" \"a\"", "b"));
  EXPECT_THAT(Texts("\"never closed,b\n"), ElementsAre("never closed,b"));
}

TEST(Csv, Written_fields_read_back) {
  for (const std::string text : {"", "plain", "a,b", "say \"x\"", "two\nlines", "\r", "\"", " "}) {
    std::string record = "first,";
    AppendCsvField(record, text, ',');
    EXPECT_THAT(Texts(record + "\n"), ElementsAre("first", text)) << record;
  }
  std::string record;
  AppendCsvField(record, "plain", ',');
  EXPECT_EQ(record, "plain") << "no quotation marks without need";
}

}  // namespace
}  // namespace vandpublic
