// The members that use databases, from the component down to the IDispatch of a stand-in:
// connection strings, properties, the order of the calls and the sizes of the chunks.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "platform/windows/automation/automation_values.h"
#include "platform/windows/automation/dispatch_objects.h"
#include "support/recording_dispatch.h"
#include "support/test_component.h"

namespace vandpublic {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

// Hands out recordsets that the test made; connections are the caller's.
class GivenRecordsets final : public DatabaseObjects {
 public:
  explicit GivenRecordsets(IDispatch* recordset) : recordset_(recordset) {}
  ConnectionRef MakeConnection() override { return nullptr; }
  RecordsetRef MakeRecordset() override { return WrapRecordset(recordset_); }

 private:
  IDispatch* recordset_;
};

class DatabaseMembersTest : public testing::Test {
 protected:
  ComPointer<IDispatch> Make(std::string label, DispatchMembers members) {
    return MakeRecordingObject(log_, std::move(label), std::move(members));
  }
  static DispatchMembers ConnectionMembers() { return {{"ConnectionString", {}}, {"Open", {}}}; }
  // A recordset with one row, whose field RetField has the value.
  ComPointer<IDispatch> MakeRows(const Variant& value, bool at_end) {
    const auto field = Make("Field", {{"Value", Giving(value)}});
    const auto fields = Make("Fields", {{"Item", Giving(field)}});
    return Make("R", {{"ActiveConnection", {}},
                      {"CursorLocation", {}},
                      {"LockType", {}},
                      {"Open", {}},
                      {"Close", {}},
                      {"State", Giving(Long{1})},
                      {"EOF", Giving(at_end)},
                      {"Fields", Giving(fields)}});
  }
  // A binary column with this content; chunks are appended to it and taken from its start.
  ComPointer<IDispatch> MakeColumn() {
    const auto append = [this](std::vector<VARIANT*>& arguments, VARIANT*, EXCEPINFO*) {
      const Variant chunk = FromAutomation(*arguments.at(0));
      if (const ByteArray* const bytes = chunk.AsByteArray()) {
        content_.insert(content_.end(), bytes->Elements().begin(), bytes->Elements().end());
      } else {
        content_.clear();
      }
      return S_OK;
    };
    const auto take = [this](std::vector<VARIANT*>& arguments, VARIANT* result, EXCEPINFO*) {
      const auto wanted = static_cast<std::size_t>(arguments.at(0)->lVal);
      const std::size_t count = std::min(wanted, content_.size() - taken_);
      const auto start = content_.begin() + static_cast<std::ptrdiff_t>(taken_);
      const auto end = start + static_cast<std::ptrdiff_t>(count);
      taken_ += count;
      const Variant chunk =
          count == 0 ? Variant(NullValue{}) : Variant(ByteArray(std::vector<Byte>(start, end)));
      *result = ToAutomation(chunk).Release();
      return S_OK;
    };
    const auto size = [this](std::vector<VARIANT*>&, VARIANT* result, EXCEPINFO*) {
      *result = ToAutomation(static_cast<Long>(content_.size())).Release();
      return S_OK;
    };
    return Make("Col", {{"AppendChunk", append}, {"GetChunk", take}, {"ActualSize", size}});
  }

