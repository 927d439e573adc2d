// The errors of connections and recordsets: numbers, sources and texts as ADO clients know them.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_ADO_ERRORS_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_ADO_ERRORS_H

#include <string_view>

#include "runtime/basic_types.h"

namespace vandpublic::ado {

// Errors of the objects themselves; clients see 0x800A0000 + the value. Each has one text.
enum class ObjectError : Long {
  InvalidArgument = 3001,   // of the wrong kind or out of range
  NoCurrentRecord = 3021,   // before the first or behind the last row, or the row was deleted
  IllegalOperation = 3219,  // not now: a chunk on a short column, Close while editing
  NotUpdatable = 3251,      // the recordset is read-only
  ItemNotFound = 3265,      // no column of that name or number
  WrongType = 3421,         // a value that does not fit its column
  ObjectClosed = 3704,
  ObjectOpen = 3705,
  ProviderNotFound = 3706,
  InvalidConnection = 3709,  // unset, or closed
};

// Errors of data sources.
enum class SourceError : Long {
  Failed = static_cast<Long>(0x80004005u),  // no closer number fits
  PermissionDenied = static_cast<Long>(0x80040E09u),
  CannotConvert = static_cast<Long>(0x80040E07u),
  ParameterMissing = static_cast<Long>(0x80040E10u),  // also an unknown column, for Jet
  BadStatement = static_cast<Long>(0x80040E14u),
  IntegrityViolation = static_cast<Long>(0x80040E2Fu),
  TimedOut = static_cast<Long>(0x80040E31u),
  NoSuchTable = static_cast<Long>(0x80040E37u),
  RowNotLocated = static_cast<Long>(0x80040E38u),
  LogInFailed = static_cast<Long>(0x80040E4Du),
  ValueTooLarge = static_cast<Long>(0x80040E57u),
};

// Sources of errors.
inline constexpr std::string_view kConnectionSource = "ADODB.Connection";
inline constexpr std::string_view kRecordsetSource = "ADODB.Recordset";
inline constexpr std::string_view kFieldsSource = "ADODB.Fields";
inline constexpr std::string_view kFieldSource = "ADODB.Field";
inline constexpr std::string_view kCursorSource = "Microsoft Cursor Engine";
inline constexpr std::string_view kOdbcSource = "Microsoft OLE DB Provider for ODBC Drivers";
inline constexpr std::string_view kJetSource = "Microsoft JET Database Engine";

[[noreturn]] void Raise(ObjectError error, std::string_view source);
// The description is UTF-8, without a password in it.
[[noreturn]] void Raise(SourceError error, std::string_view source, std::string_view description);

// "Object or provider is not capable of performing requested operation.": number 3251 for what a
// source lacks.
[[noreturn]] void RaiseNotCapable(std::string_view source);
// A row that an update must find is not there any more, or is not the only one.
[[noreturn]] void RaiseRowNotLocated();
// Rows that come from no table, or from several.
[[noreturn]] void RaiseNoBaseTable();
// Rows that nothing tells apart: the statement gives neither a key nor other comparable columns.
[[noreturn]] void RaiseNoKeyColumns();

}  // namespace vandpublic::ado

#endif
