// OpenADORecordSet and SelectField on objects that write down what is done to them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "frame/clsPublic.h"
#include "support/recording_database.h"
#include "support/test_component.h"

namespace vandpublic {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const Raised kProviderError{-2147217900, "The provider", "Bad statement."};
constexpr const char* kComposedProviderError = "The provider (-2147217900) - Bad statement.";
const std::string kIndent(20, ' ');

class RecordsetsTest : public testing::Test {
 protected:
  bool Select(std::string_view column, std::string_view table) {
    return component_.object.SelectField(connection_, column, value_, String(table), u"", u"", true,
                                         u"", u"", true, u"", u"", true, description_);
  }

  std::shared_ptr<RecordingDatabase> database_ = std::make_shared<RecordingDatabase>();
  TestComponent component_{.services = {.database = database_}};
  ConnectionRef connection_ = database_->MakeConnection();
  RecordsetRef recordset_ = database_->MakeRecordset();
  ConnectionRef no_connection_;
  RecordsetRef no_recordset_;
  Variant value_ = u"before";
  String description_ = "old";
};

TEST_F(RecordsetsTest, Recordset_gets_its_properties_and_is_opened) {
  EXPECT_TRUE(component_.object.OpenADORecordSet(connection_, recordset_, "Select 1"));
  EXPECT_THAT(
      database_->calls,
      ElementsAre("Recordset.ActiveConnection = a connection", "Recordset.CursorLocation = 3",
                  "Recordset.LockType = 1", R"(Recordset.Open "Select 1", left out, -1, -1, -1)"));
}

TEST_F(RecordsetsTest, Lock_type_is_handed_on) {
  LockTypeEnum lock_type = adLockOptimistic;
  component_.object.OpenADORecordSet(connection_, recordset_, "", lock_type);
  EXPECT_EQ(database_->calls.at(2), "Recordset.LockType = 3");
  lock_type = static_cast<LockTypeEnum>(99);
  component_.object.OpenADORecordSet(connection_, recordset_, "", lock_type);
  EXPECT_EQ(database_->calls.at(6), "Recordset.LockType = 99");
}

TEST_F(RecordsetsTest, Connection_is_missed_before_the_recordset) {
  for (RecordsetRef* recordset : {&recordset_, &no_recordset_}) {
    EXPECT_EQ(RaisedBy([&] {
                component_.object.OpenADORecordSet(no_connection_, *recordset, "Select 1",
                                                   adLockReadOnly, description_);
              }),
              MemberError(0x24, "OpenADORecordSet", "Connection object not set yet."));
  }
  EXPECT_EQ(RaisedBy([&] {
              component_.object.OpenADORecordSet(connection_, no_recordset_, "Select 1",
                                                 adLockReadOnly, description_);
            }),
            MemberError(0x24, "OpenADORecordSet", "Recordset object not set yet."));
  EXPECT_EQ(description_, "Recordset object not set yet.");
  EXPECT_THAT(database_->calls, IsEmpty());
}

TEST_F(RecordsetsTest, Each_step_that_fails_is_the_last) {
  const char* const steps[] = {"Recordset.ActiveConnection", "Recordset.CursorLocation",
                               "Recordset.LockType", "Recordset.Open"};
  for (std::size_t i = 0; i < std::size(steps); ++i) {
    SCOPED_TRACE(steps[i]);
    database_->calls.clear();
    database_->FailOn(steps[i], kProviderError);
    EXPECT_EQ(RaisedBy([&] {
                component_.object.OpenADORecordSet(connection_, recordset_, "Select 1",
                                                   adLockReadOnly, description_);
              }),
              MemberError(0x24, "OpenADORecordSet", kComposedProviderError));
    EXPECT_EQ(database_->calls.size(), i + 1);
    EXPECT_EQ(description_, kComposedProviderError);
  }
}

TEST_F(RecordsetsTest, Field_is_read_and_the_recordset_closed) {
  database_->value = Long{42};
  EXPECT_TRUE(Select("Name", "Staff"));
  EXPECT_EQ(value_, Variant(Long{42}));
  EXPECT_EQ(description_, "old");
  EXPECT_THAT(database_->calls,
              ElementsAre("Recordset.ActiveConnection = a connection",
                          "Recordset.CursorLocation = 3", "Recordset.LockType = 1",
                          R"(Recordset.Open "Select Name As RetField From Staff", left out, -1, )"
                          R"(-1, -1)",
                          "Recordset.EOF", "Recordset.Fields", "Fields.Item RetField",
                          "Field.Value", "Recordset.State", "Recordset.Close"));
}

TEST_F(RecordsetsTest, No_row_gives_the_empty_text_and_a_null_column_the_null_value) {
  database_->at_end = true;
  EXPECT_TRUE(Select("Name", "Staff"));
  EXPECT_EQ(value_, Variant(u""));
  EXPECT_EQ(database_->calls.back(), "Recordset.Close");
  database_->at_end = false;
  database_->value = NullValue{};
  EXPECT_TRUE(Select("Name", "Staff"));
  EXPECT_TRUE(value_.IsNull());
}

struct StatementCase {
  const char* name1;
  const char* value1;
  bool text1;
  const char* name2;
  const char* value2;
  bool text2;
  const char* name3;
  const char* value3;
  bool text3;
  const char* conditions;
};

TEST_F(RecordsetsTest, Statement_has_the_conditions_that_have_a_name) {
  constexpr StatementCase kCases[] = {
      {"", "", true, "", "", true, "", "", true, ""},
      {"Code", "7", false, "Dept", "A", true, "", "", true, " Where Code=7 And Dept='A'"},
      {"A", "1", true, "B", "2", true, "C", "3", false, " Where A='1' And B='2' And C=3"},
      {"", "V1", true, "N2", "V2", true, "", "", true, " And N2='V2'"},
      {"", "", true, "", "", true, "N3", "3", false, " And N3=3"},
      {" ", "x", true, "", "", true, "", "", true, " Where  ='x'"},
      {"Code", "", false, "", "", true, "", "", true, " Where Code="},
      {"Name", "O'Brien", true, "", "", true, "", "", true, " Where Name='O'Brien'"},
  };
  for (const StatementCase& test : kCases) {
    SCOPED_TRACE(test.conditions);
    database_->calls.clear();
    component_.object.SelectField(connection_, "F", value_, u"T", String(test.name1),
                                  String(test.value1), bool{test.text1}, String(test.name2),
                                  String(test.value2), bool{test.text2}, String(test.name3),
                                  String(test.value3), bool{test.text3});
    EXPECT_EQ(database_->calls.at(3), "Recordset.Open \"Select F As RetField From T" +
                                          std::string(test.conditions) +
                                          "\", left out, -1, -1, -1");
  }
}

TEST_F(RecordsetsTest, Statement_without_a_table_ends_in_a_blank) {
  component_.object.SelectField(connection_, "F", value_);
  EXPECT_EQ(database_->calls.at(3),
            "Recordset.Open \"Select F As RetField From \", left out, -1, "
            "-1, -1");
}

TEST_F(RecordsetsTest, Missing_connection_is_logged_by_both_and_raised_with_the_inner_text) {
  connection_ = nullptr;
  EXPECT_EQ(RaisedBy([&] { Select("Name", "Staff"); }),
            MemberError(0x16, "SelectField", "Connection object not set yet."));
  EXPECT_EQ(description_, "Connection object not set yet.");
  EXPECT_EQ(value_, Variant(u"before"));
  EXPECT_THAT(
      component_.LogLines(),
      ElementsAre("2024-03-05 14:07:09 VandPublic.clsCommon.OpenADORecordSet",
                  kIndent + "Connection object not set yet.",
                  "2024-03-05 14:07:09 VandPublic.clsCommon.SelectField",
                  kIndent + "Connection object not set yet.",
                  kIndent + "clsCommon.OpenADORecordSet (-2147221468) - Connection object not set "
                            "yet."));
}

TEST_F(RecordsetsTest, Failing_statement_is_raised_with_the_inner_text_composed_once) {
  database_->FailOn("Recordset.Open", kProviderError);
  EXPECT_EQ(RaisedBy([&] { Select("Name", "Staff"); }),
            MemberError(0x16, "SelectField", kComposedProviderError));
  EXPECT_EQ(value_, Variant(u"before"));
  EXPECT_THAT(
      component_.LogLines(),
      ElementsAre(
          "2024-03-05 14:07:09 VandPublic.clsCommon.OpenADORecordSet",
          kIndent + kComposedProviderError, "2024-03-05 14:07:09 VandPublic.clsCommon.SelectField",
          kIndent + kComposedProviderError,
          kIndent + "clsCommon.OpenADORecordSet (-2147221468) - " + kComposedProviderError));
}

TEST_F(RecordsetsTest, Failing_value_closes_the_recordset_and_is_composed) {
  for (const char* step : {"Recordset.EOF", "Recordset.Fields", "Fields.Item", "Field.Value"}) {
    SCOPED_TRACE(step);
    database_->FailOn(step, kProviderError);
    EXPECT_EQ(RaisedBy([&] { Select("Name", "Staff"); }),
              MemberError(0x16, "SelectField", kComposedProviderError));
    EXPECT_EQ(database_->calls.back(), "Recordset.Close");
    EXPECT_EQ(value_, Variant(u"before"));
  }
  EXPECT_THAT(component_.LoggedNames(), testing::Each("SelectField"));
}

TEST_F(RecordsetsTest, Failing_close_is_ignored) {
  database_->value = Long{1};
  for (const char* step : {"Recordset.State", "Recordset.Close"}) {
    database_->FailOn(step, kProviderError);
    EXPECT_TRUE(Select("Name", "Staff"));
  }
  EXPECT_EQ(component_.Log(), "");
}

TEST_F(RecordsetsTest, Field_without_database_objects_cannot_be_selected) {
  TestComponent component;
  const std::string composed = Composed(FaultNumber::CannotCreateObject);
  EXPECT_EQ(RaisedBy([&] { component.object.SelectField(connection_, "F", value_); }),
            MemberError(0x16, "SelectField", composed));
}

}  // namespace
}  // namespace vandpublic
