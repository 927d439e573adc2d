// Tables of files as SQLite's virtual tables.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_SQL_VIRTUAL_TABLE_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_SQL_VIRTUAL_TABLE_H

#include <chrono>
#include <exception>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/posix/ado/sql/file_table.h"
#include "platform/posix/ado/sql/sql_tokens.h"
#include "platform/posix/ado/sql/sqlite_library.h"

namespace vandpublic::ado {

// What the callbacks of one connection to SQLite share.
struct EngineState {
  Dialect dialect = Dialect::Jet;
  std::vector<std::shared_ptr<FileTable>> tables;
  // What a callback raised: no exception may pass through SQLite.
  std::exception_ptr failure;
  // A function that a statement named and the dialect does not have.
  std::string unknown_function;
  bool may_write = false;
  // When a statement that still runs is ended; nothing: never.
  std::optional<std::chrono::steady_clock::time_point> deadline;
};

// Makes the module known to the connection. Its tables are made by
//   CREATE VIRTUAL TABLE name USING file_table(2)
// where 2 is the place of the table in `state`, which must outlive the connection. A column's
// declared type ends in "(2,5)": table 2, column 5; through it a column of a result is traced.
void RegisterVirtualTables(sqlite3* database, EngineState& state);

}  // namespace vandpublic::ado

#endif
