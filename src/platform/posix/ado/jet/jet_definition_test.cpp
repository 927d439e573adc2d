// Catalogs, definitions, maps and pages of rows: which tables there are, and each part of a file
// that can be wrong, in databases that are made here.
#include "platform/posix/ado/jet/jet_definition.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "support/made_jet_format.h"

namespace vandpublic::ado {
namespace {

class MadeJetFile : public MadeJetFormat {};

struct CatalogEntry {
  const char* name;
  int kind;
  std::uint32_t flags;
  const char* outcome;
};

TEST_P(MadeJetFile, Has_only_tables_of_its_own) {
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

TEST_P(MadeJetFile, Tells_of_a_catalog_without_its_columns) {
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
TEST_P(MadeJetFile, Has_tables_whose_map_is_on_pages_of_its_own) {
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

TEST_P(MadeJetFile, Has_definitions_that_go_on_on_another_page) {
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

TEST_P(MadeJetFile, Is_no_database_when_it_is_no_file) {
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

INSTANTIATE_TEST_SUITE_P(Both, MadeJetFile, testing::Bool(), [](const auto& format) {
  return std::string(format.param ? "jet_4" : "jet_3");
});

}  // namespace
}  // namespace vandpublic::ado
