// Tables that are made here: every type of field as it is read and written, in its own bytes, every
// kind of memo file, and each part of a header that can be wrong.
#include <gtest/gtest.h>

#include <sys/resource.h>

#include <bit>
#include <cmath>
#include <csignal>
#include <filesystem>

#include "platform/posix/ado/ado_errors.h"
#include "platform/posix/ado/dbf/dbf_folder.h"
#include "platform/posix/ado/dbf/dbf_session.h"
#include "platform/posix/ado/sql/sql_engine.h"
#include "platform/posix/code_pages.h"
#include "platform/posix/posix_clock.h"
#include "runtime/errors.h"
#include "runtime/utf8.h"
#include "support/expected_rows.h"
#include "support/made_dbf.h"
#include "support/temp_folder.h"

namespace vandpublic::ado {
namespace {

SqlEngine EngineFor(const TempFolder& folder) {
  const DbfSettings settings{FindCodePage(1252), std::make_shared<PosixClock>()};
  return {std::make_unique<DbfFolder>(folder.path().string(), settings), Dialect::FoxPro};
}

// What an action gives, or the error's description.
template <class Action>
std::string OutcomeOf(Action action) {
  try {
    return action();
  } catch (const AutomationError& error) {
    EXPECT_EQ(ToUtf8(error.source()), kOdbcSource);
    return ToUtf8(error.description());
  }
}

std::string Rows(const TempFolder& folder, const std::string& statement = "Select * From made") {
  return OutcomeOf([&] { return ShownResult(EngineFor(folder).Execute(statement, false)); });
}

std::string Julian(unsigned day, unsigned milliseconds) {
  return MadeNumber(day, 4) + MadeNumber(milliseconds, 4);
}

std::string DoubleCell(double value) { return MadeNumber(std::bit_cast<std::uint64_t>(value), 8); }

constexpr unsigned kFifthOfMarch = 2460375;  // 2024, as a Julian day

// A Visual FoxPro table of all types with one row that was added with nothing given.
class AllTypes : public testing::Test {
 protected:
  AllTypes() {
    table_.fields = {{"c", 'C', 10},
                     {"cb", 'C', 4, 4},
                     {"n", 'N', 8, 0, 2},
                     {"f", 'F', 6, 0, 1},
                     {"d", 'D', 8},
                     {"t", 'T', 8},
                     {"l", 'L', 1},
                     {"i", 'I', 4},
                     {"y", 'Y', 8},
                     {"b", 'B', 8},
                     {"v", 'V', 6},
                     {"q", 'Q', 6},
                     {"m", 'M', 4},
                     {"mb", 'M', 4, 4},
                     {"g", 'G', 4},
                     {"cn", 'C', 4, 2},
                     {"vn", 'V', 4, 2},
                     {"mn", 'M', 4, 2},
                     {"_NullFlags", '0', 1, 5}};
    folder_.Write("made.dbf", table_.Content());
    folder_.Write("made.fpt", MadeFptHeader());
    EngineFor(folder_).Execute("Insert Into made (i) Values (1)", false);
  }

  // Stores the value, as a recordset does, and shows what is read then.
  std::string Stored(const std::string& column, const Variant& value) {
    return OutcomeOf([&] {
      SqlEngine engine = EngineFor(folder_);
      const std::string statement = "Select " + column + " From made";
      Result result = engine.Execute(statement, true);
      Row after = result.rows.at(0);
      after.values[0] = value;
      result.writer->Update(result.rows[0], after, {true});
      const Result stored = engine.Execute(statement, false);
      EXPECT_EQ(stored.rows.at(0).values.at(0), after.values[0]) << column;
      return ShownResult(stored);
    });
  }

  std::string Cell(const std::string& column) const {
    std::size_t position = table_.HeaderLength() + 1;
    for (const MadeDbfField& field : table_.fields) {
      if (field.name == column) return folder_.Read("made.dbf").substr(position, field.size);
      position += field.size;
    }
    return "no such column";
  }

