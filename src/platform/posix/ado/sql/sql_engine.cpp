// From a statement to its rows.
#include "platform/posix/ado/sql/sql_engine.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <optional>
#include <utility>

#include "platform/posix/ado/ado_errors.h"
#include "platform/posix/ado/column_values.h"
#include "platform/posix/ado/sql/file_row_writer.h"
#include "platform/posix/ado/sql/sql_statement.h"
#include "platform/posix/ado/sql/sqlite_connection.h"
#include "platform/posix/ado/sql/sqlite_library.h"
#include "platform/posix/ado/sql/sqlite_values.h"
#include "runtime/coerce.h"
#include "runtime/errors.h"
#include "runtime/object.h"
#include "runtime/utf8.h"

namespace vandpublic::ado {
namespace {

[[noreturn]] void RaiseNoTable(Dialect dialect, const std::string& name) {
  if (dialect == Dialect::Jet) {
    Raise(SourceError::NoSuchTable, kJetSource,
          "The Microsoft Jet database engine cannot find the input table or query '" + name +
              "'.  Make sure it exists and that its name is spelled correctly.");
  }
  Raise(SourceError::NoSuchTable, kOdbcSource, "File '" + name + ".dbf' does not exist.");
}

// SQLite tells what was wrong only by its message.
[[noreturn]] void RaiseBadStatement(Dialect dialect, const EngineState& state,
                                    const std::string& message) {
  constexpr std::string_view kNoColumn = "no such column: ";
  constexpr std::string_view kNoFunction = "no such function: ";
  if (!state.unknown_function.empty() || message.starts_with(kNoFunction)) {
    const std::string name = message.starts_with(kNoFunction) ? message.substr(kNoFunction.size())
                                                              : state.unknown_function;
    Raise(SourceError::BadStatement, SourceOf(dialect),
          "Undefined function '" + name + "' in expression.");
  }
  if (!message.starts_with(kNoColumn)) RaiseSyntaxError(dialect, message);
  if (dialect == Dialect::Jet) {
    Raise(SourceError::ParameterMissing, kJetSource,
          "No value given for one or more required parameters.");
  }
  Raise(SourceError::BadStatement, kOdbcSource,
        "SQL: Column '" + message.substr(kNoColumn.size()) + "' is not found.");
}

// The column of a table that a column of the result stands for, from its declared type "...(2,5)".
std::optional<BaseColumn> BaseOf(const char* declared_type) {
  if (declared_type == nullptr) return std::nullopt;
  const std::string_view text = declared_type;
  const std::size_t open = text.find('(');
  const std::size_t comma = text.find(',');
  if (open == std::string_view::npos || comma == std::string_view::npos) return std::nullopt;
  BaseColumn base;
  std::from_chars(text.data() + open + 1, text.data() + comma, base.table);
  std::from_chars(text.data() + comma + 1, text.data() + text.size() - 1, base.column);
  return base;
}

// Runs one statement.
class Run {
 public:
  // A time limit in seconds, 0 for none.
  Run(TableSource& source, Dialect dialect, const std::string& text, Long time_limit)
      : dialect_(dialect), statement_(ReadStatement(text, dialect)) {
    state_.dialect = dialect;
    if (time_limit > 0) {
      state_.deadline = std::chrono::steady_clock::now() + std::chrono::seconds(time_limit);
    }
    for (const std::string& name : statement_.tables) {
      auto table = source.Open(name);
      if (table == nullptr) RaiseNoTable(dialect, name);
      state_.tables.push_back(std::move(table));
    }
  }

  Result Execute(bool updatable) {
    CheckWritable();
    const std::string locator = statement_.rows_are_table_rows ? LocatorName() : "";
    const Translation translation{
        [this](const std::string& name) { return FindColumn(name) != nullptr; },
        [this](const std::string& name) {
          const TableColumn* const column = FindColumn(name);
          return column != nullptr && IsText(column->type);
        },
        locator};
    const std::string text = TranslateStatement(statement_, dialect_, translation);
    SqliteConnection connection(state_, statement_.tables);
    const SqliteStatement prepared = connection.Prepare(text);
    if (prepared == nullptr) RaiseBadStatement(dialect_, state_, connection.Message());
    ReadColumns(prepared.get(), !locator.empty());
    ReadRows(connection, prepared.get(), !locator.empty());
    if (statement_.verb != Verb::Select) {
      result_.rows_affected = connection.Changes();
      return std::move(result_);
    }
    FinishTypes();
    if (updatable && !locator.empty() && state_.tables[0]->IsWritable()) AddWriter();
    return std::move(result_);
  }

 private:
  void CheckWritable() {
    if (statement_.verb == Verb::Select) return;
    for (const auto& table : state_.tables) {
      if (table->IsWritable()) continue;
      Raise(SourceError::Failed, SourceOf(dialect_), "Operation must use an updateable query.");
    }
    state_.may_write = true;
  }

  const TableColumn* FindColumn(const std::string& name) const {
    for (const auto& table : state_.tables) {
      for (const TableColumn& column : table->Columns()) {
        if (SameName(column.name, name)) return &column;
      }
    }
    return nullptr;
  }

  // SQLite's name for the number of a row: the first that is not the name of a column.
  std::string LocatorName() const {
    for (const char* const name : {"_rowid_", "rowid", "oid"}) {
      if (FindColumn(name) == nullptr) return name;
    }
    return {};
  }

