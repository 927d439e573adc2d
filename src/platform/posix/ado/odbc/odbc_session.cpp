// Connecting, running statements and reading their rows.
#include "platform/posix/ado/odbc/odbc_session.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/posix/ado/ado_errors.h"
#include "platform/posix/ado/odbc/odbc_types.h"
#include "platform/posix/ado/odbc/odbc_writer.h"

namespace vandpublic::ado {
namespace {

// Drivers read texts up to a zero character, whatever length they are told.
void RefuseZeros(std::string_view text) {
  if (text.find('\0') == std::string_view::npos) return;
  Raise(ObjectError::InvalidArgument, kConnectionSource);
}

// The interface passes numbers as pointers.
SQLPOINTER AttributeValue(std::uintptr_t value) {
  return reinterpret_cast<SQLPOINTER>(value);  // NOLINT(performance-no-int-to-ptr)
}

Long TimeoutOf(const ConnectionString& text) {
  const std::string value = text.Value("Connect Timeout");
  return static_cast<Long>(std::strtol(value.c_str(), nullptr, 10));
}

std::string TextAttribute(const OdbcHandle& statement, SQLUSMALLINT number, SQLUSMALLINT field) {
  std::array<char, 1024> buffer{};
  SQLSMALLINT length = 0;
  const SQLRETURN result =
      statement.library().ColAttribute(statement.get(), number, field, buffer.data(),
                                       static_cast<SQLSMALLINT>(buffer.size()), &length, nullptr);
  return SQL_SUCCEEDED(result) ? std::string(buffer.data()) : std::string();
}

SQLLEN NumberAttribute(const OdbcHandle& statement, SQLUSMALLINT number, SQLUSMALLINT field) {
  SQLLEN value = 0;
  const SQLRETURN result =
      statement.library().ColAttribute(statement.get(), number, field, nullptr, 0, nullptr, &value);
  return SQL_SUCCEEDED(result) ? value : 0;
}

OdbcColumn DescribeColumn(const OdbcHandle& statement, SQLUSMALLINT number, Column& column) {
  OdbcColumn source;
  std::array<SQLCHAR, 1024> name{};
  SQLSMALLINT name_length = 0;
  SQLSMALLINT digits = 0;
  SQLSMALLINT nullable = SQL_NULLABLE_UNKNOWN;
  statement.Check(statement.library().DescribeCol(
      statement.get(), number, name.data(), static_cast<SQLSMALLINT>(name.size()), &name_length,
      &source.sql_type, &source.size, &digits, &nullable));
  column.name = reinterpret_cast<const char*>(name.data());
  column.nullable = nullable != SQL_NO_NULLS;
  const bool whole = source.sql_type == SQL_SMALLINT || source.sql_type == SQL_INTEGER;
  source.is_unsigned = whole && NumberAttribute(statement, number, SQL_DESC_UNSIGNED) == SQL_TRUE;
  return source;
}

void FindOrigin(const OdbcHandle& statement, SQLUSMALLINT number, OdbcColumn& source) {
  source.table = TextAttribute(statement, number, SQL_DESC_BASE_TABLE_NAME);
  source.name = TextAttribute(statement, number, SQL_DESC_BASE_COLUMN_NAME);
  source.schema = TextAttribute(statement, number, SQL_DESC_SCHEMA_NAME);
  source.catalog = TextAttribute(statement, number, SQL_DESC_CATALOG_NAME);
}

std::vector<Row> ReadRows(const OdbcHandle& statement, const std::vector<Column>& columns) {
  std::vector<Row> rows;
  while (statement.Check(statement.library().Fetch(statement.get()))) {
    Row& row = rows.emplace_back();
    row.values.reserve(columns.size());
    for (std::size_t i = 0; i < columns.size(); ++i) {
      row.values.push_back(ReadValue(statement, static_cast<SQLUSMALLINT>(i + 1), columns[i]));
    }
  }
  return rows;
}

Long RowsAffected(const OdbcHandle& statement, bool any) {
  SQLLEN count = 0;
  if (!any) return 0;
  statement.Check(statement.library().RowCount(statement.get(), &count));
  return count < 0 ? -1 : static_cast<Long>(std::min<SQLLEN>(count, INT32_MAX));
}

// Where no driver is installed, a client hears of that rather than of its data source.
void RequireSomeDriver(const OdbcHandle& environment) {
  std::array<SQLCHAR, 256> name{};
  std::array<SQLCHAR, 256> attributes{};
  SQLSMALLINT name_length = 0;
  SQLSMALLINT attributes_length = 0;
  const SQLRETURN first = environment.library().Drivers(
      environment.get(), SQL_FETCH_FIRST, name.data(), static_cast<SQLSMALLINT>(name.size()),
      &name_length, attributes.data(), static_cast<SQLSMALLINT>(attributes.size()),
      &attributes_length);
  if (first == SQL_NO_DATA) Raise(ObjectError::ProviderNotFound, kConnectionSource);
}

}  // namespace

OdbcSession::OdbcSession(const ConnectionString& text)
    : environment_(LoadOdbc()), connection_(SQL_HANDLE_DBC, environment_) {
  RefuseZeros(text.text());
  const OdbcLibrary& library = connection_.library();
  const OdbcTarget target = FindOdbcTarget(library, text);
  RefuseZeros(target.connection_string);
  connection_.set_kind(target.kind);
  connection_.set_secret(target.password);
  if (const Long timeout = TimeoutOf(text); timeout > 0) {
    library.SetConnectAttr(connection_.get(), SQL_ATTR_LOGIN_TIMEOUT,
                           AttributeValue(static_cast<std::uintptr_t>(timeout)), SQL_IS_UINTEGER);
  }
  const SQLRETURN connected =
      library.DriverConnect(connection_.get(), nullptr, OdbcText(target.connection_string), SQL_NTS,
                            nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT);
  if (!SQL_SUCCEEDED(connected)) RequireSomeDriver(environment_);
  connection_.Check(connected);
}

OdbcSession::~OdbcSession() {
  try {
    if (in_transaction_) EndTransaction(false);
  } catch (...) {
    // A connection that is broken has undone it already.
  }
  connection_.library().Disconnect(connection_.get());
}

OdbcHandle OdbcSession::NewStatement() const { return {SQL_HANDLE_STMT, connection_}; }

void OdbcSession::LimitTime(const OdbcHandle& statement) const {
  if (!can_limit_time_) return;
  // Drivers that cannot do it say so, and are asked once; their statements run without a limit.
  const SQLRETURN set = connection_.library().SetStmtAttr(
      statement.get(), SQL_ATTR_QUERY_TIMEOUT,
      AttributeValue(static_cast<std::uintptr_t>(command_timeout_)), SQL_IS_UINTEGER);
  can_limit_time_ = SQL_SUCCEEDED(set);
}

Result OdbcSession::Execute(const std::string& text, bool updatable) {
  RefuseZeros(text);
  const OdbcHandle statement = NewStatement();
  const OdbcLibrary& library = connection_.library();
  LimitTime(statement);
  const bool any = statement.Check(library.ExecDirect(statement.get(), OdbcText(text), SQL_NTS));
  SQLSMALLINT count = 0;
  statement.Check(library.NumResultCols(statement.get(), &count));

  Result result;
  if (count <= 0) {
    result.rows_affected = RowsAffected(statement, any);
    return result;
  }
  std::vector<OdbcColumn> sources;
  result.columns.resize(static_cast<std::size_t>(count));
  for (std::size_t i = 0; i < result.columns.size(); ++i) {
    const auto number = static_cast<SQLUSMALLINT>(i + 1);
    sources.push_back(DescribeColumn(statement, number, result.columns[i]));
    DescribeType(sources.back(), connection_.kind(), result.columns[i]);
    if (updatable) FindOrigin(statement, number, sources.back());
  }
  result.rows = ReadRows(statement, result.columns);
  if (updatable) {
    result.writer = OdbcWriter::Make(*this, text, std::move(sources), result.columns);
  }
  return result;
}

void OdbcSession::Run(const std::string& text) const {
  const OdbcHandle statement = NewStatement();
  statement.Check(connection_.library().ExecDirect(statement.get(), OdbcText(text), SQL_NTS));
}

void OdbcSession::SetCommandTimeout(Long seconds) {
  command_timeout_ = seconds;
  can_limit_time_ = true;
  if (connection_.kind() != OdbcKind::MariaDb) return;
  // Its driver ignores the statement attribute, and locks have a time limit of their own. Not every
  // server of the family knows both settings.
  constexpr Long kLongestWait = 1073741824;
  const std::string limit = std::to_string(seconds);
  const std::string wait = std::to_string(seconds == 0 ? kLongestWait : seconds);
  for (const std::string& setting :
       {"max_statement_time = " + limit, "innodb_lock_wait_timeout = " + wait}) {
    const OdbcHandle statement = NewStatement();
    connection_.library().ExecDirect(statement.get(), OdbcText("SET SESSION " + setting), SQL_NTS);
  }
}

void OdbcSession::StartTransaction() const {
  // SQLite's driver loses count of transactions when a full disk ends one; the statements of the
  // engine itself do not.
  if (connection_.kind() == OdbcKind::SQLite) return Run("BEGIN");
  connection_.Check(connection_.library().SetConnectAttr(
      connection_.get(), SQL_ATTR_AUTOCOMMIT, AttributeValue(SQL_AUTOCOMMIT_OFF), SQL_IS_UINTEGER));
}

void OdbcSession::EndTransaction(bool commit) const {
  if (connection_.kind() == OdbcKind::SQLite) return Run(commit ? "COMMIT" : "ROLLBACK");
  const OdbcLibrary& library = connection_.library();
  connection_.Check(
      library.EndTran(SQL_HANDLE_DBC, connection_.get(), commit ? SQL_COMMIT : SQL_ROLLBACK));
  connection_.Check(library.SetConnectAttr(connection_.get(), SQL_ATTR_AUTOCOMMIT,
                                           AttributeValue(SQL_AUTOCOMMIT_ON), SQL_IS_UINTEGER));
}

void OdbcSession::Begin() {
  StartTransaction();
  in_transaction_ = true;
}

void OdbcSession::Commit() {
  EndTransaction(true);
  in_transaction_ = false;
}

void OdbcSession::Rollback() {
  in_transaction_ = false;
  EndTransaction(false);
}

std::unique_ptr<Session> OpenOdbcSession(const ConnectionString& text) {
  return std::make_unique<OdbcSession>(text);
}

}  // namespace vandpublic::ado
