// Writing rows of a result back to the table of a file.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_SQL_FILE_ROW_WRITER_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_SQL_FILE_ROW_WRITER_H

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

#include "platform/posix/ado/provider.h"
#include "platform/posix/ado/sql/file_table.h"

namespace vandpublic::ado {

// A column of a table, both by their places.
struct BaseColumn {
  std::size_t table = 0;
  std::size_t column = 0;
};

class FileRowWriter final : public RowWriter {
 public:
  // For each column of the result the table's column; nothing for an expression, which
  // RaiseNoBaseTable() answers when it is written.
  FileRowWriter(std::shared_ptr<FileTable> table, std::vector<std::optional<std::size_t>> columns);

  void Update(const Row& before, Row& after, const ColumnFlags& changed) override;
  void Insert(Row& added, const ColumnFlags& given) override;
  void Delete(const Row& row) override;

 private:
  GivenValues FlaggedValues(const Row& row, const ColumnFlags& flags) const;
  GivenValues AllValues(const Row& row) const;
  void ReadBack(Row& row, const ColumnFlags& which) const;

  std::shared_ptr<FileTable> table_;
  std::vector<std::optional<std::size_t>> columns_;
};

}  // namespace vandpublic::ado

#endif
