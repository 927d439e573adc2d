// What goes wrong without anybody's fault: numbers, sources and texts, and what stands in the log.
#include <cstdlib>

#include "db/db_test.h"

namespace vandpublic::db_tests {
namespace {

constexpr const char* kOdbcSource = "Microsoft OLE DB Provider for ODBC Drivers";

class ErrorsTest : public DbTest {
 protected:
  Raised Opening(const std::string& connection_string) {
    ConnectionRef connection = MakeConnection();
    return RaisedBy([&] { Call(*connection, "Open", {Variant(connection_string.c_str())}); });
  }
  Raised Running(const std::string& statement) {
    return RaisedBy([&] { Execute(statement); });
  }
  std::string LogInString(const std::string& user, const std::string& password) {
    return "Provider=MSDASQL.1;User ID=" + user + ";Password=\"" + password +
           "\"; Data Source=" + kDsn + ";Initial Catalog=" + Source().catalog;
  }
};

TEST_F(ErrorsTest, Unknown_data_source) {
  const Raised raised = Opening("Provider=MSDASQL.1;Data Source=no such source");
  EXPECT_EQ(raised.number, static_cast<Long>(0x80004005));
  EXPECT_EQ(raised.source, kOdbcSource);
  EXPECT_THAT(raised.description, testing::HasSubstr("Data source name not found"));
}

TEST_F(ErrorsTest, Missing_driver) {
  const Raised raised = Opening("Provider=MSDASQL.1;Data Source=MissingDriverSource");
  EXPECT_EQ(raised.number, static_cast<Long>(0x80004005));
  EXPECT_THAT(raised.description, testing::HasSubstr("libno-such-driver.so"));
}

TEST_F(ErrorsTest, Unknown_provider) {
  const Raised expected{static_cast<Long>(0x800A0E7A), "ADODB.Connection",
                        "Provider cannot be found. It may not be properly installed."};
  EXPECT_EQ(Opening("Provider=SQLOLEDB;Data Source=x"), expected);
  EXPECT_EQ(Opening("Provider=;Data Source=x"), expected);
}

TEST_F(ErrorsTest, Wrong_password_is_named_in_no_error_and_no_log_entry) {
  if (!Source().is_server) GTEST_SKIP() << "a file asks for no password";
  const std::string secret = "Hush4711";
  const Raised raised = Opening(LogInString(Source().user, secret));
  EXPECT_EQ(raised.source, kOdbcSource);
  EXPECT_THAT(raised.number,
              testing::AnyOf(static_cast<Long>(0x80040E4D), static_cast<Long>(0x80004005)));
  EXPECT_THAT(raised.description, testing::Not(testing::HasSubstr(secret)));

  ConnectionRef connection = MakeConnection();
  component_.LogFileName("password.log");
  EXPECT_NE(RaisedBy([&] {
              component_.OpenConnAsSQLDNS(connection, kDsn, Source().catalog, Source().user,
                                          secret);
            }),
            kNothingRaised);
  const std::string log = FileContent(Folder() / "password.log");
  EXPECT_THAT(log, testing::HasSubstr("OpenConnAsSQLDNS"));
  EXPECT_THAT(log, testing::Not(testing::HasSubstr(secret)));
  // The string itself stays readable.
  EXPECT_THAT(Shown(Get(*connection, "ConnectionString")), testing::HasSubstr(secret));
}

TEST_F(ErrorsTest, Unknown_catalog) {
  if (!Source().is_server) GTEST_SKIP() << "a file has no catalogs";
  const Raised raised = Opening("Provider=MSDASQL.1;User ID=u;Password=\"" + Source().password +
                                "\";Data Source=" + kDsn + ";Initial Catalog=nowhere");
  EXPECT_NE(raised, kNothingRaised);
  EXPECT_THAT(raised.description, testing::HasSubstr("nowhere"));
}

TEST_F(ErrorsTest, Broken_statements) {
  MakeTable("e", "id INTEGER NOT NULL PRIMARY KEY");
  const Raised table = Running("SELECT * FROM no_such_table");
  EXPECT_EQ(table.number, static_cast<Long>(0x80040E37)) << table;
  EXPECT_EQ(table.source, kOdbcSource);
  EXPECT_THAT(table.description, testing::HasSubstr("no_such_table"));
  EXPECT_EQ(Running("SELECT no_such_column FROM e").number, static_cast<Long>(0x80040E14));
  EXPECT_EQ(Running("SELEC 1").number, static_cast<Long>(0x80040E14));
  EXPECT_EQ(Running("SELECT id FROM e WHERE id =").number, static_cast<Long>(0x80040E14));
  EXPECT_NE(Running(""), kNothingRaised);
  EXPECT_EQ(Running("SELECT 1"), kNothingRaised) << "the connection still works";
}

TEST_F(ErrorsTest, Broken_look_up_is_logged_by_both_members) {
  component_.LogFileName("lookup.log");
  Variant value = "before";
  const Raised raised =
      RaisedBy([&] { component_.SelectField(connection_, "name", value, u"no_such_table"); });
  EXPECT_EQ(raised.number, static_cast<Long>(0x80040016));
  EXPECT_EQ(raised.source, "clsCommon.SelectField");
  EXPECT_THAT(raised.description,
              testing::StartsWith(std::string(kOdbcSource) + " (-2147217865) - "));
  const std::string log = FileContent(Folder() / "lookup.log");
  EXPECT_THAT(log, testing::HasSubstr("VandPublic.clsCommon.OpenADORecordSet\r\n"));
  EXPECT_THAT(log, testing::HasSubstr("VandPublic.clsCommon.SelectField\r\n"));
  EXPECT_THAT(log, testing::HasSubstr("clsCommon.OpenADORecordSet (-2147221468) - " +
                                      std::string(kOdbcSource)));
  EXPECT_EQ(Shown(value), "String before");
}

TEST_F(ErrorsTest, Zero_character_is_refused_wherever_it_would_cut_a_text) {
  const auto refused = static_cast<Long>(0x800A0BB9);
  MakeTable("e", "id INTEGER NOT NULL PRIMARY KEY");
  Variant statement = String(std::u16string(u"DELETE FROM e\0 WHERE id = 5", 27));
  EXPECT_EQ(RaisedBy([&] { Call(*connection_, "Execute", {statement}); }).number, refused);
  Variant text = String(std::u16string(u"Provider=MSDASQL;Data Source=a\0b", 32));
  ConnectionRef connection = MakeConnection();
  EXPECT_EQ(RaisedBy([&] { Call(*connection, "Open", {text}); }).number, refused);
}

TEST_F(ErrorsTest, States_are_kept_to) {
  const auto closed = static_cast<Long>(0x800A0E78);
  const auto open = static_cast<Long>(0x800A0E79);
  EXPECT_EQ(RaisedBy([&] { Call(*connection_, "Open"); }).number, open);
  EXPECT_EQ(
      RaisedBy([&] { component_.OpenConnAsSQLDNS(connection_, kDsn, "", "", ""); }).description,
      "ADODB.Connection (-2146824583) - Operation is not allowed when the object is open.");
  const RecordsetRef rows = Open("SELECT 1 AS one");
  const FieldRef field = FieldOf(*rows, "one");
  Call(*connection_, "Close");
  EXPECT_EQ(rows->GetState(), kStateClosed);
  EXPECT_EQ(RaisedBy([&] { rows->IsAtEnd(); }).number, closed);
  EXPECT_EQ(RaisedBy([&] { field->GetValue(); }).number, closed);
  EXPECT_EQ(RaisedBy([&] { Call(*connection_, "Close"); }).number, closed);
  EXPECT_EQ(RaisedBy([&] { Open("SELECT 1 AS one"); }).description,
            "ADODB.Recordset (-2146824579) - The connection cannot be used to perform this "
            "operation. It is either closed or invalid in this context.");
}

TEST_F(ErrorsTest, Connection_that_failed_can_be_tried_again) {
  ConnectionRef connection = MakeConnection();
  EXPECT_NE(RaisedBy([&] { component_.OpenConnAsSQLDNS(connection, "nowhere", "", "", ""); }),
            kNothingRaised);
  EXPECT_EQ(Get(*connection, "State"), Variant(kStateClosed));
  EXPECT_EQ(RaisedBy([&] {
              component_.OpenConnAsSQLDNS(connection, kDsn, Source().catalog, Source().user,
                                          '"' + Source().password + '"');
            }),
            kNothingRaised);
}

TEST_F(ErrorsTest, Driver_manager_string_is_taken_as_it_is) {
  ConnectionRef connection = MakeConnection();
  std::string text = std::string("DSN=") + kDsn;
  if (Source().is_server) text += ";UID=u;PWD={p;w}}=x}";
  EXPECT_EQ(RaisedBy([&] { Call(*connection, "Open", {Variant(text.c_str())}); }), kNothingRaised);
  connection = MakeConnection();
  if (!Source().is_server) return;
  EXPECT_EQ(RaisedBy([&] {
              Call(*connection, "Open",
                   {Variant((std::string("DSN=") + kDsn).c_str()), Variant("u"),
                    Variant(Source().password.c_str())});
            }),
            kNothingRaised);
}

TEST_F(ErrorsTest, Very_long_connection_strings_do_no_harm) {
  const std::string text = LogInString(std::string(32000, 'u'), std::string(32000, ';'));
  if (Source().is_server) {
    EXPECT_NE(Opening(text), kNothingRaised);
  } else {
    Opening(text);  // a file asks for neither; only a crash would be wrong
  }
  EXPECT_NE(Opening("Provider=MSDASQL;Data Source=" + std::string(32000, 'd')), kNothingRaised);
}

}  // namespace
}  // namespace vandpublic::db_tests
