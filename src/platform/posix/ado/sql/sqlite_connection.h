// One connection to SQLite, set up for one statement of a dialect.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_SQL_SQLITE_CONNECTION_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_SQL_SQLITE_CONNECTION_H

#include <memory>
#include <string>

#include "platform/posix/ado/sql/sqlite_library.h"
#include "platform/posix/ado/sql/virtual_table.h"

namespace vandpublic::ado {

struct StatementCloser {
  void operator()(sqlite3_stmt* statement) const noexcept { Sqlite().finalize(statement); }
};
using SqliteStatement = std::unique_ptr<sqlite3_stmt, StatementCloser>;

// A database in memory with the state's tables, the dialect's functions and its comparison of
// texts, and nothing else. The state must outlive it.
class SqliteConnection {
 public:
  // `names` are the names of the tables in `state`, in their order.
  SqliteConnection(EngineState& state, const std::vector<std::string>& names);

  // Null where the statement is not right; Message tells why.
  SqliteStatement Prepare(const std::string& statement);
  std::string Message() const;
  // Rows that the last statement changed.
  int Changes() const;

 private:
  struct Closer {
    void operator()(sqlite3* database) const noexcept { Sqlite().close_v2(database); }
  };
  using Handle = std::unique_ptr<sqlite3, Closer>;

  static Handle OpenMemory();

  EngineState& state_;
  Handle database_;
};

}  // namespace vandpublic::ado

#endif
