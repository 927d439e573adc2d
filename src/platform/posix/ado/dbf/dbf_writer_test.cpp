// Changes of tables, on copies of the samples: what is read back, and which bytes stay as they
// were.
#include "platform/posix/ado/dbf/dbf_writer.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <thread>

#include "platform/posix/ado/dbf/dbf_errors.h"
#include "platform/posix/ado/dbf/dbf_folder.h"
#include "platform/posix/ado/sql/sql_engine.h"
#include "platform/posix/code_pages.h"
#include "runtime/errors.h"
#include "runtime/utf8.h"
#include "support/expected_rows.h"
#include "support/temp_folder.h"
#include "support/test_data.h"

namespace vandpublic::ado {
namespace {

class FixedClock final : public Clock {
 public:
  LocalTime Now() override { return {2024, 3, 5, 14, 7, 9}; }
};

std::unique_ptr<SqlEngine> EngineFor(const TempFolder& folder) {
  const DbfSettings settings{FindCodePage(1252), std::make_shared<FixedClock>()};
  return std::make_unique<SqlEngine>(std::make_unique<DbfFolder>(folder.path().string(), settings),
                                     Dialect::FoxPro);
}

// Changes one value of the only row of a statement, as a recordset does.
void Change(SqlEngine& engine, const std::string& statement, std::size_t column,
            const Variant& value) {
  Result result = engine.Execute(statement, true);
  ASSERT_EQ(result.rows.size(), 1u);
  ASSERT_NE(result.writer, nullptr);
  Row after = result.rows[0];
  after.values[column] = value;
  ColumnFlags changed(after.values.size());
  changed[column] = true;
  result.writer->Update(result.rows[0], after, changed);
}

std::string First(SqlEngine& engine, const std::string& statement) {
  const Result result = engine.Execute(statement, false);
  if (result.rows.empty()) return "no row";
  return ShownValue(result.rows[0].values[0], result.columns[0].type);
}

// Fails the test unless the action raises the number with that piece of text.
void ExpectError(SourceError number, const std::string& text, const std::function<void()>& action) {
  try {
    action();
    ADD_FAILURE() << "no error";
  } catch (const AutomationError& error) {
    EXPECT_EQ(error.number(), static_cast<Long>(number)) << error.what();
    EXPECT_NE(ToUtf8(error.description()).find(text), std::string::npos) << error.what();
  }
}

// The positions at which two files of one length differ.
std::vector<std::size_t> Differences(const std::string& a, const std::string& b) {
  EXPECT_EQ(a.size(), b.size());
  std::vector<std::size_t> positions;
  for (std::size_t i = 0; i < std::min(a.size(), b.size()); ++i) {
    if (a[i] != b[i]) positions.push_back(i);
  }
  return positions;
}

const std::vector<std::string> kMemoTest = {"dbf/memotest.dbf", "dbf/memotest.FPT"};
const std::vector<std::string> kCalls = {"dbf/calls.dbf", "dbf/calls.FPT", "dbf/calls.CDX"};

TEST(DbfUpdate, Changes_the_cell_and_the_date_and_no_other_byte) {
  const TempFolder folder(kMemoTest);
  const std::string before = folder.Read("memotest.dbf");
  const auto engine = EngineFor(folder);
  Change(*engine, "Select name From memotest Where name='Bob'", 0, u"Rob");
  EXPECT_EQ(First(*engine, "Select name From memotest Where birthdate={^1980-11-12}"), "Rob");

  const std::string after = folder.Read("memotest.dbf");
  const auto positions = Differences(before, after);
  const std::size_t cell = before.find("Bob");
  EXPECT_EQ(positions, (std::vector<std::size_t>{1, 2, 3, cell}));
  EXPECT_EQ(after.substr(1, 3), "\x18\x03\x05");
}

TEST(DbfUpdate, Appends_a_memo_behind_all_blocks) {
  const TempFolder folder(kMemoTest);
  const std::string before = folder.Read("memotest.FPT");
  const auto engine = EngineFor(folder);
  const std::string text(5000, 'm');
  Change(*engine, "Select name, memo From memotest Where name='Bob'", 1, Variant(text.c_str()));
  EXPECT_EQ(First(*engine, "Select memo From memotest Where name='Bob'"), text);
  EXPECT_EQ(First(*engine, "Select memo From memotest Where name='Alice'"), "Alice memo");

  const std::string after = folder.Read("memotest.FPT");
  ASSERT_GT(after.size(), before.size());
  // Nothing but the number of the next free block has changed in the old part.
  for (const std::size_t position : Differences(before, after.substr(0, before.size()))) {
    EXPECT_LT(position, 4u);
  }
}

TEST(DbfUpdate, Empties_a_memo) {
  const TempFolder folder(kMemoTest);
  const auto engine = EngineFor(folder);
  Change(*engine, "Select memo From memotest Where name='Bob'", 0, u"");
  EXPECT_EQ(First(*engine, "Select memo From memotest Where name='Bob'"), "");
}

TEST(DbfUpdate, Stores_by_a_statement) {
  const TempFolder folder(kMemoTest);
  const auto engine = EngineFor(folder);
  const Result result = engine->Execute(
      "Update memotest Set name='Carol', birthdate={^2001-02-03} Where name='Bob'", false);
  EXPECT_EQ(result.rows_affected, 1);
  EXPECT_EQ(First(*engine, "Select birthdate From memotest Where name='Carol'"), "2001-02-03");
  EXPECT_EQ(First(*engine, "Select memo From memotest Where name='Carol'"), "Bob memo");
}

TEST(DbfUpdate, Deletes_by_marking) {
  const TempFolder folder(kMemoTest);
  const auto engine = EngineFor(folder);
  const std::size_t size = folder.Read("memotest.dbf").size();
  EXPECT_EQ(engine->Execute("Delete From memotest Where name='Bob'", false).rows_affected, 1);
  EXPECT_EQ(First(*engine, "Select Count(*) From memotest"), "1");
  EXPECT_EQ(folder.Read("memotest.dbf").size(), size);
}

TEST(DbfUpdate, Adds_a_row) {
  const TempFolder folder(kMemoTest);
  const auto engine = EngineFor(folder);
  engine->Execute("Insert Into memotest (name, memo) Values ('Dave', 'Dave memo')", false);
  EXPECT_EQ(First(*engine, "Select memo From memotest Where name='Dave'"), "Dave memo");
  EXPECT_EQ(First(*engine, "Select birthdate From memotest Where name='Dave'"), "1899-12-30");
  const std::string file = folder.Read("memotest.dbf");
  EXPECT_EQ(file[4], 4);  // the count of records, the deleted one among them
  EXPECT_EQ(file.back(), '\x1A');
}

TEST(DbfUpdate, Finds_that_the_row_was_changed_since) {
  const TempFolder folder(kMemoTest);
  const auto engine = EngineFor(folder);
  Result result = engine->Execute("Select name, birthdate From memotest Where name='Bob'", true);
  engine->Execute("Update memotest Set birthdate={^2001-02-03} Where name='Bob'", false);
  const std::string before = folder.Read("memotest.dbf");
  Row after = result.rows.at(0);
  after.values[0] = u"Rob";
  ExpectError(SourceError::RowNotLocated, "Row cannot be located", [&] {
    result.writer->Update(result.rows[0], after, {true, false});
  });
  EXPECT_EQ(folder.Read("memotest.dbf"), before);
}

TEST(DbfUpdate, Finds_that_the_row_was_deleted_since) {
  const TempFolder folder(kMemoTest);
  const auto engine = EngineFor(folder);
  Result result = engine->Execute("Select name From memotest Where name='Bob'", true);
  engine->Execute("Delete From memotest Where name='Bob'", false);
  ExpectError(SourceError::RowNotLocated, "Row cannot be located",
              [&] { result.writer->Delete(result.rows.at(0)); });
}

struct Refusal {
  const char* name;
  const char* statement;
  SourceError number;
  const char* text;
};

class DbfRefusal : public testing::TestWithParam<Refusal> {};

TEST_P(DbfRefusal, Leaves_the_files_as_they_are) {
  const TempFolder folder({"dbf/memotest.dbf", "dbf/memotest.FPT", "dbf/calls.dbf", "dbf/calls.FPT",
                           "dbf/calls.CDX", "dbf/dbase_83.dbf", "dbf/dbase_83.dbt"});
  const auto engine = EngineFor(folder);
  ExpectError(GetParam().number, GetParam().text,
              [&] { engine->Execute(GetParam().statement, false); });
  for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
    const std::string name = entry.path().filename().string();
    EXPECT_EQ(folder.Read(name), ReadSample("dbf/" + name)) << name;
  }
}

constexpr Refusal kRefusals[] = {
    {"Text_too_long", "Update memotest Set name='12345678901234567890123456789012345'",
     SourceError::ValueTooLarge, "does not fit into field"},
    {"Null_where_none_may_be", "Update memotest Set name=Null", SourceError::IntegrityViolation,
     "does not accept null values"},
    {"Character_outside_the_code_page", "Update memotest Set name='\xE4\xB8\xAD'",
     SourceError::CannotConvert, "code page lacks"},
    {"Text_for_a_date", "Update memotest Set birthdate='soon'", SourceError::CannotConvert,
     "Data type mismatch"},
    {"Column_of_an_indexed_table", "Update calls Set subject='x' Where call_id=1",
     SourceError::Failed, "has an index file"},
    {"Row_of_an_indexed_table", "Delete From calls Where call_id=1", SourceError::Failed,
     "has an index file"},
    {"New_row_of_an_indexed_table", "Insert Into calls (subject) Values ('x')", SourceError::Failed,
     "has an index file"},
    {"Memo_of_dbase", "Update dbase_83 Set desc='x' Where id=87", SourceError::Failed,
     "can be read only"},
    {"Number_too_long", "Update dbase_83 Set id=12345678901234567890", SourceError::ValueTooLarge,
     "does not fit into field"},
};

INSTANTIATE_TEST_SUITE_P(All, DbfRefusal, testing::ValuesIn(kRefusals),
                         [](const auto& refusal) { return refusal.param.name; });

TEST(DbfUpdate, Changes_the_memo_of_an_indexed_table) {
  const TempFolder folder(kCalls);
  const auto engine = EngineFor(folder);
  Change(*engine, "Select notes From calls Where call_id=1", 0, u"called back");
  EXPECT_EQ(First(*engine, "Select notes From calls Where call_id=1"), "called back");
  EXPECT_EQ(folder.Read("calls.CDX"), ReadSample("dbf/calls.CDX"));
}

TEST(DbfUpdate, Refuses_a_table_with_an_index_file_beside_it) {
  const TempFolder folder(kMemoTest);
  folder.Write("MEMOTEST.IDX", "index");
  const auto engine = EngineFor(folder);
  ExpectError(SourceError::Failed, "has an index file",
              [&] { engine->Execute("Update memotest Set name='x'", false); });
}

TEST(DbfUpdate, Refuses_a_read_only_file) {
  const TempFolder folder(kMemoTest);
  std::filesystem::permissions(folder.File("memotest.dbf"), std::filesystem::perms::owner_read);
  const auto engine = EngineFor(folder);
  ExpectError(SourceError::PermissionDenied, "memotest.dbf",
              [&] { engine->Execute("Update memotest Set name='x'", false); });
}

TEST(DbfUpdate, Times_out_where_another_user_holds_the_row) {
  const TempFolder folder(kMemoTest);
  const RegularFile other(folder.File("memotest.dbf"), FileAccess::ReadAndWrite);
  other.Lock(0, other.Size());
  const auto engine = EngineFor(folder);
  ExpectError(SourceError::TimedOut, "locked by another user",
              [&] { engine->Execute("Update memotest Set name='x'", false); });
  other.Unlock(0, other.Size());
  EXPECT_EQ(engine->Execute("Update memotest Set name='x'", false).rows_affected, 2);
}

TEST(DbfUpdate, Adds_every_row_of_several_writers) {
  const TempFolder folder(kMemoTest);
  constexpr int kWriters = 4;
  constexpr int kRows = 25;
  std::vector<std::thread> writers;
  for (int writer = 0; writer < kWriters; ++writer) {
    writers.emplace_back([&folder] {
      const auto engine = EngineFor(folder);
      for (int row = 0; row < kRows; ++row) {
        engine->Execute("Insert Into memotest (name, memo) Values ('New', 'New memo')", false);
      }
    });
  }
  for (std::thread& writer : writers)
    writer.join();
  const auto engine = EngineFor(folder);
  const Result result = engine->Execute("Select memo From memotest Where name='New'", false);
  ASSERT_EQ(result.rows.size(), static_cast<std::size_t>(kWriters * kRows));
  for (const Row& row : result.rows)
    EXPECT_EQ(row.values[0], Variant(u"New memo"));
}

}  // namespace
}  // namespace vandpublic::ado
