// Databases that are made here: every type of column in both formats, long values in all of their
// forms, and each part of a file that can be wrong.
#include <gtest/gtest.h>

#include <filesystem>

#include "platform/posix/ado/ado_errors.h"
#include "platform/posix/ado/jet/jet_database.h"
#include "platform/posix/ado/sql/sql_engine.h"
#include "platform/posix/code_pages.h"
#include "runtime/errors.h"
#include "runtime/utf8.h"
#include "support/expected_rows.h"
#include "support/made_jet.h"
#include "support/temp_folder.h"

namespace vandpublic::ado {
namespace {

// Types of columns as the format numbers them.
enum Kind {
  kBoolean = 1,
  kByte,
  kInteger,
  kLong,
  kCurrency,
  kSingle,
  kDouble,
  kDate,
  kBinary,
  kText,
  kOle,
  kMemo,
  kGuid = 15,
  kNumeric
};

constexpr std::uint32_t kInline = 0x80000000;
constexpr std::uint32_t kSinglePiece = 0x40000000;

// The rows of a statement over the database, or the error's description.
std::string OutcomeOf(const std::string& content, const std::string& statement) {
  const TempFolder folder;
  folder.Write("made.mdb", content);
  try {
    SqlEngine engine(
        std::make_unique<JetDatabase>(folder.File("made.mdb"), u"", FindCodePage(1252)),
        Dialect::Jet);
    return ShownResult(engine.Execute(statement, false));
  } catch (const AutomationError& error) {
    EXPECT_EQ(ToUtf8(error.source()), kJetSource);
    return ToUtf8(error.description());
  }
}

std::string Damaged(const std::string& what) {
  return "The database is damaged: " + what + " is not as it must be.";
}

std::string DecimalBytes(bool negative, std::uint64_t high, std::uint64_t low) {
  return std::string(1, negative ? '\x80' : '\0') + LittleEndianBytes(high >> 32, 4) +
         LittleEndianBytes(high, 4) + LittleEndianBytes(low >> 32, 4) + LittleEndianBytes(low, 4);
}

const std::string kGuidBytes("\x33\x22\x11\x00\x55\x44\x77\x66\x88\x99\xAA\xBB\xCC\xDD\xEE\xFF",
                             16);

MadeJetTable AllTypes(const MadeJet& made) {
  const std::string inline_memo = MadeJet::MemoCell(made.Text("memo").size(), kInline, 0, 0);
  return {"Made",
          {{"b", kBoolean, 1},
           {"y", kByte, 1},
           {"i", kInteger, 2},
           {"l", kLong, 4},
           {"c", kCurrency, 8},
           {"s", kSingle, 4},
           {"d", kDouble, 8},
           {"t", kDate, 8},
           {"g", kGuid, 16},
           {"n", kNumeric, 17, true, 2},
           {"x", kText, made.is_jet4() ? 40 : 20, false},
           {"v", kBinary, 20, false},
           {"m", kMemo, 0, false},
           {"o", kOle, 0, false}},
          {{"1", "\xC8", LittleEndianBytes(0xFFFE, 2), LittleEndianBytes(70000, 4),
            LittleEndianBytes(static_cast<std::uint64_t>(-12345), 8), SingleBytes(1.5f),
            DoubleBytes(-0.25), DoubleBytes(45356.25), kGuidBytes, DecimalBytes(true, 0, 12345),
            made.Text("text"), std::string("\x01\x00\x02", 3), inline_memo + made.Text("memo"),
            MadeJet::MemoCell(2, kInline, 0, 0) + "ab"},
           std::vector<MadeJetCell>(14),
           {std::nullopt, "\x7F", LittleEndianBytes(1, 2), LittleEndianBytes(0, 4),
            LittleEndianBytes(0, 8), SingleBytes(0), DoubleBytes(1e300), DoubleBytes(0),
            std::string(16, '\0'), DecimalBytes(false, 0, 0), "", "", "",
            MadeJet::MemoCell(0, kInline, 0, 0)}}};
}

class MadeJetFormat : public testing::TestWithParam<bool> {
 protected:
  MadeJet made_{GetParam()};

