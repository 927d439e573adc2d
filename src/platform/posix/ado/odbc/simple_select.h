// Statements that read one table, told apart by their text.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_ODBC_SIMPLE_SELECT_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_ODBC_SIMPLE_SELECT_H

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vandpublic::ado {

struct SimpleSelect {
  std::string table;
  std::vector<std::string> aliases;  // of columns
};

// "Select columns From table" with conditions and an order: each row is a row of that table.
// Nothing for joins, groups, DISTINCT, compounds, subqueries in place of a table, and statements
// that begin with anything but SELECT.
std::optional<SimpleSelect> ParseSimpleSelect(std::string_view statement);

}  // namespace vandpublic::ado

#endif