  MadeDbf table_;
  TempFolder folder_;
};

TEST_F(AllTypes, Are_blank_in_a_new_row_or_null_where_they_may_be) {
  EXPECT_EQ(Rows(folder_, "Select c, n, f, d, t, l, i, y, b, v, m, cn, vn, mn From made"),
            "|0|0|1899-12-30|1899-12-30 00:00:00|False|1|0|0|||\\N|\\N|\\N");
  EXPECT_EQ(Rows(folder_, "Select Len(c), Len(v), Len(m) From made"), "10|0|0");
}

struct StoredValue {
  const char* column;
  Variant value;
  std::string shown;
  std::string cell;
};

TEST_F(AllTypes, Are_stored_in_the_bytes_of_the_format) {
  const StoredValue values[] = {
      {"c", "abc", "abc", "abc       "},
      {"c", "abc  ", "abc", "abc       "},
      {"c", "\xC3\xA9", "\xC3\xA9", "\xE9         "},
      {"c", 12.5, "12.5", "12.5      "},
      {"c", true, "True", "True      "},
      {"n", 12.346, "12.35", "   12.35"},
      {"n", "-5", "-5", "   -5.00"},
      {"f", Long{2}, "2", "   2.0"},
      {"d", Date{45356.75}, "2024-03-05", "20240305"},
      {"d", Date{-1}, "1899-12-29", "18991229"},
      {"d", Date{0}, "1899-12-30", "        "},
      {"t", Date{45356.25}, "2024-03-05 06:00:00", Julian(kFifthOfMarch, 21600000)},
      {"t", Date{0.5}, "1899-12-30 12:00:00", Julian(2415019, 43200000)},
      {"t", Date{0}, "1899-12-30 00:00:00", std::string(8, '\0')},
      {"l", true, "True", "T"},
      {"l", "False", "False", "F"},
      {"l", Long{5}, "True", "T"},
      {"i", Long{-2}, "-2", "\xFE\xFF\xFF\xFF"},
      {"i", "7", "7", std::string("\7\0\0\0", 4)},
      {"y", Currency{-12345}, "-1.2345", MadeNumber(0ULL - 12345, 8)},
      {"y", 1.5, "1.5", MadeNumber(15000, 8)},
      {"y", "2.25", "2.25", MadeNumber(22500, 8)},
      {"b", 0.1, "0.1", DoubleCell(0.1)},
      {"b", "-2.5", "-2.5", DoubleCell(-2.5)},
      {"v", "abc", "abc", std::string("abc\0\0\3", 6)},
      {"v", "abcdef", "abcdef", "abcdef"},
      {"v", "", "", std::string(6, '\0')},
      {"cn", "ab", "ab", "ab  "},
      {"cn", NullValue{}, "\\N", "    "},
      {"vn", "ab", "ab", std::string("ab\0\2", 4)},
      {"vn", NullValue{}, "\\N", std::string(4, '\0')},
      {"m", "memo", "memo", MadeNumber(8, 4)},
      {"m", "", "", MadeNumber(0, 4)},
      {"mn", "other", "other", MadeNumber(9, 4)},
      {"mn", NullValue{}, "\\N", MadeNumber(0, 4)},
  };
  for (const StoredValue& value : values) {
    // A short text's cell is padded when it is read back.
    SqlEngine engine = EngineFor(folder_);
    Result result = engine.Execute("Select " + std::string(value.column) + " From made", true);
    Row after = result.rows.at(0);
    after.values[0] = value.value;
    result.writer->Update(result.rows[0], after, {true});
    EXPECT_EQ(Rows(folder_, "Select " + std::string(value.column) + " From made"), value.shown)
        << value.column;
    EXPECT_EQ(Cell(value.column), value.cell) << value.column << " " << value.shown;
  }
}

TEST_F(AllTypes, Hold_bytes) {
  const std::pair<const char*, std::vector<Byte>> values[] = {
      {"cb", {1, 0, 2, 3}}, {"q", {1, 2}},    {"q", {1, 2, 3, 4, 5, 6}}, {"q", {}},
      {"mb", {0, 255}},     {"g", {7, 8, 9}},
  };
  for (const auto& [column, bytes] : values) {
    const Variant value{ByteArray(bytes)};
    EXPECT_EQ(Stored(column, value), ShownValue(value, DataType::VarBinary)) << column;
  }
  EXPECT_EQ(Cell("q"), std::string(6, '\0'));
}

TEST_F(AllTypes, Refuse_what_they_cannot_hold) {
  const std::string mismatch = "Data type mismatch for field ";
  const std::string too_long = "The value does not fit into field ";
  const std::vector<std::tuple<const char*, Variant, std::string>> values = {
      {"c", "12345678901", too_long},
      {"c", ByteArray({1}), mismatch},
      {"c", "\xE4\xB8\xAD",
       "The text for field c has characters that the table's code page lacks."},
      {"c", NullValue{}, "Field c does not accept null values."},
      {"cb", "text", mismatch},
      {"cb", ByteArray({1, 2, 3, 4, 5}), too_long},
      {"n", "x", mismatch},
      {"n", 1e10, too_long},
      {"n", 1e300, too_long},
      {"n", HUGE_VAL, mismatch},
      {"d", "soon", mismatch},
      {"d", 1e10, too_long},
      {"t", "soon", mismatch},
      {"t", 1e10, too_long},
      {"l", "perhaps", mismatch},
      {"i", 3e9, too_long},
      {"i", "x", mismatch},
      {"y", 1e15, too_long},
      {"y", "x", mismatch},
      {"b", "x", mismatch},
      {"v", "1234567", too_long},
      {"v", NullValue{}, "Field v does not accept null values."},
      {"q", "x", mismatch},
      {"q", ByteArray({1, 2, 3, 4, 5, 6, 7}), too_long},
      {"m", ByteArray({1}), mismatch},
      {"mb", "x", mismatch},
      {"g", Long{1}, mismatch},
  };
  const std::string table = folder_.Read("made.dbf");
  const std::string memos = folder_.Read("made.fpt");
  for (const auto& [column, value, description] : values) {
    const bool whole = description.ends_with(".");
    EXPECT_EQ(Stored(column, value), whole ? description : description + column + ".") << column;
  }
  EXPECT_EQ(folder_.Read("made.dbf"), table);
  EXPECT_EQ(folder_.Read("made.fpt"), memos);
}

// One field of a table, the bytes of its cell, and what is read.
struct StoredCell {
  char type;
  std::string cell;
  std::string shown;  // "bad": the error of a cell that holds no value
};

TEST(DbfCells, Are_read_in_every_form) {
  const StoredCell cells[] = {
      {'N', "   12.35", "12.35"},
      {'N', "12      ", "12"},
      {'N', "  +5", "5"},
      {'N', "    ", "0"},
      {'N', std::string(4, '\0'), "0"},
      {'N', "****", "Numeric overflow. The number of field x was lost."},
      {'N', "1e999", "bad"},
      {'N', "12x", "bad"},
      {'N', "nan", "bad"},
      {'F', "-1.5", "-1.5"},
      {'F', "+", "bad"},
      {'D', "20240305", "2024-03-05"},
      {'D', "        ", "1899-12-30"},
      {'D', "00000000", "1899-12-30"},
      {'D', "2024030 ", "bad"},
      {'D', "2024-3-5", "bad"},
      {'D', "20241305", "bad"},
      {'T', Julian(kFifthOfMarch, 21600000), "2024-03-05 06:00:00"},
      {'T', Julian(kFifthOfMarch, 86400000), "2024-03-06 00:00:00"},
      {'T', Julian(0, 0), "1899-12-30 00:00:00"},
      {'T', std::string(8, ' '), "1899-12-30 00:00:00"},
      {'T', Julian(kFifthOfMarch, 86400001), "bad"},
      {'T', Julian(0xFFFFFFFF, 1), "bad"},
      {'L', "T", "True"},
      {'L', "t", "True"},
      {'L', "Y", "True"},
      {'L', "y", "True"},
      {'L', "F", "False"},
      {'L', "f", "False"},
      {'L', "N", "False"},
      {'L', "n", "False"},
      {'L', " ", "False"},
      {'L', "?", "False"},
      {'L', std::string(1, '\0'), "False"},
      {'L', "1", "bad"},
      {'I', MadeNumber(70000, 4), "70000"},
      {'Y', MadeNumber(12345, 8), "1.2345"},
      {'B', DoubleCell(-0.25), "-0.25"},
      {'C', std::string("a\0b", 3), "a b"},
  };
  for (const StoredCell& cell : cells) {
    MadeDbf table;
    table.fields = {{"x", cell.type, static_cast<unsigned>(cell.cell.size())}};
    table.records = {cell.cell};
    const TempFolder folder;
    folder.Write("made.dbf", table.Content());
    const std::string expected =
        cell.shown == "bad" ? "Field x holds no value of its type; the table may be damaged."
                            : cell.shown;
    EXPECT_EQ(Rows(folder), expected) << cell.type << " " << cell.cell;
  }
}

TEST(DbfCells, Of_variable_length_count_their_characters) {
  for (const auto& [cell, shown] :
       {std::pair{std::string("ab\0\2", 4), std::string("ab")},
        std::pair{std::string("\0\0\0\0", 4), std::string()},
        std::pair{std::string("abc\3", 4), std::string("abc")},
        std::pair{std::string("abc\4", 4),
                  std::string("Field x holds no value of its type; the table may be damaged.")}}) {
    MadeDbf table;
    table.fields = {{"x", 'V', 4}, {"_NullFlags", '0', 1, 5}};
    table.records = {cell + "\1"};
    const TempFolder folder;
    folder.Write("made.dbf", table.Content());
    EXPECT_EQ(Rows(folder), shown);
  }
}

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

// Tables of a memo field "x" and their memo files.
struct MemoCase {
  const char* name;
  char version;
  char type;
  std::string cell;
  std::string memos;
  std::string shown;
};

std::string Dbase4Header(unsigned block_size) {
  return (std::string(20, '\0') + MadeNumber(block_size, 2)).append(490, '\0');
}

std::string Dbase4Memo(const std::string& content) {
  return "\xFF\xFF" + std::string("\x08\0", 2) + MadeNumber(content.size() + 8, 4) + content;
}

TEST(DbfMemos, Are_read_of_every_kind_of_file) {
  const std::string in_dbt = "Memo file made.dbt is missing or is invalid.";
  const std::string in_fpt = "Memo file made.fpt is missing or is invalid.";
  const std::string no_file = "Memo file for made.dbf is missing or is invalid.";
  const std::string bad_cell = "Field x holds no value of its type; the table may be damaged.";
  const std::string first = "         1";
  const std::string block(512, '\0');
  const std::string long_text(5000, 'm');
  const std::string fpt = MadeFptHeader();
  const std::string eighth = MadeNumber(8, 4);
  const MemoCase cases[] = {
      {"dBASE 3", MadeDbf::kDbase3Memo, 'M', first, block + "memo\x1A\x1A", "memo"},
      {"dBASE 3, long", MadeDbf::kDbase3Memo, 'M', first, block + long_text + "\x1A", long_text},
      {"dBASE 3, without an end", MadeDbf::kDbase3Memo, 'M', first, block + "memo", "memo"},
      {"dBASE 3, empty", MadeDbf::kDbase3Memo, 'M', "          ", block, ""},
      {"dBASE 3, behind the end", MadeDbf::kDbase3Memo, 'M', first, block, in_dbt},
      {"dBASE 3, without a file", MadeDbf::kDbase3Memo, 'M', first, "", no_file},
      {"dBASE 3, no number", MadeDbf::kDbase3Memo, 'M', "         x", block, bad_cell},
      {"dBASE 3, half a number", MadeDbf::kDbase3Memo, 'M', "1x        ", block, bad_cell},
      {"dBASE 3, too large a number", MadeDbf::kDbase3Memo, 'M', "9999999999", block, bad_cell},
      {"dBASE 3 without memos", MadeDbf::kDbase3, 'M', first, block + "memo", no_file},
      {"dBASE 4", MadeDbf::kDbase4Memo, 'M', first, Dbase4Header(512) + Dbase4Memo("memo"), "memo"},
      {"dBASE 4, default block", MadeDbf::kDbase4Memo, 'M', first,
       Dbase4Header(0) + Dbase4Memo("memo"), "memo"},
      {"dBASE 4, binary", MadeDbf::kDbase4Memo, 'B', first, Dbase4Header(512) + Dbase4Memo("a"),
       ShownValue(ByteArray({'a'}), DataType::LongVarBinary)},
      {"dBASE 4, without its mark", MadeDbf::kDbase4Memo, 'M', first, Dbase4Header(512) + block,
       in_dbt},
      {"dBASE 4, too short", MadeDbf::kDbase4Memo, 'M', first,
       Dbase4Header(512) + "\xFF\xFF" + std::string("\x08\0\x07\0\0\0", 6), in_dbt},
      {"dBASE 4, too long", MadeDbf::kDbase4Memo, 'M', first,
       Dbase4Header(512) + Dbase4Memo("memo").substr(0, 10), in_dbt},
      {"dBASE 4, half a block's header", MadeDbf::kDbase4Memo, 'M', first,
       Dbase4Header(512) + "\xFF", in_dbt},
      {"dBASE 4, half a header", MadeDbf::kDbase4Memo, 'M', first, "short", in_dbt},
      {"FoxPro 2", MadeDbf::kFoxPro2, 'M', "         8", fpt + MadeFptMemo("memo"), "memo"},
      {"FoxPro", MadeDbf::kVisualFoxPro, 'M', eighth, fpt + MadeFptMemo("memo"), "memo"},
      {"FoxPro, general", MadeDbf::kVisualFoxPro, 'G', eighth, fpt + MadeFptMemo("a", false),
       ShownValue(ByteArray({'a'}), DataType::LongVarBinary)},
      {"FoxPro, picture", MadeDbf::kVisualFoxPro, 'P', eighth, fpt + MadeFptMemo("a", false),
       ShownValue(ByteArray({'a'}), DataType::LongVarBinary)},
      {"FoxPro, blob", MadeDbf::kVisualFoxPro, 'W', eighth, fpt + MadeFptMemo("a", false),
       ShownValue(ByteArray({'a'}), DataType::LongVarBinary)},
      {"FoxPro, empty", MadeDbf::kVisualFoxPro, 'M', MadeNumber(0, 4), fpt, ""},
      {"FoxPro, behind the end", MadeDbf::kVisualFoxPro, 'M', eighth, fpt, in_fpt},
      {"FoxPro, half a block's header", MadeDbf::kVisualFoxPro, 'M', eighth, fpt + "abc", in_fpt},
      {"FoxPro, too long", MadeDbf::kVisualFoxPro, 'M', eighth, fpt + MadeFptMemo("x").substr(0, 8),
       in_fpt},
      {"FoxPro, half a header", MadeDbf::kVisualFoxPro, 'M', eighth, "abc", in_fpt},
      {"FoxPro, blocks of no bytes", MadeDbf::kVisualFoxPro, 'M', eighth, block, in_fpt},
      {"FoxPro, without a file", MadeDbf::kVisualFoxPro, 'M', eighth, "", no_file},
  };
  for (const MemoCase& memo : cases) {
    MadeDbf table;
    table.version = memo.version;
    table.fields = {{"x", memo.type, static_cast<unsigned>(memo.cell.size())}};
    table.records = {memo.cell};
    const TempFolder folder;
    folder.Write("made.dbf", table.Content());
    const bool is_fpt = memo.version == MadeDbf::kVisualFoxPro || memo.version == MadeDbf::kFoxPro2;
    if (!memo.memos.empty()) folder.Write(is_fpt ? "made.fpt" : "made.dbt", memo.memos);
    EXPECT_EQ(Rows(folder), memo.shown) << memo.name;
  }
}

TEST(DbfMemos, Of_foxpro_2_are_numbered_in_digits) {
  MadeDbf table;
  table.version = MadeDbf::kFoxPro2;
  table.fields = {{"x", 'M', 10}};
  const TempFolder folder;
  folder.Write("made.dbf", table.Content());
  folder.Write("made.fpt", MadeFptHeader());
  Rows(folder, "Insert Into made (x) Values ('first')");
  Rows(folder, "Insert Into made (x) Values ('second')");
  Rows(folder, "Insert Into made (x) Values ('')");
  EXPECT_EQ(Rows(folder), "first/second/");
  const std::string records = folder.Read("made.dbf").substr(table.HeaderLength());
  EXPECT_EQ(records, "          8          9           \x1A");
}

TEST(DbfMemos, Are_not_added_to_a_file_that_is_full) {
  MadeDbf table;
  table.fields = {{"x", 'M', 4}};
  table.records = {MadeNumber(0, 4)};
  const TempFolder folder;
  folder.Write("made.dbf", table.Content());
  folder.Write("made.fpt", MadeFptHeader().replace(0, 4, "\xFF\xFF\xFF\xFF"));
  const std::string before = folder.Read("made.fpt");
  EXPECT_EQ(Rows(folder, "Update made Set x='memo'"),
            "Memo file made.fpt is missing or is invalid.");
  EXPECT_EQ(folder.Read("made.fpt"), before);
}

// A table of letters, three rows of one, that other programs change while it is open.
class Letters : public testing::Test {
 protected:
  Letters() {
    table_.fields = {{"x", 'C', 100}};
    for (const char c : {'a', 'b', 'c'})
      table_.records.push_back(c + std::string(99, ' '));
    folder_.Write("made.dbf", table_.Content());
  }

