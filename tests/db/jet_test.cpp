// The database members on Jet databases, on copies of the samples. Cases that other kinds of
// sources have too bear the same names.
#include <chrono>
#include <filesystem>

#include "db/file_test.h"
#include "support/expected_rows.h"
#include "support/test_data.h"

namespace vandpublic::db_tests {
namespace {

constexpr const char* kJetSource = "Microsoft JET Database Engine";
constexpr Long kOptimistic = 3;

class JetTest : public FileDbTest {
 protected:
  JetTest()
      : FileDbTest({"jet/testV1997.mdb", "jet/test2V1997.mdb", "jet/fixedTextTestV2000.mdb",
                    "jet/V2003_with-password.mdb", "jet/charsetGBK.mdb"}) {}
  void SetUp() override {
    FileDbTest::SetUp();
    OpenDatabase("testV1997.mdb");
  }

  void OpenDatabase(const char* name, const char* password = "") {
    connection_ = MakeConnection();
    component_.OpenConnAsMDB(connection_, String(folder_.File(name)), String(password));
  }
  Raised Opening(const std::string& path, const std::string& password = {}) {
    ConnectionRef connection = MakeConnection();
    return RaisedBy([&] { component_.OpenConnAsMDB(connection, String(path), String(password)); });
  }
  Raised Running(const char* statement) {
    return RaisedBy([&] { Execute(statement); });
  }
};

class ValuesTest : public JetTest {};

TEST_F(ValuesTest, Have_the_type_of_their_column) {
  const RecordsetRef rows = Open("Select * From Table1 Where C=2");
  EXPECT_EQ(Shown(Value(*rows, "A")), "String abcdefg");
  EXPECT_EQ(Shown(Value(*rows, "D")), "Integer 222");
  EXPECT_EQ(Shown(Value(*rows, "E")), "Long 333333333");
  EXPECT_EQ(Shown(Value(*rows, "F")), "Double 444.555");
  EXPECT_EQ(Shown(Value(*rows, "G")), "Date 1974-09-21 00:00:00");
  EXPECT_EQ(Shown(Value(*rows, "H")), "Currency 3.5");
  EXPECT_EQ(Shown(Value(*rows, "I")), "Boolean True");
  EXPECT_EQ(Value(*rows, "C"), Variant(Byte{2}));
  const std::pair<const char*, Long> types[] = {{"A", 202}, {"C", 17}, {"D", 2}, {"E", 3},
                                                {"F", 5},   {"G", 7},  {"H", 6}, {"I", 11}};
  for (const auto& [name, type] : types)
    EXPECT_EQ(Get(*FieldOf(*rows, name), "Type"), Variant(type)) << name;
}

TEST_F(ValuesTest, Are_null_in_every_type) {
  OpenDatabase("test2V1997.mdb");
  const RecordsetRef rows = Open("Select * From MSP_PROJECTS Where PROJ_ID=1");
  for (const char* const name :
       {"PROJ_PROP_AUTHOR", "PROJ_PROP_CATEGORY", "PROJ_PROP_KEYWORDS", "PROJ_PROP_MANAGER"})
    EXPECT_THAT(Shown(Value(*rows, name)), testing::AnyOf("Null", testing::StartsWith("String ")))
        << name;
  EXPECT_EQ(Shown(Value(*rows, "PROJ_PROP_KEYWORDS")), "Null");
  EXPECT_EQ(Shown(Value(*rows, "PROJ_PROP_MANAGER")), "Null");
}

TEST_F(ValuesTest, Texts_keep_every_character) {
  OpenDatabase("test2V1997.mdb");
  EXPECT_EQ(LookUp("PROJ_OPT_CURRENCY_SYMBOL", "MSP_PROJECTS"), "String \xC2\xA3");
  // Its header says Western, its text is Chinese: what a Western machine makes of it.
  OpenDatabase("charsetGBK.mdb");
  EXPECT_EQ(LookUp("field1", "table1"), "String GBK\xC2\xB1\xC3\xA0\xC3\x82\xC3\xAB");
}

TEST_F(ValuesTest, Column_names_are_found_without_regard_to_case) {
  const RecordsetRef rows = Open("SELECT a AS RetField FROM TABLE1 WHERE c=2");
  EXPECT_EQ(Shown(Value(*rows, "retFIELD")), "String abcdefg");
  EXPECT_EQ(RaisedBy([&] { Value(*rows, "other"); }).number, static_cast<Long>(0x800A0CC1));
}

TEST_F(ValuesTest, Look_up_reads_one_field) {
  EXPECT_EQ(LookUp("A", "Table1", "C", "2", false), "String abcdefg");
  EXPECT_EQ(LookUp("A", "Table1", "A", "ABCDEFG"), "String abcdefg");
  EXPECT_EQ(LookUp("E", "Table1", "G", "#9/21/1974#", false), "Long 333333333");
  EXPECT_EQ(LookUp("A", "Table1", "I", "True", false), "String abcdefg");
  EXPECT_EQ(LookUp("A", "Table1", "C", "99", false), "String ");
  EXPECT_EQ(LookUp("Count(*)", "Table1"), "Long 2");
}

TEST_F(ValuesTest, Long_values_come_in_chunks) {
  OpenDatabase("test2V1997.mdb");
  const RecordsetRef rows = Open("Select * From MSP_PROJECTS");
  FieldRef field;
  std::string name;
  const ado::TextRows expected = ado::ReadExpectedRows("jet/expected/test2V1997.MSP_PROJECTS.csv");
  std::string digest;
  for (std::size_t i = 0; i < expected[0].size(); ++i) {
    if (!expected[1][i].starts_with("bin:22970:")) continue;
    name = expected[0][i];
    digest = expected[1][i];
  }
  ASSERT_FALSE(name.empty());
  field = FieldOf(*rows, name);
  EXPECT_EQ(field->GetActualSize(), 22970);
  const Variant array = component_.ColumnToArray(field);
  EXPECT_EQ(ado::ShownValue(array, ado::DataType::LongVarBinary), digest);
  Call(*rows, "MoveFirst");
  String file(folder_.File("out"));
  EXPECT_TRUE(component_.ColumnToFile(field, file));
  const auto elements = array.AsByteArray()->Elements();
  EXPECT_EQ(folder_.Read("out"), std::string(elements.begin(), elements.end()));
}

TEST_F(ValuesTest, Rows_are_a_snapshot_that_can_be_walked) {
  const RecordsetRef rows = Open("Select A From Table1 Order By C");
  std::filesystem::remove(folder_.File("testV1997.mdb"));
  EXPECT_EQ(Shown(Get(*rows, "RecordCount")), "Long 2");
  std::string seen;
  for (; !rows->IsAtEnd(); Call(*rows, "MoveNext"))
    seen += Shown(Value(*rows, "A")) + " ";
  EXPECT_EQ(seen, "String a String abcdefg ");
}

class UpdatesTest : public JetTest {};

TEST_F(UpdatesTest, What_cannot_be_updated_is_refused) {
  const RecordsetRef rows = Open("Select * From Table1", kOptimistic);
  const auto refused = static_cast<Long>(0x800A0CB3);
  EXPECT_EQ(RaisedBy([&] { Set(*FieldOf(*rows, "A"), "Value", "x"); }).number, refused);
  EXPECT_EQ(RaisedBy([&] { Call(*rows, "AddNew"); }).number, refused);
  EXPECT_EQ(RaisedBy([&] { Call(*rows, "Delete"); }).number, refused);
  FieldRef field = FieldOf(*rows, "A");
  Variant bytes = ByteArray({1, 2, 3});
  EXPECT_FALSE(component_.ArrayToColumn(field, bytes));
  const Raised raised = Running("Update Table1 Set A='x'");
  EXPECT_EQ(raised, (Raised{static_cast<Long>(0x80004005), kJetSource,
                            "Operation must use an updateable query."}));
  EXPECT_EQ(folder_.Read("testV1997.mdb"), ReadSample("jet/testV1997.mdb"));
}

class ErrorsTest : public JetTest {};

TEST_F(ErrorsTest, Wrong_password_is_named_in_no_error_and_no_log_entry) {
  const std::string path = folder_.File("V2003_with-password.mdb");
  const std::string secret = "Hush4711";
  component_.LogFileName("password.log");
  for (const std::string& password : {secret, std::string("Password"), std::string()}) {
    const Raised raised = Opening(path, password);
    EXPECT_EQ(raised.number, static_cast<Long>(0x80040026));
    EXPECT_EQ(raised.description,
              std::string(kJetSource) + " (-2147217843) - Not a valid password.");
  }
  EXPECT_THAT(Log("password.log"), testing::HasSubstr("Not a valid password."));
  EXPECT_THAT(Log("password.log"), testing::Not(testing::HasSubstr(secret)));
  OpenDatabase("V2003_with-password.mdb", "  password ");
  EXPECT_EQ(LookUp("Data", "Table1", "ID", "2", false), "String Two");
}

TEST_F(ErrorsTest, Broken_statements) {
  const Raised table = Running("Select * From no_such_table");
  EXPECT_EQ(table.number, static_cast<Long>(0x80040E37)) << table;
  EXPECT_EQ(table.source, kJetSource);
  EXPECT_THAT(table.description, testing::HasSubstr("no_such_table"));
  EXPECT_EQ(Running("Select no_such_column From Table1").number, static_cast<Long>(0x80040E10));
  EXPECT_EQ(Running("Selec 1").number, static_cast<Long>(0x80040E14));
  EXPECT_EQ(Running("Select A From Table1 Where C=").number, static_cast<Long>(0x80040E14));
  EXPECT_NE(Running(""), kNothingRaised);
  EXPECT_EQ(LookUp("A", "Table1", "C", "2", false), "String abcdefg");
}

TEST_F(ErrorsTest, Broken_look_up_is_logged_by_both_members) {
  component_.LogFileName("lookup.log");
  Variant value = "before";
  const Raised raised =
      RaisedBy([&] { component_.SelectField(connection_, "A", value, u"no_such_table"); });
  EXPECT_EQ(raised.number, static_cast<Long>(0x80040016));
  EXPECT_THAT(raised.description,
              testing::StartsWith(std::string(kJetSource) + " (-2147217865) - "));
  EXPECT_THAT(Log("lookup.log"), testing::HasSubstr("VandPublic.clsCommon.SelectField\r\n"));
  EXPECT_EQ(Shown(value), "String before");
}

TEST_F(ErrorsTest, States_are_kept_to) {
  EXPECT_EQ(RaisedBy([&] { Call(*connection_, "Open"); }).number, static_cast<Long>(0x800A0E79));
  const RecordsetRef rows = Open("Select A From Table1");
  Call(*connection_, "Close");
  EXPECT_EQ(rows->GetState(), kStateClosed);
  EXPECT_EQ(RaisedBy([&] { rows->IsAtEnd(); }).number, static_cast<Long>(0x800A0E78));
  EXPECT_NE(RaisedBy([&] { Open("Select A From Table1"); }), kNothingRaised);
}

TEST_F(ErrorsTest, Connection_that_failed_can_be_tried_again) {
  connection_ = MakeConnection();
  String path(folder_.File("V2003_with-password.mdb"));
  EXPECT_NE(RaisedBy([&] { component_.OpenConnAsMDB(connection_, path, "wrong"); }),
            kNothingRaised);
  EXPECT_EQ(Get(*connection_, "State"), Variant(kStateClosed));
  EXPECT_EQ(RaisedBy([&] { component_.OpenConnAsMDB(connection_, path, "password"); }),
            kNothingRaised);
}

TEST_F(ErrorsTest, Very_long_connection_strings_do_no_harm) {
  const std::string path = folder_.File("testV1997.mdb");
  EXPECT_EQ(Opening(path, std::string(32000, 'p')), kNothingRaised);
  EXPECT_NE(Opening(folder_.File("V2003_with-password.mdb"), std::string(32000, 'p')),
            kNothingRaised);
  const auto open = [&](const std::string& text) {
    const ConnectionRef connection = MakeConnection();
    return RaisedBy([&] { Call(*connection, "Open", {Variant(text.c_str())}); });
  };
  const std::string start = "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=";
  EXPECT_NE(open(start + std::string(32000, 'd')), kNothingRaised);
  EXPECT_EQ(open(start + '"' + path + "\";Mode=Read;Unknown key=" + std::string(32000, 'x')),
            kNothingRaised);
  EXPECT_NE(open(start + "\"" + path), kNothingRaised) << "an open quote";
}

class FaultsTest : public JetTest {};

TEST_F(FaultsTest, Statement_that_takes_too_long_is_stopped) {
  // Two rows to the power of thirty.
  std::string statement = "Select Count(*) From Table1";
  for (int i = 1; i < 30; ++i)
    statement += ", Table1 t" + std::to_string(i);
  Set(*connection_, "CommandTimeout", Long{1});
  const auto start = std::chrono::steady_clock::now();
  const Raised raised = Running(statement.c_str());
  EXPECT_EQ(raised, (Raised{static_cast<Long>(0x80040E31), kJetSource, "Timeout expired"}));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
  EXPECT_EQ(LookUp("A", "Table1", "C", "2", false), "String abcdefg");
}

TEST_F(FaultsTest, Many_look_ups_leave_nothing_behind) {
  const auto look_up = [&](int times) {
    for (int i = 0; i < times; ++i)
      ASSERT_EQ(LookUp("A", "Table1", "C", "2", false), "String abcdefg");
  };
  look_up(1000);
  const int descriptors = OpenDescriptors();
  const long memory = MemoryInUse();
  look_up(10000);
  EXPECT_EQ(OpenDescriptors(), descriptors);
  EXPECT_LT(MemoryInUse() - memory, 2048) << "KiB";
}

TEST_F(FaultsTest, Database_that_goes_or_is_damaged_is_an_error_at_the_next_call) {
  component_.DebugMode(DEBUG_MODE_OFF);
  const std::string content = ReadSample("jet/testV1997.mdb");
  folder_.Write("testV1997.mdb", content.substr(0, content.size() / 2));
  EXPECT_NE(RaisedBy([&] { Open("Select * From Table1"); }), kNothingRaised);
  folder_.Write("testV1997.mdb", content);
  EXPECT_EQ(LookUp("A", "Table1", "C", "2", false), "String abcdefg");
  std::filesystem::remove(folder_.File("testV1997.mdb"));
  EXPECT_NE(RaisedBy([&] { Open("Select * From Table1"); }), kNothingRaised);
  EXPECT_EQ(RaisedBy([&] { Call(*connection_, "Close"); }), kNothingRaised);
}

}  // namespace
}  // namespace vandpublic::db_tests
