// What a data source says about its tables.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_ODBC_ODBC_CATALOG_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_ODBC_ODBC_CATALOG_H

#include <string>
#include <vector>

#include "platform/posix/ado/odbc/odbc_session.h"
#include "platform/posix/ado/odbc/odbc_types.h"

namespace vandpublic::ado {

using Names = std::vector<std::string>;

// The columns of the table, exactly as they are called. `table` gives catalog, schema and table.
Names ColumnNames(const OdbcSession& session, const OdbcColumn& table);

// The columns of the primary key, then those of each unique index; empty where there is none.
std::vector<Names> UniqueKeys(const OdbcSession& session, const OdbcColumn& table);

// The characters that identifiers are quoted with: one, or none.
std::string IdentifierQuote(const OdbcSession& session);

}  // namespace vandpublic::ado

#endif
