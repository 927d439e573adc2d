// Statements of random words over Jet databases and FoxPro folders: whatever they come to, they
// end, and they touch no file but the tables that they name.
#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <random>
#include <set>

#include "platform/posix/ado/dbf/dbf_session.h"
#include "platform/posix/ado/jet/jet_session.h"
#include "support/damage.h"
#include "support/temp_folder.h"
#include "support/test_data.h"

namespace vandpublic::ado {
namespace {

constexpr std::array kStarts = {"Select ",
                                "Select * From ",
                                "Select a From Table1 Where ",
                                "Select name From memotest Where ",
                                "Update memotest Set ",
                                "Insert Into memotest ",
                                "Delete From memotest Where ",
                                "Attach ",
                                "Pragma ",
                                "Create Table ",
                                "Drop Table ",
                                "Vacuum Into ",
                                ""};

constexpr std::array kWords = {"Select",
                               "From",
                               "Where",
                               "And",
                               "Or",
                               "Not",
                               "Null",
                               "Is",
                               "In",
                               "Like",
                               "Between",
                               "Order By",
                               "Group By",
                               "Having",
                               "Union",
                               "All",
                               "Distinct",
                               "Top",
                               "As",
                               "Join",
                               "On",
                               "Values",
                               "Set",
                               "Case",
                               "When",
                               "End",
                               "Limit",
                               "Table1",
                               "memotest",
                               "setup",
                               "name",
                               "memo",
                               "birthdate",
                               "A",
                               "C",
                               "G",
                               "I",
                               "value",
                               "*",
                               "(",
                               ")",
                               ",",
                               ";",
                               ".",
                               "=",
                               "<>",
                               "<",
                               "+",
                               "-",
                               "&",
                               "/",
                               "%",
                               "||",
                               "#",
                               "'",
                               "''",
                               "\"",
                               "[",
                               "]",
                               "`",
                               "{",
                               "}",
                               "{^",
                               "'x'",
                               "\"x\"",
                               "[a b]",
                               "#1/1/80#",
                               "{d '1980-01-01'}",
                               ".T.",
                               ".F.",
                               ".NOT.",
                               "True",
                               "1",
                               "-1",
                               "1e308",
                               "99999999999999999999",
                               "0x10",
                               "?",
                               ":a",
                               "--",
                               "/*",
                               "*/",
                               "Left(",
                               "Len(",
                               "IIf(",
                               "Date()",
                               "Space(9)",
                               "load_extension(",
                               "sqlite_master",
                               "\xC3\xA9",
                               "\xFF",
                               "\x01",
                               "Escape '\\'",
                               "Collate",
                               "Exists",
                               "rowid",
                               "With",
                               "Recursive"};

std::string Noise(std::mt19937& random) {
  std::string text = kStarts[random() % kStarts.size()];
  for (std::size_t count = random() % 14; count > 0; --count) {
    text += kWords[random() % kWords.size()];
    if (random() % 4 != 0) text += ' ';
  }
  return text;
}

void RunNoise(Session& session, unsigned seed) {
  constexpr int kStatements = 3000;
  std::mt19937 random(seed);
  for (int i = 0; i < kStatements; ++i) {
    const std::string statement = Noise(random);
    ExpectOrderlyEnd(statement, [&] { session.Execute(statement, i % 2 == 0); });
  }
}

std::set<std::string> FilesIn(const TempFolder& folder) {
  std::set<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
    names.insert(entry.path().filename());
  return names;
}

TEST(StatementNoise, Over_a_jet_database_ends_and_changes_nothing) {
  const TempFolder folder({"jet/testV1997.mdb"});
  const auto session = OpenJetSession(ConnectionString(
      "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + folder.File("testV1997.mdb")));
  RunNoise(*session, 20240305);
  EXPECT_EQ(folder.Read("testV1997.mdb"), ReadSample("jet/testV1997.mdb"));
  EXPECT_EQ(FilesIn(folder), std::set<std::string>{"testV1997.mdb"});
}

TEST(StatementNoise, Over_a_foxpro_folder_ends_and_touches_no_other_file) {
  const TempFolder folder(
      {"dbf/memotest.dbf", "dbf/memotest.FPT", "dbf/setup.dbf", "dbf/setup.CDX"});
  const std::set<std::string> files = FilesIn(folder);
  const auto session = OpenDbfSession(ConnectionString("SourceDB=" + folder.path().string()));
  RunNoise(*session, 20240306);
  EXPECT_EQ(folder.Read("setup.dbf"), ReadSample("dbf/setup.dbf"));
  EXPECT_EQ(folder.Read("setup.CDX"), ReadSample("dbf/setup.CDX"));
  EXPECT_EQ(FilesIn(folder), files);
}

TEST(StatementNoise, Long_statements_end) {
  const TempFolder folder({"jet/testV1997.mdb"});
  const auto session = OpenJetSession(ConnectionString(
      "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + folder.File("testV1997.mdb")));
  constexpr std::size_t kMany = 20000;
  const auto repeated = [](const std::string& piece) {
    std::string text;
    for (std::size_t i = 0; i < kMany; ++i)
      text += piece;
    return text;
  };
  for (const std::string& text :
       {"Select " + std::string(kMany, '(') + "1" + std::string(kMany, ')') + " From Table1",
        "Select " + std::string(kMany, '(') + " From Table1",
        "Select " + repeated("1+") + "1 From Table1",
        "Select A From Table1 Where C=0" + repeated(" Or C=1"),
        "Select A From Table1 Where A='" + std::string(kMany, 'x') + "'",
        "Select A From Table1 Where A Like '" + repeated("%a") + "'",
        "Select A From Table1 Where C In (1" + repeated(",1") + ")",
        "Select " + repeated("Len(") + "'x' From Table1", "Select A From " + repeated("Table1,"),
        "Select A From Table1 Where " + repeated("Not "), std::string(kMany, '\''),
        std::string(kMany, '['), std::string(kMany, '#')}) {
    ExpectOrderlyEnd(text.substr(0, 40), [&] { session->Execute(text, false); });
  }
}

}  // namespace
}  // namespace vandpublic::ado
