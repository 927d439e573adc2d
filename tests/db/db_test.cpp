// Opening data sources and statements.
#include "db/db_test.h"

namespace vandpublic::db_tests {

void DbTest::SetUp() {
  component_.LogFilePath(Folder().string());
  connection_ = Connect();
}

ConnectionRef DbTest::Connect() {
  ConnectionRef connection = MakeConnection();
  const TestSource& source = Source();
  // The member quotes nothing: a password with a semicolon is the caller's to quote.
  const std::string password = '"' + source.password + '"';
  component_.OpenConnAsSQLDNS(connection, kDsn, source.catalog, source.user, password);
  return connection;
}

void DbTest::Execute(Connection& connection, const std::string& statement) {
  Call(connection, "Execute", {Variant(statement.c_str())});
}

void DbTest::MakeTable(const std::string& name, const std::string& columns) {
  Execute("DROP TABLE IF EXISTS " + name);
  Execute("CREATE TABLE " + name + " (" + columns + ")");
}

RecordsetRef DbTest::Open(const std::string& statement, Long lock_type) {
  RecordsetRef rows = MakeRecordset();
  auto lock = static_cast<LockTypeEnum>(lock_type);
  component_.OpenADORecordSet(connection_, rows, statement, lock);
  return rows;
}

}  // namespace vandpublic::db_tests
