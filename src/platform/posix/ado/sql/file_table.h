// What a database made of files shows to the SQL engine: tables of columns and rows.
//
// The engine asks for a table by name, scans its rows, and takes from each row the columns that
// the statement names. It writes single rows, which it finds by their locators.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_SQL_FILE_TABLE_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_SQL_FILE_TABLE_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/posix/ado/provider.h"
#include "runtime/variant.h"

namespace vandpublic::ado {

struct TableColumn {
  std::string name;
  DataType type = DataType::VarWChar;
  Long defined_size = 0;  // as in Column
  bool is_long = false;
  bool nullable = true;
};

// One pass over the rows of a table. It is destroyed before its table.
class RowScan {
 public:
  virtual ~RowScan() = default;

  // Goes to the next row, at first to the first one; false behind the last.
  virtual bool Next() = 0;
  // Goes to the row of that locator; false when there is none.
  virtual bool Seek(std::int64_t locator) = 0;
  virtual std::int64_t Locator() const = 0;
  // A value of the current row, as the column's type has it, or the null value.
  virtual Variant Value(std::size_t column) = 0;
};

// The values of a row that are to be stored or compared, one a column; nothing for the others.
using GivenValues = std::vector<std::optional<Variant>>;

// A table, open for as long as the object lives.
class FileTable {
 public:
  FileTable() = default;
  FileTable(const FileTable&) = delete;
  FileTable& operator=(const FileTable&) = delete;
  virtual ~FileTable() = default;

  virtual const std::vector<TableColumn>& Columns() const = 0;
  virtual std::unique_ptr<RowScan> Scan() = 0;

  // Whether rows of this kind of table can be written at all. Where not, the three operations
  // below are not called.
  virtual bool IsWritable() const = 0;
  // Stores the values in a row that still holds what `before` gives: else RaiseRowNotLocated().
  // Complete when it returns, nothing changed when it throws.
  virtual void Update(std::int64_t locator, const GivenValues& before,
                      const GivenValues& values) = 0;
  virtual void Delete(std::int64_t locator, const GivenValues& before) = 0;
  // The locator of the new row.
  virtual std::int64_t Insert(const GivenValues& values) = 0;
};

// A file or folder that holds tables.
class TableSource {
 public:
  TableSource() = default;
  TableSource(const TableSource&) = delete;
  TableSource& operator=(const TableSource&) = delete;
  virtual ~TableSource() = default;

  // The table of that name, compared without regard to the case of ASCII letters; null when there
  // is none. A table that is there but cannot be read is an error.
  virtual std::shared_ptr<FileTable> Open(std::string_view name) = 0;
};

}  // namespace vandpublic::ado

#endif
