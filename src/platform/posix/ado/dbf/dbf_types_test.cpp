// Every type of field as it is read and written, in its own bytes, in tables that are made here.
#include <gtest/gtest.h>

#include <bit>
#include <cmath>

#include "support/expected_rows.h"
#include "support/foxpro_folder.h"
#include "support/made_dbf.h"

namespace vandpublic::ado {
namespace {

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

}  // namespace
}  // namespace vandpublic::ado
