// The functions that the dialects have in expressions.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_SQL_SQL_FUNCTIONS_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_SQL_SQL_FUNCTIONS_H

#include <span>
#include <string>
#include <string_view>

#include "platform/posix/ado/sql/sql_tokens.h"
#include "runtime/variant.h"

namespace vandpublic::ado {

// What a function is called with: values of the types that SQLite knows, which are the null value,
// Double, String and byte array; whole numbers are doubles.
using SqlArguments = std::span<const Variant>;

struct SqlFunction {
  std::string_view name;  // upper case
  int least = 0;          // arguments
  int most = 0;
  bool jet = false;
  bool foxpro = false;
  bool takes_nulls = false;  // otherwise a null argument makes a null result
  // The dialect's SQLite function gets the arguments; faults of conversions come through.
  Variant (*call)(SqlArguments, Dialect) = nullptr;
};

// All of them.
std::span<const SqlFunction> AllSqlFunctions() noexcept;

// Whether the dialect has a function of that name, in upper case.
bool IsDialectFunction(Dialect dialect, std::string_view upper_name) noexcept;

// The name under which the function is known to SQLite: none of SQLite's own.
std::string SqliteFunctionName(std::string_view upper_name);

}  // namespace vandpublic::ado

#endif
