// From the columns of a result to those of its table.
#include "platform/posix/ado/sql/file_row_writer.h"

#include <utility>

#include "platform/posix/ado/ado_errors.h"
#include "runtime/errors.h"

namespace vandpublic::ado {

FileRowWriter::FileRowWriter(std::shared_ptr<FileTable> table,
                             std::vector<std::optional<std::size_t>> columns)
    : table_(std::move(table)), columns_(std::move(columns)) {}

GivenValues FileRowWriter::FlaggedValues(const Row& row, const ColumnFlags& flags) const {
  GivenValues values(table_->Columns().size());
  for (std::size_t i = 0; i < flags.size(); ++i) {
    if (!flags[i]) continue;
    if (!columns_[i]) RaiseNoBaseTable();
    values[*columns_[i]] = row.values[i];
  }
  return values;
}

GivenValues FileRowWriter::AllValues(const Row& row) const {
  GivenValues values(table_->Columns().size());
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (columns_[i]) values[*columns_[i]] = row.values[i];
  }
  return values;
}

// The values as they came to be stored: padded, rounded, or blank. The next change of the row must
// find it by them.
void FileRowWriter::ReadBack(Row& row, const ColumnFlags& which) const {
  try {
    const auto scan = table_->Scan();
    if (!scan->Seek(row.locator)) return;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      if (which[i] && columns_[i]) row.values[i] = scan->Value(*columns_[i]);
    }
  } catch (const AutomationError&) {
    // The row is stored; whoever reads it next will hear what is wrong with it.
  }
}

void FileRowWriter::Update(const Row& before, Row& after, const ColumnFlags& changed) {
  table_->Update(before.locator, AllValues(before), FlaggedValues(after, changed));
  ReadBack(after, changed);
}

void FileRowWriter::Insert(Row& added, const ColumnFlags& given) {
  added.locator = table_->Insert(FlaggedValues(added, given));
  ReadBack(added, ColumnFlags(columns_.size(), true));
}

void FileRowWriter::Delete(const Row& row) { table_->Delete(row.locator, AllValues(row)); }

}  // namespace vandpublic::ado