  MadeDbf table_;
  TempFolder folder_;
};

TEST_F(Letters, That_are_cut_while_they_are_read_are_told) {
  const DbfSettings settings{FindCodePage(1252), std::make_shared<PosixClock>()};
  DbfFolder folder(folder_.path().string(), settings);
  const auto table = folder.Open("made");
  ASSERT_NE(table, nullptr);
  const auto scan = table->Scan();
  std::filesystem::resize_file(folder_.File("made.dbf"), table_.HeaderLength() + 50);
  EXPECT_EQ(OutcomeOf([&] { return std::string(scan->Next() ? "row" : "no row"); }),
            "Not a table. File 'made.dbf': the file is cut short.");
}

TEST_F(Letters, Are_found_by_their_numbers) {
  const DbfSettings settings{FindCodePage(1252), std::make_shared<PosixClock>()};
  DbfFolder folder(folder_.path().string(), settings);
  const auto table = folder.Open("made");
  const auto scan = table->Scan();
  EXPECT_TRUE(scan->Seek(3));
  EXPECT_TRUE(scan->Seek(1));
  EXPECT_FALSE(scan->Seek(0));
  EXPECT_FALSE(scan->Seek(4));
  table->Delete(2, GivenValues(1));
  EXPECT_FALSE(table->Scan()->Seek(2));
}

TEST_F(Letters, Are_not_written_into_another_table_of_the_name) {
  SqlEngine engine = EngineFor(folder_);
  Result result = engine.Execute("Select x From made", true);
  Row after = result.rows.at(2);
  after.values[0] = "d";
  const auto update = [&]() -> std::string {
    try {
      result.writer->Update(result.rows[2], after, {true});
      return "stored";
    } catch (const AutomationError& error) {
      return ToUtf8(error.description());
    }
  };
  const std::string gone =
      "Row cannot be located for updating. Some values may have been changed since it was last "
      "read.";
  MadeDbf other = table_;
  other.records.pop_back();
  folder_.Write("made.dbf", other.Content());
  EXPECT_EQ(update(), gone);
  other = table_;
  other.fields[0].size = 101;
  other.records = {std::string(101, 'x'), std::string(101, 'x'), std::string(101, 'x')};
  folder_.Write("made.dbf", other.Content());
  EXPECT_EQ(update(), gone);
  other.fields = {{"x", 'C', 50}, {"y", 'C', 50}};
  other.records.assign(3, std::string(100, 'x'));
  folder_.Write("made.dbf", other.Content());
  EXPECT_EQ(update(), gone);
  EXPECT_EQ(folder_.Read("made.dbf"), other.Content());
}

// The signal that goes with the limit would end the process.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t size) : old_handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &old_);
    rlimit limit = old_;
    limit.rlim_cur = size;
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;
  ~FileSizeLimit() {
    setrlimit(RLIMIT_FSIZE, &old_);
    std::signal(SIGXFSZ, old_handler_);
  }