  DispatchLog log_;
  std::vector<Byte> content_;
  std::size_t taken_ = 0;
  TestComponent component_;
  String description_ = "old";
};

TEST_F(DatabaseMembersTest, A_data_source_is_opened_by_its_connection_string) {
  const auto object = Make("C", ConnectionMembers());
  ConnectionRef connection = WrapConnection(object.get());
  EXPECT_TRUE(component_.object.OpenConnAsSQLDNS(connection, "S1", "db", "u", "p", description_));
  EXPECT_THAT(log_, ElementsAre("put C.ConnectionString = BSTR \"Provider=MSDASQL.1;User ID=u;"
                                "Password=p; Data Source=S1;Initial Catalog=db\"",
                                R"(call C.Open(BSTR "", BSTR "", BSTR "", I4 -1))"));
}

TEST_F(DatabaseMembersTest, A_database_file_is_opened_with_its_trimmed_password) {
  component_.services.files->contents[u"C:\\a.mdb"] = "x";
  const auto object = Make("C", ConnectionMembers());
  ConnectionRef connection = WrapConnection(object.get());
  EXPECT_TRUE(component_.object.OpenConnAsMDB(connection, " C:\\a.mdb ", "  pw  "));
  EXPECT_THAT(log_, ElementsAre("call C.Open(BSTR \"Provider=Microsoft.Jet.OLEDB.4.0;Data Source="
                                "C:\\a.mdb;Jet OLEDB:Database password=pw;\", BSTR \"\", BSTR "
                                "\"\", I4 -1)"));
}

TEST_F(DatabaseMembersTest, A_folder_of_tables_is_opened_by_its_driver) {
  component_.services.files->folders.insert(u"C:\\Data");
  const auto object = Make("C", ConnectionMembers());
  ConnectionRef connection = WrapConnection(object.get());
  EXPECT_TRUE(component_.object.OpenConnAsFoxpro(connection, "C:\\Data"));
  EXPECT_THAT(log_, ElementsAre("call C.Open(BSTR \"Driver={Microsoft Visual FoxPro Driver};"
                                "SourceType=DBF;SourceDB=C:\\Data;Exclusive=No\", BSTR \"\", "
                                "BSTR \"\", I4 -1)"));
}

TEST_F(DatabaseMembersTest, A_providers_error_is_logged_and_raised_in_the_members_name) {
  const auto object =
      Make("C", {{"ConnectionString", {}},
                 {"Open", Raising(static_cast<SCODE>(0x80004005), L"Provider", L"No server.")}});
  ConnectionRef connection = WrapConnection(object.get());
  const std::string composed = "Provider (-2147467259) - No server.";
  EXPECT_EQ(RaisedBy([&] {
              component_.object.OpenConnAsSQLDNS(connection, "S", "d", "u", "p", description_);
            }),
            MemberError(0x25, "OpenConnAsSQLDNS", composed));
  EXPECT_EQ(description_, composed.c_str());
  EXPECT_THAT(component_.LoggedNames(), ElementsAre("OpenConnAsSQLDNS"));
}

TEST_F(DatabaseMembersTest, A_recordset_gets_its_properties_and_is_opened) {
  const auto connection_object = Make("C", {});
  const auto rows_object = MakeRows(Variant(), true);
  ConnectionRef connection = WrapConnection(connection_object.get());
  RecordsetRef rows = WrapRecordset(rows_object.get());
  LockTypeEnum lock_type = adLockOptimistic;
  EXPECT_TRUE(component_.object.OpenADORecordSet(connection, rows, "Select 1", lock_type));
  EXPECT_THAT(log_, ElementsAre("putref R.ActiveConnection = object C",
                                "put R.CursorLocation = I4 3", "put R.LockType = I4 3",
                                R"(call R.Open(BSTR "Select 1", missing, I4 -1, I4 -1, I4 -1))"));
}

TEST_F(DatabaseMembersTest, One_field_is_selected_and_the_recordset_closed_and_released) {
  const auto connection_object = Make("C", {});
  const auto rows_object = MakeRows(Long{42}, false);
  TestComponent component{
      .services = {.database = std::make_shared<GivenRecordsets>(rows_object.get())}};
  ConnectionRef connection = WrapConnection(connection_object.get());
  Variant value = u"before";
  String table = "Staff";
  String name1 = "Code";
  String value1 = "7";
  bool is_text1 = false;
  String name2 = "Dept";
  String value2 = "A";
  EXPECT_TRUE(component.object.SelectField(connection, "Name", value, table, name1, value1,
                                           is_text1, name2, value2));
  EXPECT_EQ(value, Variant(Long{42}));
  EXPECT_THAT(log_,
              ElementsAre("putref R.ActiveConnection = object C", "put R.CursorLocation = I4 3",
                          "put R.LockType = I4 1",
                          "call R.Open(BSTR \"Select Name As RetField From Staff Where "
                          "Code=7 And Dept='A'\", missing, I4 -1, I4 -1, I4 -1)",
                          "get R.EOF", "get R.Fields", R"(get call Fields.Item(BSTR "RetField"))",
                          "get Field.Value", "get R.State", "call R.Close"));
  EXPECT_EQ(CountReferences(rows_object.get()), 1U);
}

TEST_F(DatabaseMembersTest, No_row_gives_the_empty_text) {
  const auto connection_object = Make("C", {});
  const auto rows_object = MakeRows(Long{42}, true);
  TestComponent component{
      .services = {.database = std::make_shared<GivenRecordsets>(rows_object.get())}};
  ConnectionRef connection = WrapConnection(connection_object.get());
  Variant value = u"before";
  EXPECT_TRUE(component.object.SelectField(connection, "Name", value));
  EXPECT_EQ(value, Variant(u""));
  EXPECT_EQ(log_.back(), "call R.Close");
}

TEST_F(DatabaseMembersTest, An_array_goes_to_a_column_in_chunks_of_5120) {
  const auto object = MakeColumn();
  FieldRef column = WrapField(object.get());
  const ByteArray source = Counting(12000, -3);
  Variant argument = source;
  EXPECT_TRUE(component_.object.ArrayToColumn(column, argument));
  EXPECT_THAT(log_, ElementsAre("call Col.AppendChunk(Null)",
                                "call Col.AppendChunk(array of type 17, 1 to 5120)",
                                "call Col.AppendChunk(array of type 17, 1 to 5120)",
                                "call Col.AppendChunk(array of type 17, 1 to 1760)"));
  EXPECT_THAT(content_, ElementsAreArray(source.Elements()));
}

TEST_F(DatabaseMembersTest, A_multiple_of_the_chunk_size_ends_with_False) {
  const auto object = MakeColumn();
  FieldRef column = WrapField(object.get());
  Variant argument = Counting(5120);
  EXPECT_FALSE(component_.object.ArrayToColumn(column, argument));
  EXPECT_EQ(content_.size(), 5120U);
}

TEST_F(DatabaseMembersTest, A_column_comes_back_as_an_array_from_1_in_chunks_of_5120) {
  const auto object = MakeColumn();
  FieldRef column = WrapField(object.get());
  const ByteArray source = Counting(12000, 1);
  content_.assign(source.Elements().begin(), source.Elements().end());
  EXPECT_EQ(component_.object.ColumnToArray(column), Variant(source));
  EXPECT_THAT(log_, ElementsAre("get Col.ActualSize", "call Col.GetChunk(I4 5120)",
                                "call Col.GetChunk(I4 5120)", "call Col.GetChunk(I4 1760)"));
}

TEST_F(DatabaseMembersTest, A_file_goes_to_a_column_and_back) {
  const auto object = MakeColumn();
  FieldRef column = WrapField(object.get());
  const ByteArray bytes = Counting(6000);
  const std::string whole(bytes.Elements().begin(), bytes.Elements().end());
  component_.services.files->contents[u"in"] = whole;
  String in = "in";
  String out = "out";
  EXPECT_TRUE(component_.object.FileToColumn(column, in));
  EXPECT_TRUE(component_.object.ColumnToFile(column, out));
  EXPECT_EQ(component_.services.files->contents[u"out"], whole);
  EXPECT_THAT(
      log_,
      ElementsAre("call Col.AppendChunk(Null)", "call Col.AppendChunk(array of type 17, 1 to 5120)",
                  "call Col.AppendChunk(array of type 17, 1 to 880)", "get Col.ActualSize",
                  "call Col.GetChunk(I4 5120)", "call Col.GetChunk(I4 880)"));
}

TEST_F(DatabaseMembersTest, A_field_that_refuses_chunks_gives_False_quietly) {
  const auto object = Make("Col", {{"AppendChunk", Failing(E_FAIL)}});
  FieldRef column = WrapField(object.get());
  Variant argument = Counting(3);
  EXPECT_FALSE(component_.object.ArrayToColumn(column, argument));
  EXPECT_THAT(component_.LoggedNames(), IsEmpty());
}

}  // namespace
}  // namespace vandpublic
