// Recordsets: states, moves, edits and chunks.
#include "platform/posix/ado/ado_recordset.h"

#include <algorithm>
#include <utility>

#include "platform/posix/ado/ado_errors.h"
#include "platform/posix/ado/ado_field.h"
#include "platform/posix/ado/chunks.h"
#include "platform/posix/ado/column_values.h"
#include "runtime/utf8.h"

namespace vandpublic::ado {
namespace {

constexpr Long kStaticCursor = 3;
constexpr Long kLastCursorType = 3;
constexpr Long kReadOnly = 1;
constexpr Long kBatchOptimistic = 4;
constexpr Long kServerCursor = 2;
constexpr Long kTableCommand = 2;

// ADO's cursor options.
constexpr Long kHoldRecords = 0x100;
constexpr Long kMovePrevious = 0x200;
constexpr Long kApproxPosition = 0x4000;
constexpr Long kAddNew = 0x1000400;
constexpr Long kDelete = 0x1000800;
constexpr Long kUpdate = 0x1008000;
constexpr Long kUpdateBatch = 0x10000;

void RequireRange(Long value, Long least, Long most) {
  if (value < least || value > most) Raise(ObjectError::InvalidArgument, kRecordsetSource);
}

bool SameColumns(const std::vector<Column>& a, const std::vector<Column>& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](const Column& one, const Column& other) {
                      return one.name == other.name && one.type == other.type;
                    });
}

}  // namespace

AdoRecordset::~AdoRecordset() { Abandon(); }

RecordsetRef AdoRecordset::Holding(std::shared_ptr<AdoConnection> connection, std::u16string source,
                                   Result result) {
  auto recordset = std::make_shared<AdoRecordset>();
  recordset->connection_ = std::move(connection);
  recordset->source_ = std::move(source);
  recordset->cursor_location_ = kClientCursor;
  if (!result.columns.empty()) recordset->Load(std::move(result));
  return recordset;
}

void AdoRecordset::RequireClosed() const {
  if (IsOpen()) Raise(ObjectError::ObjectOpen, kRecordsetSource);
}

RowBuffer& AdoRecordset::Rows(std::string_view source) {
  if (!IsOpen()) Raise(ObjectError::ObjectClosed, source);
  return *rows_;
}

void AdoRecordset::SetActiveConnection(const ConnectionRef& connection) {
  auto own = std::dynamic_pointer_cast<AdoConnection>(connection);
  if (own == nullptr && connection != nullptr) {
    Raise(ObjectError::InvalidArgument, kRecordsetSource);
  }
  if (own == connection_) return;
  if (IsOpen()) {
    // An open recordset may only be cut off from its connection; it keeps its rows.
    if (own != nullptr) RequireClosed();
    rows_->DropWriter();
    connection_->Remove(*this);
  }
  connection_ = std::move(own);
}

void AdoRecordset::SetCursorLocation(Long location) {
  RequireClosed();
  RequireRange(location, kServerCursor, kClientCursor);
  cursor_location_ = location;
}

void AdoRecordset::SetLockType(Long lock_type) {
  RequireClosed();
  RequireRange(lock_type, kReadOnly, kBatchOptimistic);
  lock_type_ = lock_type;
}

void AdoRecordset::SetCursorType(Long cursor_type) {
  RequireClosed();
  RequireRange(cursor_type, 0, kLastCursorType);
  cursor_type_ = cursor_type;
}

Long AdoRecordset::cursor_type() const noexcept { return IsOpen() ? kStaticCursor : cursor_type_; }

void AdoRecordset::SetSource(std::u16string source) {
  RequireClosed();
  source_ = std::move(source);
}

void AdoRecordset::Load(Result result) {
  // Fields that a client holds stay good when the same statement is run again.
  if (!IsOpen() || !SameColumns(rows_->columns(), result.columns)) ++generation_;
  rows_.emplace(std::move(result));
  chunks_ = {};
  connection_->Add(*this);
}

void AdoRecordset::Open(std::u16string_view source, const ConnectionRef& active_connection,
                        Long cursor_type, Long lock_type, Long options) {
  RequireClosed();
  if (active_connection != nullptr) SetActiveConnection(active_connection);
  if (!source.empty()) source_ = source;
  if (cursor_type != kUnspecified) SetCursorType(cursor_type);
  if (lock_type != kUnspecified) SetLockType(lock_type);
  if (connection_ == nullptr) Raise(ObjectError::InvalidConnection, kRecordsetSource);
  Session& session = connection_->OpenedSession();

  std::string statement = ToUtf8(source_);
  if (options == kTableCommand) statement = "select * from " + statement;
  Result result = session.Execute(statement, lock_type_ != kReadOnly);
  // A statement without rows leaves the recordset closed.
  if (!result.columns.empty()) Load(std::move(result));
}

void AdoRecordset::Requery() {
  if (Rows().edit_mode() != EditMode::None) {
    Raise(ObjectError::IllegalOperation, kRecordsetSource);
  }
  if (connection_ == nullptr) Raise(ObjectError::InvalidConnection, kRecordsetSource);
  Result result = connection_->OpenedSession().Execute(ToUtf8(source_), lock_type_ != kReadOnly);
  connection_->Remove(*this);
  Load(std::move(result));
}

