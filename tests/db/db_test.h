// What the database tests share: a component and a connection on the test's data source, and short
// ways to drive objects by name.
#ifndef VANDPUBLIC_TESTS_DB_DB_TEST_H
#define VANDPUBLIC_TESTS_DB_DB_TEST_H

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "db/test_source.h"
#include "frame/clsPublic.h"
#include "platform/database.h"
#include "runtime/variant.h"
#include "support/test_component.h"

namespace vandpublic::db_tests {

Variant Get(Object& object, std::string_view name);
void Set(Object& object, std::string_view name, Variant value);
Variant Call(Object& object, std::string_view name, std::vector<Variant> arguments = {});

// A variant as a short text: "Long 5", "String abc", "Null", "bytes 0..2 010203".
std::string Shown(const Variant& value);

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
  FieldRef FieldOf(Recordset& rows, std::string_view name);
  Variant Value(Recordset& rows, std::string_view name) { return FieldOf(rows, name)->GetValue(); }
  std::string Client(const std::string& statement) { return Source().Client(statement); }

  clsPublic component_;
  ConnectionRef connection_;
};

// Bytes that show when one is lost, doubled or moved.
std::vector<Byte> Pattern(std::size_t size);
std::string HexDigits(const std::vector<Byte>& bytes);

void WriteFile(const std::filesystem::path& file, const std::vector<Byte>& bytes);
std::string FileContent(const std::filesystem::path& file);

}  // namespace vandpublic::db_tests

#endif
