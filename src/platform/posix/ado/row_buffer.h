// The rows of a recordset in memory: a current position, the row being edited, and changes that
// wait to be sent.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_ROW_BUFFER_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_ROW_BUFFER_H

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

#include "platform/posix/ado/provider.h"

namespace vandpublic::ado {

enum class EditMode : Long { None = 0, InProgress = 1, Adding = 2 };

// The position is in front of the first row, on a row, or behind the last one; on a new row while
// one is added. A row that was deleted stays the position until the next move. What needs a
// current row raises 3021.
class RowBuffer {
 public:
  // Positioned on the first row.
  explicit RowBuffer(Result result);

  const std::vector<Column>& columns() const noexcept { return columns_; }
  // Whether rows can be changed at all.
  bool HasWriter() const noexcept { return writer_ != nullptr; }
  // From now on nothing can be changed.
  void DropWriter() noexcept { writer_.reset(); }

  std::size_t RowCount() const noexcept { return rows_.size(); }
  bool IsAtStart() const noexcept;
  bool IsAtEnd() const noexcept;
  // Counted from 0, nothing where the position is on no row.
  std::optional<std::size_t> Position() const noexcept;
  // To a row, counted from 0 and limited to the places in front of the first and behind the last;
  // 3021 where there are no rows.
  void MoveTo(std::ptrdiff_t position);
  // 3021 where there are no rows, or the position is already at that end.
  void MoveBy(std::ptrdiff_t rows);

  // Of the current row: the value as it stands with edits, and as it was last read or stored.
  const Variant& Value(std::size_t column) const;
  const Variant& StoredValue(std::size_t column) const;
  // Begins to edit the row where nobody does. The reference holds until the edit ends.
  Variant& EditValue(std::size_t column);

  EditMode edit_mode() const noexcept { return edit_mode_; }
  // A new row of null values.
  void BeginAdding();
  void CancelEdit() noexcept;

  // Sends the edited row to the source. An edit that fails goes on.
  void SendEdit();
  // Keeps the edited row here until SendAll.
  void KeepEdit();
  // Removes the current row, at the source too unless it was only kept here.
  void DeleteRow();
  // Removes it here, at the source with SendAll.
  void KeepDeletion();
  // Sends all that was kept, row by row, up to the first error.
  void SendAll();
  // Forgets all that was kept.
  void CancelAll();

 private:
  // What was kept of a row.
  struct KeptChange {
    Row before;
    ColumnFlags changed;
    bool added = false;
  };
  struct StoredRow {
    Row row;
    std::unique_ptr<KeptChange> kept;
  };

  StoredRow& Current();
  const StoredRow& Current() const;
  void BeginEdit();
  void EndEdit() noexcept;
  StoredRow TakeCurrent();
  void Send(StoredRow& stored);

  std::vector<Column> columns_;
  std::unique_ptr<RowWriter> writer_;
  std::vector<StoredRow> rows_;
  std::vector<Row> deleted_;  // kept deletions
  // An index into rows_, -1 in front of them, their number behind them. With current_deleted_ the
  // row that follows the deleted one.
  std::ptrdiff_t position_ = 0;
  bool current_deleted_ = false;

  EditMode edit_mode_ = EditMode::None;
  Row edited_;
  ColumnFlags changed_;
};

}  // namespace vandpublic::ado

#endif