void AdoRecordset::Close() {
  if (Rows().edit_mode() != EditMode::None && lock_type_ != kBatchOptimistic) {
    Raise(ObjectError::IllegalOperation, kRecordsetSource);
  }
  Abandon();
}

void AdoRecordset::Abandon() noexcept {
  rows_.reset();
  if (connection_ != nullptr) connection_->Remove(*this);
}

void AdoRecordset::LeaveRow() {
  if (Rows().edit_mode() != EditMode::None) Update();
  chunks_ = {};
}

void AdoRecordset::Move(std::ptrdiff_t rows) {
  LeaveRow();
  rows_->MoveBy(rows);
}

void AdoRecordset::MoveFirst() {
  LeaveRow();
  rows_->MoveTo(0);
}

void AdoRecordset::MoveLast() {
  LeaveRow();
  rows_->MoveTo(static_cast<std::ptrdiff_t>(rows_->RowCount()) - 1);
}

void AdoRecordset::SetAbsolutePosition(Long position) {
  LeaveRow();
  if (position < 1 || static_cast<std::size_t>(position) > rows_->RowCount()) {
    Raise(ObjectError::InvalidArgument, kRecordsetSource);
  }
  rows_->MoveTo(position - 1);
}

bool AdoRecordset::IsUpdatable() const noexcept {
  return IsOpen() && lock_type_ != kReadOnly && rows_->HasWriter();
}

void AdoRecordset::RequireUpdatable(std::string_view source) {
  Rows(source);
  if (!IsUpdatable()) Raise(ObjectError::NotUpdatable, source);
}

void AdoRecordset::AddNew() {
  RequireUpdatable(kRecordsetSource);
  LeaveRow();
  rows_->BeginAdding();
}

void AdoRecordset::Update() {
  RequireUpdatable(kRecordsetSource);
  if (lock_type_ == kBatchOptimistic) {
    rows_->KeepEdit();
  } else {
    rows_->SendEdit();
  }
  chunks_ = {};
}

void AdoRecordset::CancelUpdate() {
  Rows().CancelEdit();
  chunks_ = {};
}

void AdoRecordset::Delete() {
  RequireUpdatable(kRecordsetSource);
  if (rows_->edit_mode() != EditMode::None) {
    Raise(ObjectError::IllegalOperation, kRecordsetSource);
  }
  if (lock_type_ == kBatchOptimistic) {
    rows_->KeepDeletion();
  } else {
    rows_->DeleteRow();
  }
  chunks_ = {};
}

void AdoRecordset::UpdateBatch() {
  RequireUpdatable(kRecordsetSource);
  if (lock_type_ != kBatchOptimistic) Raise(ObjectError::NotUpdatable, kRecordsetSource);
  LeaveRow();
  rows_->SendAll();
}

void AdoRecordset::CancelBatch() {
  RequireUpdatable(kRecordsetSource);
  if (lock_type_ != kBatchOptimistic) Raise(ObjectError::NotUpdatable, kRecordsetSource);
  rows_->CancelAll();
  chunks_ = {};
}

bool AdoRecordset::Supports(Long operations) {
  Rows();
  Long offered = kHoldRecords | kMovePrevious | kApproxPosition;
  if (IsUpdatable()) offered |= kAddNew | kDelete | kUpdate;
  if (IsUpdatable() && lock_type_ == kBatchOptimistic) offered |= kUpdateBatch;
  return (operations & ~offered) == 0;
}

void AdoRecordset::Touch(std::size_t column) {
  if (chunks_.column == column) return;
  chunks_ = {};
  chunks_.column = column;
}

Variant AdoRecordset::FieldValue(std::size_t column) {
  Touch(column);
  return Rows(kFieldSource).Value(column);
}

void AdoRecordset::SetFieldValue(std::size_t column, const Variant& value) {
  RequireUpdatable(kFieldSource);
  const Column& target = rows_->columns()[column];
  if (!target.updatable) Raise(ObjectError::NotUpdatable, kFieldSource);
  Variant converted = ToColumnValue(target, value);
  rows_->EditValue(column) = std::move(converted);
  chunks_ = {};
}

void AdoRecordset::AppendChunk(std::size_t column, const Variant& data) {
  RequireUpdatable(kFieldSource);
  const Column& target = rows_->columns()[column];
  if (!target.is_long) Raise(ObjectError::IllegalOperation, kFieldSource);
  if (!target.updatable) Raise(ObjectError::NotUpdatable, kFieldSource);
  RequireChunk(target, data);
  Touch(column);
  Variant& content = rows_->EditValue(column);
  if (!chunks_.appending) content = NullValue{};
  AddChunk(content, data);
  chunks_.appending = true;
  chunks_.read_offset = 0;
}

Variant AdoRecordset::GetChunk(std::size_t column, Long size) {
  const RowBuffer& rows = Rows(kFieldSource);
  if (!rows.columns()[column].is_long) Raise(ObjectError::IllegalOperation, kFieldSource);
  if (size < 0) Raise(ObjectError::InvalidArgument, kFieldSource);
  Touch(column);
  return TakeChunk(rows.Value(column), chunks_.read_offset, static_cast<std::size_t>(size));
}

FieldsRef AdoRecordset::GetFields() {
  Rows();
  return std::make_shared<AdoFields>(shared_from_this());
}

}  // namespace vandpublic::ado
