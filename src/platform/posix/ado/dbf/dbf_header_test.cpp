// Headers that are wrong, and headers that are odd, in tables that are made here.
#include <gtest/gtest.h>

#include "support/foxpro_folder.h"
#include "support/made_dbf.h"

namespace vandpublic::ado {
namespace {

// A header with bytes put into it, and why it is that of no table.
struct BadHeader {
  const char* name;
  std::size_t position;
  std::string bytes;
  const char* reason;
};

TEST(DbfHeader, That_is_wrong_is_told) {
  const BadHeader headers[] = {
      {"dBASE 2", 0, "\x02", "this kind of file is not supported"},
      {"a container", 28, "\x04", "database containers are not supported"},
      {"more records", 4, "\x02", "the file is cut short"},
      {"no header", 8, std::string("\x20\0", 2), "the header is cut short"},
      {"a longer header", 8, "\xFF\xFF", "the header is cut short"},
      {"half a field", 8, std::string("\x30\0", 2), "the header is cut short"},
      {"no record", 10, std::string("\1\0", 2), "the file is cut short"},
      {"no fields", 32, "\r", "there are no fields"},
      {"an unknown type", 43, "Z", "a field has an unknown type"},
      {"an empty field", 48, std::string(1, '\0'), "a field has a wrong size"},
      {"a field longer than the record", 48, "\xFF", "a field has a wrong size"},
      {"a short date", 43, "D", "a field has a wrong size"},
      {"a long truth value", 43, "L", "a field has a wrong size"},
      {"a short time", 43, "T", "a field has a wrong size"},
      {"a short amount", 43, "Y", "a field has a wrong size"},
      {"a short double", 43, "B", "a field has a wrong size"},
      {"a short memo", 43, "M", "a field has a wrong size"},
      {"a long integer", 43, "I", "a field has a wrong size"},
      {"no null flags", 50, "\x02", "the null flags are missing"},
  };
  MadeDbf table;
  table.fields = {{"x", 'C', 3}};
  table.records = {"abc"};
  const std::string content = table.Content();
  const TempFolder folder;
  folder.Write("made.dbf", content);
  ASSERT_EQ(Rows(folder), "abc");
  for (const BadHeader& header : headers) {
    std::string bad = content;
    bad.replace(header.position, header.bytes.size(), header.bytes);
    folder.Write("made.dbf", bad);
    EXPECT_EQ(Rows(folder), "Not a table. File 'made.dbf': " + std::string(header.reason) + ".")
        << header.name;
  }
  folder.Write("made.dbf", content.substr(0, 31));
  EXPECT_EQ(Rows(folder), "Not a table. File 'made.dbf': the file is too short.");
}

TEST(DbfHeader, May_end_without_a_mark) {
  MadeDbf table;
  table.version = MadeDbf::kDbase3;
  table.fields = {{"x", 'C', 3}};
  std::string content = table.Content();
  content.replace(8, 2, MadeNumber(64, 2));
  content.replace(4, 1, "\1");
  content.replace(64, std::string::npos, " abc");
  const TempFolder folder;
  folder.Write("made.dbf", content);
  EXPECT_EQ(Rows(folder), "abc");
}

TEST(DbfHeader, May_have_fields_of_one_name_or_none_and_hidden_ones) {
  MadeDbf table;
  table.fields = {{"x", 'C', 1}, {"X", 'C', 1}, {"x ", 'C', 1}, {"", 'C', 1}, {"h", 'C', 1, 1}};
  table.records = {"abcde"};
  const TempFolder folder;
  folder.Write("made.dbf", table.Content());
  EXPECT_EQ(Rows(folder), "a|b|c|d");
  EXPECT_EQ(Rows(folder, "Select column, x_3, X_2, x From made"), "d|c|b|a");
}

TEST(DbfHeader, With_fields_that_number_themselves_is_for_reading) {
  MadeDbf table;
  table.fields = {{"id", 'I', 4, 8}, {"x", 'C', 1}};
  table.records = {MadeNumber(7, 4) + "a"};
  const TempFolder folder;
  folder.Write("made.dbf", table.Content());
  EXPECT_EQ(Rows(folder, "Update made Set id=8"),
            "Field id is numbered automatically and cannot be written.");
  EXPECT_EQ(Rows(folder, "Insert Into made (x) Values ('b')"),
            "Rows cannot be added to made.dbf: field id is numbered automatically.");
  Rows(folder, "Update made Set x='c'");
  EXPECT_EQ(Rows(folder), "7|c");
}

}  // namespace
}  // namespace vandpublic::ado
