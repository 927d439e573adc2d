// The one table of SQLite's functions.
#include "platform/posix/ado/sql/sqlite_library.h"

namespace vandpublic::ado {

const SqliteLibrary& Sqlite() {
  static const SqliteLibrary library;
  return library;
}

}  // namespace vandpublic::ado
