// SQL data types as column types, and values in both directions.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_ODBC_ODBC_TYPES_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_ODBC_ODBC_TYPES_H

#include <optional>
#include <string>
#include <vector>

#include "platform/posix/ado/odbc/odbc_handles.h"
#include "platform/posix/ado/provider.h"

namespace vandpublic::ado {

// How the driver describes a column.
struct OdbcColumn {
  SQLSMALLINT sql_type = SQL_VARCHAR;
  SQLULEN size = 0;
  bool is_unsigned = false;
  // Where it comes from; the table is empty for an expression.
  std::string catalog;
  std::string schema;
  std::string table;
  std::string name;
};

// The type and sizes of the column in ADO's terms.
void DescribeType(const OdbcColumn& source, OdbcKind kind, Column& column);

// Reads one column as text, nothing for the null value. Columns must be read in order, each once.
std::optional<std::string> ReadText(const OdbcHandle& statement, SQLUSMALLINT number);

// Reads one column of the statement's current row as a value of the column's type, or of the type
// that comes closest where it does not fit.
Variant ReadValue(const OdbcHandle& statement, SQLUSMALLINT number, const Column& column);

// A value bound as a parameter. It must live until the statement was executed.
class OdbcParameter {
 public:
  OdbcParameter(const Variant& value, SQLSMALLINT sql_type);
  OdbcParameter(const OdbcParameter&) = delete;
  OdbcParameter& operator=(const OdbcParameter&) = delete;

  void Bind(const OdbcHandle& statement, SQLUSMALLINT number);

 private:
  void Take(const Variant& value);

  SQLSMALLINT sql_type_;
  SQLSMALLINT c_type_ = SQL_C_CHAR;
  std::string text_;  // bytes too
  SQLBIGINT integer_ = 0;
  double real_ = 0;
  SQLLEN length_ = 0;
};

}  // namespace vandpublic::ado

#endif
