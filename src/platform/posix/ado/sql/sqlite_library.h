// The functions of SQLite that the SQL engine uses.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_SQL_SQLITE_LIBRARY_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_SQL_SQLITE_LIBRARY_H

#include <sqlite3.h>

#include "platform/posix/ado/loaded_library.h"

namespace vandpublic::ado {

// Each under the library's name for it, without "sqlite3_".
struct SqliteLibrary {
  LoadedLibrary library{"libsqlite3.so.0"};
  decltype(sqlite3_open_v2)* open_v2 =
      library.Function<decltype(sqlite3_open_v2)>("sqlite3_open_v2");
  decltype(sqlite3_close_v2)* close_v2 =
      library.Function<decltype(sqlite3_close_v2)>("sqlite3_close_v2");
  decltype(sqlite3_errmsg)* errmsg = library.Function<decltype(sqlite3_errmsg)>("sqlite3_errmsg");
  decltype(sqlite3_extended_errcode)* extended_errcode =
      library.Function<decltype(sqlite3_extended_errcode)>("sqlite3_extended_errcode");
  decltype(sqlite3_prepare_v3)* prepare_v3 =
      library.Function<decltype(sqlite3_prepare_v3)>("sqlite3_prepare_v3");
  decltype(sqlite3_step)* step = library.Function<decltype(sqlite3_step)>("sqlite3_step");
  decltype(sqlite3_finalize)* finalize =
      library.Function<decltype(sqlite3_finalize)>("sqlite3_finalize");
  decltype(sqlite3_column_count)* column_count =
      library.Function<decltype(sqlite3_column_count)>("sqlite3_column_count");
  decltype(sqlite3_column_name)* column_name =
      library.Function<decltype(sqlite3_column_name)>("sqlite3_column_name");
  decltype(sqlite3_column_decltype)* column_decltype =
      library.Function<decltype(sqlite3_column_decltype)>("sqlite3_column_decltype");
  decltype(sqlite3_column_type)* column_type =
      library.Function<decltype(sqlite3_column_type)>("sqlite3_column_type");
  decltype(sqlite3_column_int64)* column_int64 =
      library.Function<decltype(sqlite3_column_int64)>("sqlite3_column_int64");
  decltype(sqlite3_column_double)* column_double =
      library.Function<decltype(sqlite3_column_double)>("sqlite3_column_double");
  decltype(sqlite3_column_text)* column_text =
      library.Function<decltype(sqlite3_column_text)>("sqlite3_column_text");
  decltype(sqlite3_column_bytes)* column_bytes =
      library.Function<decltype(sqlite3_column_bytes)>("sqlite3_column_bytes");
  decltype(sqlite3_column_blob)* column_blob =
      library.Function<decltype(sqlite3_column_blob)>("sqlite3_column_blob");
  decltype(sqlite3_create_function_v2)* create_function_v2 =
      library.Function<decltype(sqlite3_create_function_v2)>("sqlite3_create_function_v2");
  decltype(sqlite3_create_collation_v2)* create_collation_v2 =
      library.Function<decltype(sqlite3_create_collation_v2)>("sqlite3_create_collation_v2");
  decltype(sqlite3_create_module_v2)* create_module_v2 =
      library.Function<decltype(sqlite3_create_module_v2)>("sqlite3_create_module_v2");
  decltype(sqlite3_declare_vtab)* declare_vtab =
      library.Function<decltype(sqlite3_declare_vtab)>("sqlite3_declare_vtab");
  decltype(sqlite3_set_authorizer)* set_authorizer =
      library.Function<decltype(sqlite3_set_authorizer)>("sqlite3_set_authorizer");
  decltype(sqlite3_progress_handler)* progress_handler =
      library.Function<decltype(sqlite3_progress_handler)>("sqlite3_progress_handler");
  decltype(sqlite3_vtab_nochange)* vtab_nochange =
      library.Function<decltype(sqlite3_vtab_nochange)>("sqlite3_vtab_nochange");
  decltype(sqlite3_user_data)* user_data =
      library.Function<decltype(sqlite3_user_data)>("sqlite3_user_data");
  decltype(sqlite3_result_null)* result_null =
      library.Function<decltype(sqlite3_result_null)>("sqlite3_result_null");
  decltype(sqlite3_result_int64)* result_int64 =
      library.Function<decltype(sqlite3_result_int64)>("sqlite3_result_int64");
  decltype(sqlite3_result_double)* result_double =
      library.Function<decltype(sqlite3_result_double)>("sqlite3_result_double");
  decltype(sqlite3_result_text64)* result_text64 =
      library.Function<decltype(sqlite3_result_text64)>("sqlite3_result_text64");
  decltype(sqlite3_result_blob64)* result_blob64 =
      library.Function<decltype(sqlite3_result_blob64)>("sqlite3_result_blob64");
  decltype(sqlite3_result_error)* result_error =
      library.Function<decltype(sqlite3_result_error)>("sqlite3_result_error");
  decltype(sqlite3_value_type)* value_type =
      library.Function<decltype(sqlite3_value_type)>("sqlite3_value_type");
  decltype(sqlite3_value_int64)* value_int64 =
      library.Function<decltype(sqlite3_value_int64)>("sqlite3_value_int64");
  decltype(sqlite3_value_double)* value_double =
      library.Function<decltype(sqlite3_value_double)>("sqlite3_value_double");
  decltype(sqlite3_value_text)* value_text =
      library.Function<decltype(sqlite3_value_text)>("sqlite3_value_text");
  decltype(sqlite3_value_blob)* value_blob =
      library.Function<decltype(sqlite3_value_blob)>("sqlite3_value_blob");
  decltype(sqlite3_value_bytes)* value_bytes =
      library.Function<decltype(sqlite3_value_bytes)>("sqlite3_value_bytes");
  decltype(sqlite3_value_nochange)* value_nochange =
      library.Function<decltype(sqlite3_value_nochange)>("sqlite3_value_nochange");
  decltype(sqlite3_malloc64)* malloc64 =
      library.Function<decltype(sqlite3_malloc64)>("sqlite3_malloc64");
  decltype(sqlite3_free)* free = library.Function<decltype(sqlite3_free)>("sqlite3_free");
  decltype(sqlite3_changes)* changes =
      library.Function<decltype(sqlite3_changes)>("sqlite3_changes");
};

// The library, loaded by the first call; error 3706 where it is not installed.
const SqliteLibrary& Sqlite();

}  // namespace vandpublic::ado

#endif
