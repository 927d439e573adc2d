// The recording objects.
#include "support/recording_database.h"

#include <algorithm>
#include <utility>

namespace vandpublic {
namespace {

using DatabaseRef = std::shared_ptr<RecordingDatabase>;

std::string Quoted(std::u16string_view text) { return "\"" + ToUtf8(text) + "\""; }

class RecordingConnection final : public Connection {
 public:
  explicit RecordingConnection(DatabaseRef database) : database_(std::move(database)) {}

  void SetConnectionString(std::u16string_view text) override {
    database_->Note("Connection.ConnectionString = " + ToUtf8(text));
  }
  void Open(std::u16string_view connection_string, std::u16string_view user_id,
            std::u16string_view password, Long options) override {
    database_->Note("Connection.Open " + Quoted(connection_string) + ", " + Quoted(user_id) + ", " +
                    Quoted(password) + ", " + std::to_string(options));
  }

 private:
  DatabaseRef database_;
};

class RecordingField final : public Field {
 public:
  explicit RecordingField(DatabaseRef database) : database_(std::move(database)) {}

  Variant GetValue() override {
    database_->Note("Field.Value");
    return database_->value;
  }
  Long GetActualSize() override {
    database_->Note("Field.ActualSize");
    return database_->actual_size.value_or(static_cast<Long>(database_->content.size()));
  }
  void AppendChunk(const Variant& data) override {
    const ByteArray* const bytes = data.AsByteArray();
    if (bytes == nullptr) {
      database_->Note("Field.AppendChunk type " + std::to_string(static_cast<int>(data.Type())));
      return;
    }
    const ArrayBound bound = bytes->Bound();
    database_->Note("Field.AppendChunk " + std::to_string(bound.lower) + " to " +
                    std::to_string(bound.lower + bound.count - 1));
    const auto elements = bytes->Elements();
    database_->content.insert(database_->content.end(), elements.begin(), elements.end());
  }
  Variant GetChunk(Long size) override {
    database_->Note("Field.GetChunk " + std::to_string(size));
    const std::span<const Byte> all = database_->content;
    const std::size_t count = std::min(all.size() - taken_, static_cast<std::size_t>(size));
    if (count == 0) return NullValue{};
    if (database_->gives_text) return "text";
    const auto piece = all.subspan(taken_, count);
    taken_ += count;
    return ByteArray(std::vector<Byte>(piece.begin(), piece.end()));
  }

 private:
  DatabaseRef database_;
  std::size_t taken_ = 0;
};

class RecordingFields final : public Fields {
 public:
  explicit RecordingFields(DatabaseRef database) : database_(std::move(database)) {}

  FieldRef GetItem(std::u16string_view name) override {
    database_->Note("Fields.Item " + ToUtf8(name));
    return std::make_shared<RecordingField>(database_);
  }

 private:
  DatabaseRef database_;
};

class RecordingRecordset final : public Recordset {
 public:
  explicit RecordingRecordset(DatabaseRef database) : database_(std::move(database)) {}

  void SetActiveConnection(const ConnectionRef& connection) override {
    database_->Note("Recordset.ActiveConnection = " +
                    std::string(connection != nullptr ? "a connection" : "nothing"));
  }
  void SetCursorLocation(Long location) override {
    database_->Note("Recordset.CursorLocation = " + std::to_string(location));
  }
  void SetLockType(Long lock_type) override {
    database_->Note("Recordset.LockType = " + std::to_string(lock_type));
  }
  void Open(std::u16string_view source, const ConnectionRef& active_connection, Long cursor_type,
            Long lock_type, Long options) override {
    database_->Note("Recordset.Open " + Quoted(source) + ", " +
                    (active_connection != nullptr ? "a connection" : "left out") + ", " +
                    std::to_string(cursor_type) + ", " + std::to_string(lock_type) + ", " +
                    std::to_string(options));
    state_ = kStateOpen;
  }
  void Close() override {
    state_ = kStateClosed;
    database_->Note("Recordset.Close");
  }
  Long GetState() override {
    database_->Note("Recordset.State");
    return state_;
  }
  bool IsAtEnd() override {
    database_->Note("Recordset.EOF");
    return database_->at_end;
  }
  FieldsRef GetFields() override {
    database_->Note("Recordset.Fields");
    return std::make_shared<RecordingFields>(database_);
  }

 private:
  DatabaseRef database_;
  Long state_ = kStateClosed;
};

}  // namespace

ConnectionRef RecordingDatabase::MakeConnection() {
  return std::make_shared<RecordingConnection>(shared_from_this());
}

RecordsetRef RecordingDatabase::MakeRecordset() {
  return std::make_shared<RecordingRecordset>(shared_from_this());
}

FieldRef RecordingDatabase::MakeField() {
  return std::make_shared<RecordingField>(shared_from_this());
}

void RecordingDatabase::Note(std::string call) {
  calls.push_back(std::move(call));
  for (const auto& [start, error] : failures_) {
    if (!calls.back().starts_with(start)) continue;
    const Raised raised = error;
    failures_.erase(start);
    throw AutomationError(raised.number, FromUtf8(raised.source), FromUtf8(raised.description));
  }
}

}  // namespace vandpublic
