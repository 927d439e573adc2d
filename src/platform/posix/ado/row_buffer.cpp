// Positions and edits. A row that is edited is a copy until it is stored, so that a failing store
// leaves the original to cancel back to.
#include "platform/posix/ado/row_buffer.h"

#include <algorithm>
#include <utility>

#include "platform/posix/ado/ado_errors.h"

namespace vandpublic::ado {

RowBuffer::RowBuffer(Result result)
    : columns_(std::move(result.columns)), writer_(std::move(result.writer)) {
  rows_.reserve(result.rows.size());
  for (Row& row : result.rows)
    rows_.push_back({std::move(row), nullptr});
}

bool RowBuffer::IsAtStart() const noexcept {
  if (edit_mode_ == EditMode::Adding || current_deleted_) return false;
  return rows_.empty() || position_ < 0;
}

bool RowBuffer::IsAtEnd() const noexcept {
  if (edit_mode_ == EditMode::Adding || current_deleted_) return false;
  return position_ >= std::ssize(rows_);
}

std::optional<std::size_t> RowBuffer::Position() const noexcept {
  if (edit_mode_ == EditMode::Adding) return rows_.size();
  if (current_deleted_ || position_ < 0 || position_ >= std::ssize(rows_)) return std::nullopt;
  return static_cast<std::size_t>(position_);
}

void RowBuffer::MoveTo(std::ptrdiff_t position) {
  if (rows_.empty() && !current_deleted_) Raise(ObjectError::NoCurrentRecord, kRecordsetSource);
  current_deleted_ = false;
  position_ = std::clamp<std::ptrdiff_t>(position, -1, std::ssize(rows_));
}

void RowBuffer::MoveBy(std::ptrdiff_t rows) {
  if (current_deleted_) {
    // The next row has already taken the place.
    if (rows != 0) MoveTo(position_ + rows - (rows > 0 ? 1 : 0));
    return;
  }
  const bool past_end = rows > 0 && IsAtEnd();
  const bool past_start = rows < 0 && IsAtStart();
  if (past_end || past_start) Raise(ObjectError::NoCurrentRecord, kRecordsetSource);
  MoveTo(position_ + rows);
}

const RowBuffer::StoredRow& RowBuffer::Current() const {
  if (current_deleted_ || position_ < 0 || position_ >= std::ssize(rows_)) {
    Raise(ObjectError::NoCurrentRecord, kFieldSource);
  }
  return rows_[static_cast<std::size_t>(position_)];
}

RowBuffer::StoredRow& RowBuffer::Current() {
  return const_cast<StoredRow&>(std::as_const(*this).Current());
}

const Variant& RowBuffer::Value(std::size_t column) const {
  if (edit_mode_ != EditMode::None) return edited_.values[column];
  return Current().row.values[column];
}

const Variant& RowBuffer::StoredValue(std::size_t column) const {
  if (edit_mode_ == EditMode::Adding) return edited_.values[column];
  const StoredRow& stored = Current();
  return stored.kept != nullptr ? stored.kept->before.values[column] : stored.row.values[column];
}

void RowBuffer::BeginEdit() {
  edited_ = Current().row;
  changed_.assign(columns_.size(), false);
  edit_mode_ = EditMode::InProgress;
}

Variant& RowBuffer::EditValue(std::size_t column) {
  if (edit_mode_ == EditMode::None) BeginEdit();
  changed_[column] = true;
  return edited_.values[column];
}

void RowBuffer::BeginAdding() {
  edited_ = Row{std::vector<Variant>(columns_.size(), Variant(NullValue{})), 0};
  changed_.assign(columns_.size(), false);
  edit_mode_ = EditMode::Adding;
}

void RowBuffer::CancelEdit() noexcept { EndEdit(); }

void RowBuffer::EndEdit() noexcept {
  edit_mode_ = EditMode::None;
  edited_ = {};
  changed_.clear();
}

void RowBuffer::SendEdit() {
  if (edit_mode_ == EditMode::Adding) {
    writer_->Insert(edited_, changed_);
    rows_.push_back({std::move(edited_), nullptr});
    position_ = std::ssize(rows_) - 1;
    current_deleted_ = false;
  } else if (edit_mode_ == EditMode::InProgress) {
    StoredRow& current = Current();
    writer_->Update(current.row, edited_, changed_);
    current.row = std::move(edited_);
  }
  EndEdit();
}

void RowBuffer::KeepEdit() {
  if (edit_mode_ == EditMode::Adding) {
    auto kept = std::make_unique<KeptChange>(KeptChange{edited_, changed_, true});
    rows_.push_back({std::move(edited_), std::move(kept)});
    position_ = std::ssize(rows_) - 1;
    current_deleted_ = false;
  } else if (edit_mode_ == EditMode::InProgress) {
    StoredRow& current = Current();
    if (current.kept == nullptr) {
      current.kept = std::make_unique<KeptChange>(
          KeptChange{current.row, ColumnFlags(columns_.size(), false), false});
    }
    for (std::size_t i = 0; i < changed_.size(); ++i) {
      if (changed_[i]) current.kept->changed[i] = true;
    }
    current.row = std::move(edited_);
  }
  EndEdit();
}

RowBuffer::StoredRow RowBuffer::TakeCurrent() {
  StoredRow taken = std::move(Current());
  rows_.erase(rows_.begin() + position_);
  current_deleted_ = true;
  return taken;
}

void RowBuffer::DeleteRow() {
  writer_->Delete(Current().row);
  TakeCurrent();
}

void RowBuffer::KeepDeletion() {
  Current();
  StoredRow taken = TakeCurrent();
  if (taken.kept != nullptr && taken.kept->added) return;  // the source never knew it
  deleted_.push_back(taken.kept != nullptr ? std::move(taken.kept->before) : std::move(taken.row));
}

void RowBuffer::Send(StoredRow& stored) {
  if (stored.kept->added) {
    writer_->Insert(stored.row, stored.kept->changed);
  } else {
    writer_->Update(stored.kept->before, stored.row, stored.kept->changed);
  }
  stored.kept.reset();
}

void RowBuffer::SendAll() {
  while (!deleted_.empty()) {
    writer_->Delete(deleted_.front());
    deleted_.erase(deleted_.begin());
  }
  for (StoredRow& stored : rows_) {
    if (stored.kept != nullptr) Send(stored);
  }
}

void RowBuffer::CancelAll() {
  EndEdit();
  std::erase_if(rows_, [](const StoredRow& s) { return s.kept != nullptr && s.kept->added; });
  for (StoredRow& stored : rows_) {
    if (stored.kept != nullptr) stored.row = std::move(stored.kept->before);
    stored.kept.reset();
  }
  for (Row& row : deleted_)
    rows_.push_back({std::move(row), nullptr});
  deleted_.clear();
  current_deleted_ = false;
  position_ = std::min(position_, std::ssize(rows_) - 1);
}

}  // namespace vandpublic::ado
