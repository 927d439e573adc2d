// One dBASE or FoxPro table: its file, and its memo file where it has one.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_DBF_DBF_TABLE_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_DBF_DBF_TABLE_H

#include <memory>
#include <string>
#include <vector>

#include "platform/clock.h"
#include "platform/code_page.h"
#include "platform/posix/ado/dbf/dbf_layout.h"
#include "platform/posix/ado/dbf/memo_file.h"
#include "platform/posix/ado/dbf/regular_file.h"
#include "platform/posix/ado/sql/file_table.h"

namespace vandpublic::ado {

// What a table is made with.
struct DbfSettings {
  std::shared_ptr<const CodePage> code_page;  // of tables that carry no mark
  std::shared_ptr<Clock> clock;               // for the date of the last change
};

// The files of a table.
struct DbfFiles {
  std::string table;
  // Memo files of either kind; empty: there is none.
  std::string fpt;
  std::string dbt;
  bool has_index = false;  // an index file of the table's name stands beside it
};

// Rows are found by their record numbers, from 1. Deleted records are hidden.
//
// Index files are not kept up to date. So in a table that has one, nothing may be changed but memo
// and general columns, which no index can have as its key; all else is refused.
class DbfTable final : public FileTable {
 public:
  // "Not a table." for a file that is damaged or of another kind.
  DbfTable(DbfFiles files, DbfSettings settings);

  const std::vector<TableColumn>& Columns() const override { return columns_; }
  std::unique_ptr<RowScan> Scan() override;
  bool IsWritable() const override { return true; }
  void Update(std::int64_t locator, const GivenValues& before, const GivenValues& values) override;
  void Delete(std::int64_t locator, const GivenValues& before) override;
  std::int64_t Insert(const GivenValues& values) override;

 private:
  friend class DbfScan;
  friend class DbfWriter;

  // A value of a record; memos are read from the memo file.
  Variant Value(std::string_view record, std::size_t column);
  const MemoFile& Memo();
  // The file that the table's kind of memos is kept in; an error where there is none.
  const std::string& MemoPath() const;

  DbfFiles files_;
  DbfSettings settings_;
  RegularFile file_;
  std::shared_ptr<const CodePage> code_page_;
  DbfLayout layout_;
  std::vector<TableColumn> columns_;
  std::unique_ptr<MemoFile> memo_;
};

}  // namespace vandpublic::ado

#endif
