// Damaged tables end in an error, or in rows: never in a crash, an endless loop or a flood of
// memory. Changes of damaged tables end so too.
#include <gtest/gtest.h>

#include "platform/posix/ado/dbf/dbf_folder.h"
#include "platform/posix/ado/sql/sql_engine.h"
#include "platform/posix/code_pages.h"
#include "platform/posix/posix_clock.h"
#include "runtime/errors.h"
#include "runtime/utf8.h"
#include "support/damage.h"
#include "support/expected_rows.h"
#include "support/temp_folder.h"
#include "support/test_data.h"

namespace vandpublic::ado {
namespace {

SqlEngine EngineFor(const TempFolder& folder) {
  const DbfSettings settings{FindCodePage(1252), std::make_shared<PosixClock>()};
  return {std::make_unique<DbfFolder>(folder.path().string(), settings), Dialect::FoxPro};
}

struct Sample {
  const char* table;
  const char* memo;    // null: none
  const char* change;  // null: none
};

constexpr Sample kSamples[] = {
    {"calls", "calls.FPT", "Update calls Set notes='changed'"},
    {"cp1251", nullptr, "Update cp1251 Set name='x'"},
    {"dbase_31", nullptr, nullptr},
    {"dbase_32", nullptr, "Update dbase_32 Set name='changed'"},
    {"dbase_83", "dbase_83.dbt", "Update dbase_83 Set price=1"},
    {"dbase_8b", "dbase_8b.dbt", "Delete From dbase_8b"},
    {"memotest", "memotest.FPT", "Insert Into memotest (name, memo) Values ('x', 'y')"},
};

class DbfDamage : public testing::TestWithParam<Sample> {};

TEST_P(DbfDamage, Ends_in_order) {
  constexpr int kCopies = 300;
  const Sample& sample = GetParam();
  const std::string table = std::string(sample.table) + ".dbf";
  const std::string content = ReadSample("dbf/" + table);
  const std::string memo =
      sample.memo == nullptr ? "" : ReadSample(std::string("dbf/") + sample.memo);
  const TempFolder folder;
  std::mt19937 random(20240305);
  for (int i = 0; i < kCopies; ++i) {
    // The table, its memo file, or both.
    folder.Write(table, i % 3 == 0 ? content : Damaged(content, random));
    if (sample.memo != nullptr)
      folder.Write(sample.memo, i % 3 == 1 ? memo : Damaged(memo, random));
    SqlEngine engine = EngineFor(folder);
    const std::string what = "copy " + std::to_string(i);
    ExpectOrderlyEnd(what,
                     [&] { engine.Execute("Select * From " + std::string(sample.table), true); });
    if (sample.change == nullptr) continue;
    ExpectOrderlyEnd(what, [&] { engine.Execute(sample.change, false); });
  }
}

TEST_P(DbfDamage, Of_a_cut_file_is_found) {
  const std::string table = std::string(GetParam().table) + ".dbf";
  const std::string content = ReadSample("dbf/" + table);
  const TempFolder folder;
  for (std::size_t size = 0; size + 2 < content.size(); size += 1 + content.size() / 100) {
    folder.Write(table, content.substr(0, size));
    SqlEngine engine = EngineFor(folder);
    try {
      engine.Execute("Select * From " + std::string(GetParam().table), false);
      ADD_FAILURE() << "size " << size;
    } catch (const AutomationError& error) {
      EXPECT_EQ(ToUtf8(error.description()).find("Not a table."), 0u) << error.what();
    }
  }
}

INSTANTIATE_TEST_SUITE_P(All, DbfDamage, testing::ValuesIn(kSamples),
                         [](const auto& sample) { return sample.param.table; });

TEST(DbfDamageOf, A_memo_file_that_is_missing_shows_where_a_memo_is_read) {
  const TempFolder folder({"dbf/memotest.dbf"});
  SqlEngine engine = EngineFor(folder);
  EXPECT_EQ(engine.Execute("Select name From memotest", false).rows.size(), 2u);
  try {
    engine.Execute("Select memo From memotest", false);
    FAIL() << "no error";
  } catch (const AutomationError& error) {
    EXPECT_NE(ToUtf8(error.description()).find("is missing or is invalid."), std::string::npos);
  }
}

}  // namespace
}  // namespace vandpublic::ado
