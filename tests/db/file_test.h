// What the tests on databases of files share: a component, a connection, and a folder with copies
// of samples.
#ifndef VANDPUBLIC_TESTS_DB_FILE_TEST_H
#define VANDPUBLIC_TESTS_DB_FILE_TEST_H

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "db/by_name.h"
#include "frame/clsPublic.h"
#include "support/temp_folder.h"
#include "support/test_component.h"

namespace vandpublic::db_tests {

class FileDbTest : public testing::Test {
 protected:
  explicit FileDbTest(const std::vector<std::string>& samples) : folder_(samples) {}
  void SetUp() override { component_.LogFilePath(String(folder_.path().string())); }

  RecordsetRef Open(const std::string& statement, Long lock_type = 1) {
    RecordsetRef rows = MakeRecordset();
    auto lock = static_cast<LockTypeEnum>(lock_type);
    component_.OpenADORecordSet(connection_, rows, statement.c_str(), lock);
    return rows;
  }
  void Execute(const std::string& statement) {
    Call(*connection_, "Execute", {Variant(statement.c_str())});
  }
  // What the look-up member gives, with one condition or none.
  std::string LookUp(const char* field, const char* table, const char* name = "",
                     const char* value = "", bool is_text = true) {
    Variant found;
    EXPECT_TRUE(component_.SelectField(connection_, field, found, String(table), String(name),
                                       String(value), bool{is_text}));
    return Shown(found);
  }
  // All values of one column, in the order of the rows.
  std::string Column(const std::string& statement, std::string_view name) {
    std::string values;
    for (const RecordsetRef rows = Open(statement); !rows->IsAtEnd(); Call(*rows, "MoveNext"))
      values += (values.empty() ? "" : "/") + Shown(Value(*rows, name));
    return values;
  }
  std::string Log(const char* name) const { return folder_.Read(name); }

  TempFolder folder_;
  clsPublic component_;
  ConnectionRef connection_ = MakeConnection();
};

}  // namespace vandpublic::db_tests

#endif