  // A table "Made" of one column "x".
  void AddColumn(MadeJetColumn column, MadeJetCell cell) {
    column.name = "x";
    made_.AddTable({"Made", {std::move(column)}, {{std::move(cell)}}});
  }
  std::string Outcome(const std::string& statement = "Select * From Made") {
    return OutcomeOf(made_.Content(), statement);
  }
};

TEST_P(MadeJetFormat, Has_values_and_nulls_of_every_type) {
  made_.AddTable(AllTypes(made_));
  EXPECT_EQ(Outcome("Select b, y, i, l, c, s, d, t From Made"),
            "True|200|-2|70000|-1.2345|1.5|-0.25|2024-03-05 06:00:00/"
            "False|\\N|\\N|\\N|\\N|\\N|\\N|\\N/"
            "False|127|1|0|0|0|" +
                ShownValue(1e300, DataType::Double) + "|1899-12-30 00:00:00");
  EXPECT_EQ(Outcome("Select g, n, x, m From Made"),
            "{00112233-4455-6677-8899-AABBCCDDEEFF}|-123.45|text|memo/\\N|\\N|\\N|\\N/"
            "{00000000-0000-0000-0000-000000000000}|0.00||");
  EXPECT_EQ(Outcome("Select Len(g) From Made Where g='{00112233-4455-6677-8899-aabbccddeeff}'"),
            "38");
}

TEST_P(MadeJetFormat, Has_the_bytes_of_binary_columns) {
  made_.AddTable(AllTypes(made_));
  const TempFolder folder;
  folder.Write("made.mdb", made_.Content());
  SqlEngine engine(std::make_unique<JetDatabase>(folder.File("made.mdb"), u"", FindCodePage(1252)),
                   Dialect::Jet);
  const Result result = engine.Execute("Select v, o From Made", false);
  EXPECT_EQ(result.columns.at(0).type, DataType::VarBinary);
  EXPECT_EQ(result.columns.at(1).type, DataType::LongVarBinary);
  ASSERT_EQ(result.rows.size(), 3u);
  EXPECT_EQ(result.rows[0].values[0], Variant(ByteArray({1, 0, 2})));
  EXPECT_EQ(result.rows[0].values[1], Variant(ByteArray({'a', 'b'})));
  EXPECT_TRUE(result.rows[1].values[0].IsNull());
  EXPECT_TRUE(result.rows[1].values[1].IsNull());
  EXPECT_EQ(result.rows[2].values[0], Variant(ByteArray(std::vector<Byte>{})));
  EXPECT_EQ(result.rows[2].values[1], Variant(ByteArray(std::vector<Byte>{})));
}

TEST_P(MadeJetFormat, Declares_its_columns) {
  made_.AddTable(AllTypes(made_));
  const TempFolder folder;
  folder.Write("made.mdb", made_.Content());
  JetDatabase database(folder.File("made.mdb"), u"", FindCodePage(1252));
  const auto table = database.Open("made");
  ASSERT_NE(table, nullptr);
  const std::pair<DataType, Long> expected[] = {{DataType::Boolean, 2},
                                                {DataType::UnsignedTinyInt, 1},
                                                {DataType::SmallInt, 2},
                                                {DataType::Integer, 4},
                                                {DataType::Currency, 8},
                                                {DataType::Single, 4},
                                                {DataType::Double, 8},
                                                {DataType::Date, 8},
                                                {DataType::Guid, 16},
                                                {DataType::Numeric, 19},
                                                {DataType::VarWChar, 20},
                                                {DataType::VarBinary, 20},
                                                {DataType::LongVarWChar, INT32_MAX / 2},
                                                {DataType::LongVarBinary, INT32_MAX}};
  ASSERT_EQ(table->Columns().size(), std::size(expected));
  for (std::size_t i = 0; i < std::size(expected); ++i) {
    const TableColumn& column = table->Columns()[i];
    EXPECT_EQ(std::pair(column.type, column.defined_size), expected[i]) << column.name;
    EXPECT_EQ(column.is_long, i >= 12) << column.name;
    EXPECT_EQ(column.nullable, i != 0) << column.name;
  }
}

TEST_P(MadeJetFormat, Is_never_written) {
  made_.AddTable(AllTypes(made_));
  const TempFolder folder;
  folder.Write("made.mdb", made_.Content());
  JetDatabase database(folder.File("made.mdb"), u"", FindCodePage(1252));
  const auto table = database.Open("Made");
  ASSERT_NE(table, nullptr);
  EXPECT_FALSE(table->IsWritable());
  EXPECT_THROW(table->Update(1, {}, {}), AutomationError);
  EXPECT_THROW(table->Delete(1, {}), AutomationError);
  EXPECT_THROW(table->Insert({}), AutomationError);
  EXPECT_EQ(folder.Read("made.mdb"), made_.Content());
}

TEST_P(MadeJetFormat, Finds_the_rows_of_a_sorted_result_again) {
  made_.AddTable({"Made",
                  {{"c", kCurrency, 8}},
                  {{LittleEndianBytes(30000, 8)},
                   {LittleEndianBytes(10000, 8)},
                   {std::nullopt},
                   {LittleEndianBytes(20000, 8)}}});
  EXPECT_EQ(Outcome("Select c From Made Order By c"), "\\N/1/2/3");
}

struct Number {
  const char* name;
  int scale;
  bool negative;
  std::uint64_t high;
  std::uint64_t low;
  std::string shown;
};

TEST_P(MadeJetFormat, Has_decimals_of_every_scale) {
  const Number numbers[] = {
      {"whole", 0, false, 0, 42, "42"},
      {"fraction", 3, true, 0, 1, "-0.001"},
      {"as many digits as places", 2, false, 0, 99, "0.99"},
      {"28 digits", 0, false, 542101086, 4477988020393345023, "9999999999999999999999999999"},
      {"28 places", 28, true, 542101086, 4477988020393345023, "-0.9999999999999999999999999999"},
      {"29 digits", 0, false, 542101086, 4477988020393345024, Damaged("a decimal number")},
      {"39 digits", 0, false, UINT64_MAX, UINT64_MAX, Damaged("a decimal number")},
      {"29 places", 29, false, 0, 1, Damaged("a decimal number")},
  };
  for (const Number& number : numbers) {
    made_ = MadeJet(GetParam());
    AddColumn({"", kNumeric, 17, true, number.scale},
              DecimalBytes(number.negative, number.high, number.low));
    EXPECT_EQ(Outcome(), number.shown) << number.name;
  }
}

// The declared size, or the place of the bytes, has no room for what the type is.
TEST_P(MadeJetFormat, Tells_of_values_that_are_too_short) {
  const std::pair<int, int> types[] = {{kByte, 0},     {kInteger, 1}, {kLong, 3},
                                       {kCurrency, 7}, {kSingle, 3},  {kDouble, 7},
                                       {kDate, 4},     {kGuid, 15},   {kNumeric, 16}};
  for (const auto& [type, size] : types) {
    made_ = MadeJet(GetParam());
    AddColumn({"", type, size}, std::string(16, '\1'));
    EXPECT_EQ(Outcome(), Damaged("a value of a row")) << type;
  }
  made_ = MadeJet(GetParam());
  AddColumn({"", kMemo, 0, false}, std::string(11, '\0'));
  EXPECT_EQ(Outcome(), Damaged("a value of a row"));
}

TEST_P(MadeJetFormat, Tells_of_a_day_outside_the_calendar) {
  AddColumn({"", kDate, 8}, DoubleBytes(1e10));
  EXPECT_EQ(Outcome(), Damaged("a date"));
}

// Long values in pieces. Pages 5 and on: the pieces, the table.
class MadeMemo : public MadeJetFormat {
 protected:
  std::string Shown(std::size_t length, std::uint32_t flags, std::uint32_t page,
                    std::uint32_t row) {
    AddColumn({"", kOle, 0, false}, MadeJet::MemoCell(length, flags, page, row));
    const TempFolder folder;
    folder.Write("made.mdb", made_.Content());
    try {
      SqlEngine engine(
          std::make_unique<JetDatabase>(folder.File("made.mdb"), u"", FindCodePage(1252)),
          Dialect::Jet);
      const Result result = engine.Execute("Select x From Made", false);
      const auto bytes = result.rows.at(0).values.at(0).AsByteArray()->Elements();
      return std::string(bytes.begin(), bytes.end());
    } catch (const AutomationError& error) {
      return ToUtf8(error.description());
    }
  }
};

TEST_P(MadeMemo, In_a_single_piece_is_read) {
  const std::uint32_t page = made_.AddRowPage({"other", "hello"});
  EXPECT_EQ(Shown(5, kSinglePiece, page, 1), "hello");
}

TEST_P(MadeMemo, Is_cut_at_its_length) {
  const std::uint32_t page = made_.AddRowPage({"hello"});
  EXPECT_EQ(Shown(4, kSinglePiece, page, 0), "hell");
}

TEST_P(MadeMemo, In_several_pieces_is_put_together) {
  const std::uint32_t second = made_.AddRowPage({LittleEndianBytes(0, 4) + "world"});
  const std::uint32_t first =
      made_.AddRowPage({"other", LittleEndianBytes(second << 8, 4) + "hello "});
  EXPECT_EQ(Shown(11, 0, first, 1), "hello world");
}

TEST_P(MadeMemo, That_is_shorter_than_its_length_is_told) {
  const std::uint32_t page = made_.AddRowPage({"hell"});
  EXPECT_EQ(Shown(5, kSinglePiece, page, 0), Damaged("the length of a memo"));
}

TEST_P(MadeMemo, That_is_longer_than_the_file_is_told) {
  const std::uint32_t page = made_.AddRowPage({"hello"});
  EXPECT_EQ(Shown(0x3FFFFFFF, kSinglePiece, page, 0), Damaged("the length of a memo"));
}

TEST_P(MadeMemo, Inside_its_cell_that_is_too_short_is_told) {
  EXPECT_EQ(Shown(5, kInline, 0, 0), Damaged("the length of a memo"));
}

TEST_P(MadeMemo, Without_its_row_is_told) {
  const std::uint32_t page = made_.AddRowPage({"hello"});
  EXPECT_EQ(Shown(5, kSinglePiece, page, 1), Damaged("the pages of a memo"));
}

TEST_P(MadeMemo, Without_room_for_the_next_place_is_told) {
  const std::uint32_t page = made_.AddRowPage({"1234"});
  EXPECT_EQ(Shown(5, 0, page, 0), Damaged("the pages of a memo"));
}

TEST_P(MadeMemo, Outside_the_file_is_told) {
  EXPECT_EQ(Shown(5, 0, 1000, 0), Damaged("the number of a page"));
}

INSTANTIATE_TEST_SUITE_P(Both, MadeMemo, testing::Bool(), [](const auto& format) {
  return std::string(format.param ? "jet_4" : "jet_3");
});

TEST_P(MadeJetFormat, Has_rows_of_many_texts) {
  const std::string a(200, 'a');
  const std::string b(100, 'b');
  made_.AddTable({"Made",
                  {{"i", kInteger, 2},
                   {"a", kText, 510, false},
                   {"b", kText, 510, false},
                   {"c", kText, 510, false}},
                  {{LittleEndianBytes(1, 2), made_.Text(a), made_.Text(b), made_.Text("c")},
                   {LittleEndianBytes(2, 2), made_.Text(a + b), std::nullopt, made_.Text(a)},
                   // Written before its last two columns were added.
                   {LittleEndianBytes(3, 2), made_.Text("short")}}});
  EXPECT_EQ(Outcome("Select i, a, b, c From Made"),
            "1|" + a + "|" + b + "|c/2|" + a + b + "|\\N|" + a + "/3|short|\\N|\\N");
}

struct CatalogEntry {
  const char* name;
  int kind;
  std::uint32_t flags;
  const char* outcome;
};

TEST_P(MadeJetFormat, Has_only_tables_of_its_own) {
  constexpr const char* kNoTable =
      "The Microsoft Jet database engine cannot find the input table or query 'Made'.  Make sure "
      "it exists and that its name is spelled correctly.";
  constexpr CatalogEntry kEntries[] = {
      {"Made", 1, 0, "7"},
      {"MADE", 1, 8, "7"},
      {"Made", 4, 0, "Linked tables are not supported: 'Made'."},
      {"Made", 6, 0, "Linked tables are not supported: 'Made'."},
      {"Made", 5, 0, "Saved queries are not supported: 'Made'."},
      {"Made", 3, 0, kNoTable},
      {"Made", 1, 2, kNoTable},
      {"Made", 1, 0x80000000, kNoTable},
      {"", 1, 0, kNoTable},
      {"Other", 1, 0, kNoTable},
  };
  for (const CatalogEntry& entry : kEntries) {
    made_ = MadeJet(GetParam());
    made_.AddTable(
        {entry.name, {{"x", kLong, 4}}, {{LittleEndianBytes(7, 4)}}, entry.kind, entry.flags});
    EXPECT_EQ(Outcome(), entry.outcome) << entry.name << " " << entry.kind << " " << entry.flags;
  }
}

TEST_P(MadeJetFormat, Tells_of_a_catalog_without_its_columns) {
  made_.SetCatalogColumns({{"Id", kLong, 4}, {"Name", kText, 128, false}, {"Type", kInteger, 2}});
  AddColumn({"", kLong, 4}, LittleEndianBytes(7, 4));
  EXPECT_EQ(Outcome(), Damaged("the catalog"));
  // The number of a kind is of another type: then the entry is of no kind.
  made_.SetCatalogColumns(
      {{"Id", kLong, 4}, {"Name", kText, 128, false}, {"Type", kByte, 1}, {"Flags", kLong, 4}});
  EXPECT_NE(Outcome().find("cannot find"), std::string::npos);
}

// Bytes that are put into the file at a place in one of its pages, and what comes of it.
struct Damage {
  const char* name;
  std::size_t jet4_place;
  std::size_t jet3_place;
  std::string bytes;
  std::string outcome;
};

class MadeJetDamage : public MadeJetFormat {
 protected:
  // The table's definition, its rows, their map: pages 5, 6 and 7.
  void ExpectDamages(std::uint32_t page, std::span<const Damage> damages) {
    made_.AddTable({"Made",
                    {{"x", kLong, 4}, {"y", kText, 100, false}},
                    {{LittleEndianBytes(7, 4), made_.Text("seven")}}});
    ASSERT_EQ(Outcome(), "7|seven");
    for (const Damage& damage : damages) {
      std::string content = made_.Content();
      const std::size_t place = GetParam() ? damage.jet4_place : damage.jet3_place;
      content.replace(made_.PageStart(page) + place, damage.bytes.size(), damage.bytes);
      EXPECT_EQ(OutcomeOf(content, "Select * From Made"), damage.outcome) << damage.name;
    }
  }
};

TEST_P(MadeJetDamage, Of_a_definition_is_told) {
  const Damage damages[] = {
      {"another kind of page", 0, 0, "\x01", Damaged("a page of a table definition")},
      {"more columns than a table may have", 45, 25, "\xFF\xFF", Damaged("a table definition")},
      {"more indexes than a table may have", 51, 31, "\xFF\xFF", Damaged("a table definition")},
      {"more indexes than there are bytes", 51, 31, "\xE7\x03", Damaged("a table definition")},
      {"an unknown type", 63, 43, "\x0D", Damaged("the type of a column")},
      {"no type", 63, 43, std::string(1, '\0'), Damaged("the type of a column")},
      {"a type past all", 63, 43, "\x11", Damaged("the type of a column")},
      {"a column past all", 68, 44, "\xFF\xFF", Damaged("the number of a column")},
      {"a column without a name", 113, 79, std::string(2, '\0'), Damaged("the name of a column")},
      {"a map on no page", 56, 36, "\xFF\xFF\xFF", Damaged("the number of a page")},
      {"a map that is no row", 55, 35, "\x05", Damaged("the map of a table's pages")},
      {"a value behind the row", 84, 57, "\xFF\x00", Damaged("a value of a row")},
      {"a value longer than the row", 86, 59, "\xFF\x00", Damaged("a value of a row")},
  };
  ExpectDamages(5, damages);
}

TEST_P(MadeJetDamage, Of_a_page_of_rows_is_told) {
  const std::size_t jet4_end = 4096;
  const std::size_t jet3_end = 2048;
  const Damage damages[] = {
      {"another kind of page", 0, 0, "\x04", ""},
      {"another table", 4, 4, "\x06", Damaged("the owner of a page")},
      {"too many rows", 12, 8, "\xFF\xFF", Damaged("the rows of a page")},
      {"a row behind the page", 14, 10, "\xFF\x1F", Damaged("the place of a row")},
      {"a deleted row", 15, 11, GetParam() ? "\x4F" : "\x47", ""},
      {"an empty row", 14, 10, GetParam() ? std::string("\x00\x10", 2) : std::string("\x00\x08", 2),
       ""},
      {"a row of one byte", 14, 10, GetParam() ? "\xFF\x0F" : "\xFF\x07", Damaged("a row")},
      {"a row of three bytes", 14, 10, GetParam() ? "\xFD\x0F" : "\xFD\x07", Damaged("a row")},
      {"a row that counts more values", jet4_end - 3, jet3_end - 2, "\x70", Damaged("a row")},
      {"a value that ends before it begins", jet4_end - 5, jet3_end - 3, "\x7F",
       Damaged("a value of a row")},
  };
  ExpectDamages(6, damages);
}

TEST_P(MadeJetDamage, Of_a_map_of_pages_is_told) {
  const std::size_t map = (GetParam() ? 4096u : 2048u) - 69;
  const std::string short_map = LittleEndianBytes((GetParam() ? 4096u : 2048u) - 4, 2);
  const std::string no_map = LittleEndianBytes(GetParam() ? 4096u : 2048u, 2);
  const Damage damages[] = {
      {"an unknown kind of map", map, map, "\x02", Damaged("the map of a table's pages")},
      {"a map that is too short", 14, 10, short_map, Damaged("the map of a table's pages")},
      {"a map of no bytes", 14, 10, no_map, Damaged("the map of a table's pages")},
      {"bits of pages behind the file", map + 6, map + 6, std::string(63, '\xFF'), "7|seven"},
      {"a map of pages behind the file", map + 1, map + 1, "\xFF\xFF\xFF\xFF", ""},
  };
  ExpectDamages(7, damages);
}

INSTANTIATE_TEST_SUITE_P(Both, MadeJetDamage, testing::Bool(), [](const auto& format) {
  return std::string(format.param ? "jet_4" : "jet_3");
});

// A map of a large table: places of pages that are all bits.
TEST_P(MadeJetFormat, Has_tables_whose_map_is_on_pages_of_its_own) {
  AddColumn({"", kLong, 4}, LittleEndianBytes(7, 4));
  std::string bits(made_.page_size(), '\0');
  bits[0] = 5;
  bits[4] = 1 << 6;  // page 6
  const std::uint32_t bit_page = made_.AddPage(bits);
  const std::string map = "\1" + LittleEndianBytes(bit_page, 4) + LittleEndianBytes(0, 4) +
                          LittleEndianBytes(bit_page, 4) + LittleEndianBytes(1000, 4);
  const std::uint32_t map_page = made_.AddRowPage({map});
  std::string content = made_.Content();
  content.replace(made_.PageStart(5) + (GetParam() ? 55 : 35), 4,
                  LittleEndianBytes(map_page << 8, 4));
  EXPECT_EQ(OutcomeOf(content, "Select * From Made"), "7");
}

TEST_P(MadeJetFormat, Has_definitions_that_go_on_on_another_page) {
  MadeJetTable table{"Made", {}, {{}}};
  for (int i = 0; i < 60; ++i) {
    table.columns.push_back({"a column with quite a long name " + std::to_string(i), kByte, 1});
    table.rows[0].push_back(std::string(1, static_cast<char>(i)));
  }
  const std::uint32_t page = made_.AddTable(table);
  const std::string last = "Select [a column with quite a long name 59] From Made";
  EXPECT_EQ(Outcome(last), "59");
  std::string content = made_.Content();
  content[made_.PageStart(page + 3)] = 1;
  EXPECT_EQ(OutcomeOf(content, last), Damaged("a page of a table definition"));
  content = made_.Content();
  content.replace(made_.PageStart(page) + 4, 4, std::string(4, '\0'));
  EXPECT_EQ(OutcomeOf(content, last), Damaged("a table definition"));
}

TEST_P(MadeJetFormat, Is_no_database_when_it_is_no_file) {
  const TempFolder folder;
  std::filesystem::create_directory(folder.path() / "folder.mdb");
  for (const auto& [name, error] : {std::pair{"folder.mdb", "Unrecognized database format"},
                                    std::pair{"missing.mdb", "Could not open file"}}) {
    try {
      const JetDatabase database(folder.File(name), u"", FindCodePage(1252));
      ADD_FAILURE() << name;
    } catch (const AutomationError& raised) {
      EXPECT_EQ(ToUtf8(raised.description()).find(error), 0u) << raised.what();
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Both, MadeJetFormat, testing::Bool(), [](const auto& format) {
  return std::string(format.param ? "jet_4" : "jet_3");
});

struct StoredText {
  const char* name;
  std::string bytes;
  const char* shown;
};

// From FF FE on every character is a byte; a zero byte changes to two bytes each and back.
TEST(Jet4Text, Is_read_compressed_and_not) {
  const StoredText texts[] = {
      {"plain", Utf16Bytes(u"caf\u00e9 \u0416"), "caf\xC3\xA9 \xD0\x96"},
      {"compressed",
       "\xFF\xFE"
       "caf\xE9",
       "caf\xC3\xA9"},
      {"both",
       "\xFF\xFE"
       "ab" +
           std::string("\0\x16\x04\0", 4) + "cd",
       "ab\xD0\x96"
       "cd"},
      {"half a character", Utf16Bytes(u"ab") + "c", "ab"},
      {"nothing", "", ""},
      {"nothing compressed", "\xFF\xFE", ""},
  };
  for (const StoredText& text : texts) {
    MadeJet made(true);
    made.AddTable({"Made", {{"x", kText, 100, false}}, {{text.bytes}}});
    EXPECT_EQ(OutcomeOf(made.Content(), "Select x From Made"), text.shown) << text.name;
  }
}

TEST(Jet3Text, Is_of_the_code_page_of_the_file) {
  for (const auto& [code_page, shown] :
       {std::pair{1251, "\xD0\x96"}, std::pair{1252, "\xC3\x86"},
        std::pair{9999, "\xC3\x86"}}) {  // a page that is none: the component's
    MadeJet made(false);
    made.SetCodePage(code_page);
    made.AddTable({"Made", {{"x", kText, 100, false}}, {{"\xC6"}}});
    EXPECT_EQ(OutcomeOf(made.Content(), "Select x From Made"), shown) << code_page;
  }
}

}  // namespace
}  // namespace vandpublic::ado
