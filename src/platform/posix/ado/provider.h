// What a kind of data source implements, so that connections and recordsets work on it.
//
// The layer above does everything clients see: it keeps the rows of a statement in memory, moves
// over them, collects edits and chunks, and checks states. A source opens, runs statements and
// writes single rows. To add one, derive a Session, write a function that opens it from a
// connection string, and enter that function in providers.cpp.
//
// Texts are UTF-8 here, except in values. Failures are AutomationErrors with the numbers of
// ado_errors.h; no error text may hold a password.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_PROVIDER_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_PROVIDER_H

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/posix/ado/connection_string.h"
#include "runtime/variant.h"

namespace vandpublic::ado {

// What a column holds, with the codes clients read in Field.Type; behind each the type of variant
// that its values are. A value may also be the null value.
enum class DataType : Long {
  SmallInt = 2,          // Integer
  Integer = 3,           // Long
  Single = 4,            // Single
  Double = 5,            // Double
  Currency = 6,          // Currency
  Date = 7,              // Date
  Boolean = 11,          // Boolean
  UnsignedTinyInt = 17,  // Byte
  BigInt = 20,           // Decimal
  Guid = 72,             // String: "{...}"
  Binary = 128,          // byte array, fixed length
  Char = 129,            // String, padded to its width
  WChar = 130,           // String, padded to its width
  Numeric = 131,         // Decimal
  DBDate = 133,          // Date
  DBTime = 134,          // Date: day 0 and the time
  DBTimeStamp = 135,     // Date
  VarChar = 200,         // String
  LongVarChar = 201,     // String, long
  VarWChar = 202,        // String
  LongVarWChar = 203,    // String, long
  VarBinary = 204,       // byte array
  LongVarBinary = 205,   // byte array, long
};

struct Column {
  std::string name;  // as the result labels it
  DataType type = DataType::VarWChar;
  // The most characters or bytes that a value may have; for other types the size of a value.
  Long defined_size = 0;
  bool is_long = false;  // takes AppendChunk and GetChunk
  bool nullable = true;
  bool updatable = false;  // stands for a column of a table, and may be written
  bool is_key = false;     // part of what identifies the row
};

struct Row {
  std::vector<Variant> values;  // one a column; byte arrays have the lower bound 0
  // Whatever the source needs to find the row again, such as a record number; it is only kept.
  std::int64_t locator = 0;
};

// One flag a column: which values of a row were assigned.
using ColumnFlags = std::vector<bool>;

// Writes single rows of one result back to where they came from. It is destroyed before its
// session. Every operation is complete when it returns, and has changed nothing when it throws.
class RowWriter {
 public:
  virtual ~RowWriter() = default;

  // Stores the flagged values of `after` in the row that was read as `before`. That row must be
  // found, and be the only one: else RaiseRowNotLocated(). May correct `after`, such as a new
  // locator.
  virtual void Update(const Row& before, Row& after, const ColumnFlags& changed) = 0;
  // Adds a row of the flagged values; the others get their defaults.
  virtual void Insert(Row& added, const ColumnFlags& given) = 0;
  // Removes the row that was read as `row`, found as in Update.
  virtual void Delete(const Row& row) = 0;
};

// What a statement came to.
struct Result {
  std::vector<Column> columns;  // none: the statement gives no rows
  std::vector<Row> rows;        // all of them
  Long rows_affected = -1;      // by a statement without rows; -1: not known
  // Null where no row can be written, because of the source or of the statement.
  std::unique_ptr<RowWriter> writer;
};

// An open data source. The destructor closes it and lets no exception out.
class Session {
 public:
  virtual ~Session() = default;

  // Runs one statement and reads all of its rows. A writer is needed only when `updatable`.
  virtual Result Execute(const std::string& statement, bool updatable) = 0;

  // How long a statement may take from now on, in seconds; 0 without end.
  virtual void SetCommandTimeout(Long) {}

  // Transactions; a source without them leaves these alone, and they raise 3251. Begin is not
  // called inside a transaction, the others only inside one. A session that is destroyed inside
  // one undoes it.
  virtual void Begin();
  virtual void Commit();
  virtual void Rollback();
};

// Opens a data source. Keys that it does not know are ignored.
using OpenSession = std::unique_ptr<Session> (*)(const ConnectionString&);

// The function that opens what the string asks for; 3706 when nothing does.
OpenSession FindProvider(const ConnectionString& connection_string);

}  // namespace vandpublic::ado

#endif
