// What the tests on ODBC data sources share: a component and a connection on the test's source.
#ifndef VANDPUBLIC_TESTS_DB_DB_TEST_H
#define VANDPUBLIC_TESTS_DB_DB_TEST_H

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "db/by_name.h"
#include "db/test_source.h"
#include "frame/clsPublic.h"
#include "platform/database.h"
#include "support/test_component.h"

namespace vandpublic::db_tests {

class DbTest : public testing::Test {
 protected:
  void SetUp() override;

  // A new connection to the data source, opened by the member.
  ConnectionRef Connect();
  // Runs a statement over the connection.
  void Execute(const std::string& statement) { Execute(*connection_, statement); }
  void Execute(Connection& connection, const std::string& statement);
  // Drops the table if it is there and makes it anew.
  void MakeTable(const std::string& name, const std::string& columns);
  // An open recordset.
  RecordsetRef Open(const std::string& statement, Long lock_type = 1);
  std::string Client(const std::string& statement) { return Source().Client(statement); }

  clsPublic component_;
  ConnectionRef connection_;
};

}  // namespace vandpublic::db_tests

#endif
