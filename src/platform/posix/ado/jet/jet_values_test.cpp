// Every type of column in both formats, and long values in all of their forms, in databases that
// are made here.
#include <gtest/gtest.h>

#include "support/made_jet_format.h"

namespace vandpublic::ado {
namespace {

constexpr std::uint32_t kInline = 0x80000000;
constexpr std::uint32_t kSinglePiece = 0x40000000;

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
