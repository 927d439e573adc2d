// The callbacks of the module. Each catches what it raises and keeps it for the caller of SQLite.
#include "platform/posix/ado/sql/virtual_table.h"

#include <charconv>
#include <new>

#include "platform/posix/ado/ado_errors.h"
#include "platform/posix/ado/sql/sqlite_values.h"

namespace vandpublic::ado {
namespace {

// The base of both must come first: SQLite sees no more of them.
struct Table {
  sqlite3_vtab base{};
  EngineState* state = nullptr;
  FileTable* table = nullptr;
};

struct Cursor {
  sqlite3_vtab_cursor base{};
  std::unique_ptr<RowScan> scan;
  bool at_end = true;
};

Table& TableOf(sqlite3_vtab* base) { return *reinterpret_cast<Table*>(base); }
Cursor& CursorOf(sqlite3_vtab_cursor* base) { return *reinterpret_cast<Cursor*>(base); }

template <class Action>
int Guarded(EngineState& state, Action action) noexcept {
  try {
    action();
    return SQLITE_OK;
  } catch (...) {
    if (!state.failure) state.failure = std::current_exception();
    return SQLITE_ERROR;
  }
}

// The type's name decides how SQLite compares values; what the column is stands in the numbers.
const char* TypeName(DataType type) {
  switch (type) {
    case DataType::Guid:
    case DataType::Char:
    case DataType::WChar:
    case DataType::VarChar:
    case DataType::LongVarChar:
    case DataType::VarWChar:
    case DataType::LongVarWChar:
      return "TEXT";
    case DataType::Binary:
    case DataType::VarBinary:
    case DataType::LongVarBinary:
      return "BLOB";
    default:
      return "NUMERIC";
  }
}

std::string Quoted(const std::string& name) {
  std::string quoted = "\"";
  for (const char c : name) {
    if (c == '\0') continue;  // a damaged name; the declaration would end in it
    quoted += c;
    if (c == '"') quoted += c;
  }
  return quoted + '"';
}

std::string Declaration(const FileTable& table, std::size_t number, Dialect dialect) {
  std::string text = "CREATE TABLE t(";
  const char* const collation = dialect == Dialect::Jet ? " COLLATE vp_text" : " COLLATE RTRIM";
  std::size_t index = 0;
  for (const TableColumn& column : table.Columns()) {
    if (index != 0) text += ", ";
    text += Quoted(column.name) + " " + TypeName(column.type) + "(" + std::to_string(number) + "," +
            std::to_string(index++) + ")" + collation;
  }
  return text + ")";
}

// The argument behind the names of module, database and table is the table's number.
int Connect(sqlite3* database, void* data, int, const char* const* arguments, sqlite3_vtab** result,
            char**) {
  auto& state = *static_cast<EngineState*>(data);
  return Guarded(state, [&] {
    std::size_t number = 0;
    const std::string_view text = arguments[3];
    std::from_chars(text.data(), text.data() + text.size(), number);
    auto table = std::make_unique<Table>();
    table->state = &state;
    table->table = state.tables.at(number).get();
    const std::string declaration = Declaration(*table->table, number, state.dialect);
    if (Sqlite().declare_vtab(database, declaration.c_str()) != SQLITE_OK) {
      Raise(SourceError::Failed, SourceOf(state.dialect), Sqlite().errmsg(database));
    }
    *result = &table.release()->base;
  });
}

int Disconnect(sqlite3_vtab* base) {
  const std::unique_ptr<Table> table(&TableOf(base));
  return SQLITE_OK;
}

// Every row is looked at: the tables have no order that a condition could use.
int BestIndex(sqlite3_vtab*, sqlite3_index_info* info) {
  constexpr double kScanCost = 1e6;
  info->estimatedCost = kScanCost;
  return SQLITE_OK;
}

int Open(sqlite3_vtab* base, sqlite3_vtab_cursor** result) {
  Table& table = TableOf(base);
  return Guarded(*table.state, [&] {
    auto cursor = std::make_unique<Cursor>();
    cursor->scan = table.table->Scan();
    *result = &cursor.release()->base;
  });
}

int Close(sqlite3_vtab_cursor* base) {
  const std::unique_ptr<Cursor> cursor(&CursorOf(base));
  return SQLITE_OK;
}

int Next(sqlite3_vtab_cursor* base) {
  Cursor& cursor = CursorOf(base);
  return Guarded(*TableOf(base->pVtab).state, [&] { cursor.at_end = !cursor.scan->Next(); });
}

int Filter(sqlite3_vtab_cursor* base, int, const char*, int, sqlite3_value**) {
  Cursor& cursor = CursorOf(base);
  Table& table = TableOf(base->pVtab);
  return Guarded(*table.state, [&] {
    // A cursor is used anew for each row of an outer loop.
    cursor.scan = table.table->Scan();
    cursor.at_end = !cursor.scan->Next();
  });
}

int Eof(sqlite3_vtab_cursor* base) { return CursorOf(base).at_end ? 1 : 0; }

int ColumnValue(sqlite3_vtab_cursor* base, sqlite3_context* context, int column) {
  // Asked on behalf of an update that leaves the column alone.
  if (Sqlite().vtab_nochange(context) != 0) return SQLITE_OK;
  return Guarded(*TableOf(base->pVtab).state, [&] {
    SetResult(context, CursorOf(base).scan->Value(static_cast<std::size_t>(column)));
  });
}

int Rowid(sqlite3_vtab_cursor* base, sqlite3_int64* result) {
  *result = CursorOf(base).scan->Locator();
  return SQLITE_OK;
}

GivenValues ValuesOf(int count, sqlite3_value** arguments, bool is_update) {
  GivenValues values;
  // In front of the columns: the old and the new number of the row.
  for (int i = 2; i < count; ++i) {
    const bool unchanged = is_update ? Sqlite().value_nochange(arguments[i]) != 0
                                     : Sqlite().value_type(arguments[i]) == SQLITE_NULL;
    if (unchanged) {
      values.emplace_back();
    } else {
      values.emplace_back(ArgumentValue(arguments[i]));
    }
  }
  return values;
}

int Update(sqlite3_vtab* base, int count, sqlite3_value** arguments, sqlite3_int64* rowid) {
  Table& table = TableOf(base);
  return Guarded(*table.state, [&] {
    const bool is_insert = Sqlite().value_type(arguments[0]) == SQLITE_NULL;
    if (count == 1) {
      table.table->Delete(Sqlite().value_int64(arguments[0]), {});
    } else if (is_insert) {
      *rowid = table.table->Insert(ValuesOf(count, arguments, false));
    } else {
      table.table->Update(Sqlite().value_int64(arguments[0]), {}, ValuesOf(count, arguments, true));
    }
  });
}

const sqlite3_module& Module() {
  static const sqlite3_module module = [] {
    sqlite3_module m{};
    m.iVersion = 1;
    m.xCreate = Connect;
    m.xConnect = Connect;
    m.xBestIndex = BestIndex;
    m.xDisconnect = Disconnect;
    m.xDestroy = Disconnect;
    m.xOpen = Open;
    m.xClose = Close;
    m.xFilter = Filter;
    m.xNext = Next;
    m.xEof = Eof;
    m.xColumn = ColumnValue;
    m.xRowid = Rowid;
    m.xUpdate = Update;
    return m;
  }();
  return module;
}

}  // namespace

void RegisterVirtualTables(sqlite3* database, EngineState& state) {
  if (Sqlite().create_module_v2(database, "file_table", &Module(), &state, nullptr) != SQLITE_OK) {
    throw std::bad_alloc();
  }
}

}  // namespace vandpublic::ado
