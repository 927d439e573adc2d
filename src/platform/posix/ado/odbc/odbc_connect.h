// From a connection string to the one that the ODBC driver manager takes.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_ODBC_ODBC_CONNECT_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_ODBC_ODBC_CONNECT_H

#include <string>

#include "platform/posix/ado/connection_string.h"
#include "platform/posix/ado/odbc/odbc_handles.h"

namespace vandpublic::ado {

struct OdbcTarget {
  std::string connection_string;
  OdbcKind kind = OdbcKind::Other;
  std::string password;
};

// With a provider, Data Source becomes DSN, User ID UID, Password PWD, and Initial Catalog
// DATABASE, but for SQLite, which would take it for a file name; further keys are handed on where
// the string names a driver. Without a provider the string is handed on as it is. What the driver
// needs to speak UTF-8 and to report types and row counts as we expect them is added at the end.
OdbcTarget FindOdbcTarget(const OdbcLibrary& library, const ConnectionString& text);

}  // namespace vandpublic::ado

#endif