  void ReadColumns(sqlite3_stmt* prepared, bool with_locator) {
    const int count = Sqlite().column_count(prepared) - (with_locator ? 1 : 0);
    for (int i = 0; i < count; ++i) {
      Column column;
      column.name = Sqlite().column_name(prepared, i);
      const auto base = BaseOf(Sqlite().column_decltype(prepared, i));
      bases_.push_back(base);
      if (base) {
        const FileTable& table = *state_.tables.at(base->table);
        const TableColumn& from = table.Columns().at(base->column);
        column.type = from.type;
        column.defined_size = from.defined_size;
        column.is_long = from.is_long;
        column.nullable = from.nullable;
        column.updatable = with_locator && table.IsWritable();
      }
      result_.columns.push_back(std::move(column));
    }
  }

  void ReadRows(SqliteConnection& connection, sqlite3_stmt* prepared, bool with_locator) {
    for (;;) {
      const int code = Sqlite().step(prepared);
      if (code == SQLITE_DONE) return;
      if (code != SQLITE_ROW) RaiseStepFailed(connection, code);
      Row row;
      const int count = static_cast<int>(result_.columns.size());
      if (with_locator) row.locator = Sqlite().column_int64(prepared, count);
      for (int i = 0; i < count; ++i)
        row.values.push_back(ValueAt(prepared, i, row.locator));
      result_.rows.push_back(std::move(row));
    }
  }

  [[noreturn]] void RaiseStepFailed(const SqliteConnection& connection, int code) {
    if (state_.failure) RethrowAsSourceError();
    if (code == SQLITE_INTERRUPT) {
      Raise(SourceError::TimedOut, SourceOf(dialect_), "Timeout expired");
    }
    Raise(SourceError::Failed, SourceOf(dialect_), connection.Message());
  }

  // Faults of conversions, as in Left('a', -1), in a data source's words.
  [[noreturn]] void RethrowAsSourceError() {
    try {
      std::rethrow_exception(state_.failure);
    } catch (const RuntimeFault& fault) {
      RaiseConversion(fault);
    }
  }

  [[noreturn]] void RaiseConversion(const RuntimeFault& fault) {
    throw AutomationError(static_cast<Long>(SourceError::CannotConvert),
                          FromUtf8(SourceOf(dialect_)), fault.description());
  }

  Variant ValueAt(sqlite3_stmt* prepared, int index, std::int64_t locator) {
    Variant plain = PlainColumnValue(prepared, index);
    const auto& base = bases_[static_cast<std::size_t>(index)];
    if (!base) return plain;
    const DataType type = result_.columns[static_cast<std::size_t>(index)].type;
    if (MayBeRounded(type) && locator != 0 && !plain.IsNull()) return ExactValue(*base, locator);
    return Typed(plain, type);
  }

  Variant Typed(const Variant& plain, DataType type) {
    try {
      return AsType(plain, type);
    } catch (const RuntimeFault& fault) {
      RaiseConversion(fault);
    }
  }

  // From the table itself: on its way through SQLite an amount or a decimal is a double.
  Variant ExactValue(const BaseColumn& base, std::int64_t locator) {
    if (exact_scan_ == nullptr) exact_scan_ = state_.tables[base.table]->Scan();
    if (exact_scan_->Locator() != locator && !exact_scan_->Seek(locator)) RaiseRowNotLocated();
    return exact_scan_->Value(base.column);
  }

  // Columns of expressions are of the type that all of their values have in common.
  void FinishTypes() {
    for (std::size_t i = 0; i < result_.columns.size(); ++i) {
      if (!bases_[i]) FinishType(i);
    }
  }

  void FinishType(std::size_t index) {
    bool any_text = false;
    bool any_number = false;
    bool any_fraction = false;
    bool any_bytes = false;
    for (const Row& row : result_.rows) {
      const Variant& value = row.values[index];
      any_text = any_text || value.Get<String>() != nullptr;
      any_fraction = any_fraction || value.Get<double>() != nullptr;
      any_number = any_number || value.Get<Long>() != nullptr;
      any_bytes = any_bytes || value.AsByteArray() != nullptr;
    }
    Column& column = result_.columns[index];
    if (any_bytes) {
      column.type = DataType::LongVarBinary;
      column.is_long = true;
      column.defined_size = INT32_MAX;
    } else if (!any_text && (any_number || any_fraction)) {
      column.type = any_fraction ? DataType::Double : DataType::Integer;
      column.defined_size = any_fraction ? 8 : 4;
    } else {
      column.type = dialect_ == Dialect::Jet ? DataType::VarWChar : DataType::VarChar;
      column.defined_size = 255;
    }
    for (Row& row : result_.rows)
      row.values[index] = Typed(row.values[index], column.type);
  }

  void AddWriter() {
    std::vector<std::optional<std::size_t>> columns;
    for (const auto& base : bases_) {
      columns.push_back(base ? std::optional(base->column) : std::nullopt);
    }
    result_.writer = std::make_unique<FileRowWriter>(state_.tables[0], std::move(columns));
  }

  Dialect dialect_;
  SqlStatement statement_;
  EngineState state_;
  Result result_;
  std::vector<std::optional<BaseColumn>> bases_;  // of the result's columns
  std::unique_ptr<RowScan> exact_scan_;
};

}  // namespace

SqlEngine::SqlEngine(std::unique_ptr<TableSource> source, Dialect dialect)
    : source_(std::move(source)), dialect_(dialect) {
  Sqlite();  // loaded now, so that a connection fails where its statements would
}

Result SqlEngine::Execute(const std::string& statement, bool updatable) {
  return Run(*source_, dialect_, statement, command_timeout_).Execute(updatable);
}

}  // namespace vandpublic::ado
