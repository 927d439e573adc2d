// ADODB.Recordset: the rows of a statement, read whole when it is opened.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_ADO_RECORDSET_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_ADO_RECORDSET_H

#include <memory>
#include <optional>
#include <string>

#include "platform/database.h"
#include "platform/posix/ado/ado_connection.h"
#include "platform/posix/ado/ado_errors.h"
#include "platform/posix/ado/provider.h"
#include "platform/posix/ado/row_buffer.h"

namespace vandpublic::ado {

// By name it has
// - the properties ActiveConnection, CursorLocation, CursorType, LockType, Source, State, EOF, BOF,
//   RecordCount, AbsolutePosition (from 1; -2 in front of the first row, -3 behind the last),
//   EditMode and Fields;
// - the operations Open, Close, Requery, Move, MoveFirst, MoveLast, MoveNext, MovePrevious, AddNew,
//   Update, CancelUpdate, Delete, UpdateBatch, CancelBatch and Supports.
//
// The cursor is always a client-side static one: CursorType reads 3 once it is open. Lock type 1 is
// read-only; 2 acts as 3, which stores a row at Update or when another row is moved to; 4 keeps
// changes until UpdateBatch.
class AdoRecordset final : public Recordset, public std::enable_shared_from_this<AdoRecordset> {
 public:
  ~AdoRecordset() override;

  // What Connection.Execute returns.
  static RecordsetRef Holding(std::shared_ptr<AdoConnection> connection, std::u16string source,
                              Result result);

  void SetActiveConnection(const ConnectionRef& connection) override;
  void SetCursorLocation(Long location) override;
  void SetLockType(Long lock_type) override;
  void Open(std::u16string_view source, const ConnectionRef& active_connection, Long cursor_type,
            Long lock_type, Long options) override;
  void Close() override;
  Long GetState() override { return IsOpen() ? kStateOpen : kStateClosed; }
  bool IsAtEnd() override { return Rows().IsAtEnd(); }
  FieldsRef GetFields() override;
  Variant Get(std::string_view name, std::span<const Variant> arguments) override;
  void Set(std::string_view name, const Variant& value) override;
  Variant Call(std::string_view name, std::span<Variant> arguments) override;

  bool IsOpen() const noexcept { return rows_.has_value(); }
  // The rows; 3704, from the source given, when the recordset is closed.
  RowBuffer& Rows(std::string_view source = kRecordsetSource);
  // Closes without storing what is being edited: the connection is going.
  void Abandon() noexcept;
  // Runs the statement again.
  void Requery();

  void Move(std::ptrdiff_t rows);
  void MoveFirst();
  void MoveLast();
  void SetAbsolutePosition(Long position);
  void AddNew();
  void Update();
  void CancelUpdate();
  void Delete();
  void UpdateBatch();
  void CancelBatch();
  // Whether all operations of the bit set (ADO's cursor options) are there.
  bool Supports(Long operations);

  const std::shared_ptr<AdoConnection>& connection() const noexcept { return connection_; }
  const std::u16string& source() const noexcept { return source_; }
  void SetSource(std::u16string source);
  Long cursor_location() const noexcept { return cursor_location_; }
  Long cursor_type() const noexcept;
  void SetCursorType(Long cursor_type);
  Long lock_type() const noexcept { return lock_type_; }
  bool IsUpdatable() const noexcept;

  // For fields, which are only views: counted up with every Open, so that they can tell.
  Long generation() const noexcept { return generation_; }
  Variant FieldValue(std::size_t column);
  void SetFieldValue(std::size_t column, const Variant& value);
  void AppendChunk(std::size_t column, const Variant& data);
  Variant GetChunk(std::size_t column, Long size);

 private:
  // Chunks go to and come from one column at a time.
  struct ChunkState {
    std::optional<std::size_t> column;
    bool appending = false;
    std::size_t read_offset = 0;
  };

  void RequireClosed() const;
  void RequireUpdatable(std::string_view source);
  // Stores an edit that is left by moving.
  void LeaveRow();
  // Chunks of other columns are done.
  void Touch(std::size_t column);
  void Load(Result result);

  std::shared_ptr<AdoConnection> connection_;
  std::u16string source_;
  Long cursor_location_ = 2;
  Long cursor_type_ = 0;
  Long lock_type_ = 1;
  Long generation_ = 0;
  std::optional<RowBuffer> rows_;  // set while open
  ChunkState chunks_;
};

}  // namespace vandpublic::ado

#endif
