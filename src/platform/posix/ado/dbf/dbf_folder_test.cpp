// Tables as files: which file a name means, how a folder is opened, and what other programs do to a
// table meanwhile.
#include "platform/posix/ado/dbf/dbf_folder.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <filesystem>

#include "platform/posix/ado/dbf/dbf_session.h"
#include "platform/posix/code_pages.h"
#include "platform/posix/posix_clock.h"
#include "runtime/errors.h"
#include "runtime/utf8.h"
#include "support/expected_rows.h"
#include "support/foxpro_folder.h"
#include "support/made_dbf.h"

namespace vandpublic::ado {
namespace {

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