 private:
  void (*old_handler_)(int);
  rlimit old_{};
};

TEST_F(Letters, Stay_as_many_where_a_new_one_has_no_room) {
  const std::string before = folder_.Read("made.dbf");
  std::string outcome;
  {
    const FileSizeLimit limit(before.size() + 20);
    outcome = Rows(folder_, "Insert Into made (x) Values ('d')");
  }
  EXPECT_EQ(outcome, "Cannot access file 'made.dbf': File too large.");
  EXPECT_EQ(folder_.Read("made.dbf").size(), before.size());
  EXPECT_EQ(Rows(folder_), "a/b/c");
}

TEST_F(Letters, Are_not_looked_for_in_what_is_no_file) {
  std::filesystem::create_directory(folder_.path() / "folder.dbf");
  EXPECT_EQ(Rows(folder_, "Select * From folder"),
            "Not a table. File 'folder.dbf': it is no regular file.");
  std::filesystem::create_symlink("nothing", folder_.path() / "gone.dbf");
  EXPECT_EQ(Rows(folder_, "Select * From gone"),
            "Cannot access file 'gone.dbf': No such file or directory.");
}

TEST_F(Letters, Are_found_under_the_name_that_is_written_so) {
  MadeDbf other = table_;
  other.records = {std::string(100, 'X')};
  folder_.Write("MADE.DBF", other.Content());
  EXPECT_EQ(Rows(folder_, "Select Left(x, 1) From made"), "a/b/c");
  std::filesystem::rename(folder_.File("made.dbf"), folder_.File("Made.txt"));
  EXPECT_EQ(Rows(folder_, "Select Left(x, 1) From made"), "X");
}

struct OpenedAs {
  const char* options;
  const char* outcome;
};

TEST_F(Letters, Are_opened_as_the_connection_string_says) {
  constexpr OpenedAs kOpened[] = {
      {"", "a/b/c"},
      {"SourceType=DBF;Exclusive=No;", "a/b/c"},
      {"SourceType=dbf;Exclusive=0;", "a/b/c"},
      {"SourceType=DBC;", "SourceType=DBC is not supported."},
      {"Exclusive=Yes;", "Exclusive=Yes is not supported."},
      {"Exclusive=true;", "Exclusive=true is not supported."},
      {"Exclusive=1;", "Exclusive=1 is not supported."},
      {"SourceDB=/nowhere;", "Invalid path or file name: '/nowhere' is no folder."},
  };
  for (const OpenedAs& opened : kOpened) {
    const ConnectionString text("SourceDB=" + folder_.path().string() + ";" + opened.options);
    EXPECT_EQ(OutcomeOf([&] {
                return ShownResult(OpenDbfSession(text)->Execute("Select x From made", false));
              }),
              opened.outcome)
        << opened.options;
  }
}

}  // namespace
}  // namespace vandpublic::ado
