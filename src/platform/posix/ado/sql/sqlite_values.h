// Values on their way into SQLite and out of it.
//
// SQLite knows integers, doubles, UTF-8 texts, bytes and null. True is -1 and False 0, a date its
// day number, an amount the double nearest to it.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_SQL_SQLITE_VALUES_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_SQL_SQLITE_VALUES_H

#include "platform/posix/ado/provider.h"
#include "platform/posix/ado/sql/sqlite_library.h"
#include "runtime/variant.h"

namespace vandpublic::ado {

// The result of a function, or the value of a virtual table's column.
void SetResult(sqlite3_context* context, const Variant& value);

// An argument as it is: the null value, Double, String or byte array.
Variant ArgumentValue(sqlite3_value* value);

// A value of a result's row: the null value, Long, Double (also for larger whole numbers), String
// or byte array.
Variant PlainColumnValue(sqlite3_stmt* statement, int column);

// A plain value as a column of that type has it. What the type cannot hold is a fault of the
// conversion: the rows of a union need not all be of the type that the first one has.
Variant AsType(const Variant& plain, DataType type);

// Whether a double may lose digits of values of the type.
bool MayBeRounded(DataType type);

}  // namespace vandpublic::ado

#endif
