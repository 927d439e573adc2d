// The connection members on objects that write down what is done to them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "frame/clsPublic.h"
#include "support/recording_database.h"
#include "support/test_component.h"

namespace vandpublic {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const Raised kProviderError{-2147467259, "The provider", "Cannot open."};
constexpr const char* kComposedProviderError = "The provider (-2147467259) - Cannot open.";

class ConnectionsTest : public testing::Test {
 protected:
  std::shared_ptr<RecordingDatabase> database_ = std::make_shared<RecordingDatabase>();
  TestComponent component_{.services = {.database = database_}};
  ConnectionRef connection_ = database_->MakeConnection();
  ConnectionRef unset_;
  String description_ = "old";
};

TEST_F(ConnectionsTest, Data_source_string_is_set_and_then_opened_with_nothing_else) {
  EXPECT_TRUE(component_.object.OpenConnAsSQLDNS(connection_, "S1", "db", "u", "p", description_));
  EXPECT_THAT(database_->calls,
              ElementsAre("Connection.ConnectionString = Provider=MSDASQL.1;User ID=u;Password=p; "
                          "Data Source=S1;Initial Catalog=db",
                          R"(Connection.Open "", "", "", -1)"));
  EXPECT_EQ(description_, "old");
  EXPECT_EQ(component_.Log(), "");
}

TEST_F(ConnectionsTest, Data_source_values_go_in_untrimmed_and_unquoted) {
  component_.object.OpenConnAsSQLDNS(connection_, " S;1 ", String::Absent(), " u ", "'p}");
  EXPECT_EQ(database_->calls.at(0),
            "Connection.ConnectionString = Provider=MSDASQL.1;User ID= u ;Password='p}; Data "
            "Source= S;1 ;Initial Catalog=");
}

TEST_F(ConnectionsTest, Data_source_without_a_connection_is_a_fault_of_prjCommon) {
  const std::string composed = Composed(FaultNumber::ObjectVariableNotSet);
  EXPECT_EQ(RaisedBy([&] {
              component_.object.OpenConnAsSQLDNS(unset_, "S", "d", "u", "p", description_);
            }),
            MemberError(0x25, "OpenConnAsSQLDNS", composed));
  EXPECT_EQ(description_, composed.c_str());
  EXPECT_THAT(component_.LogLines(),
              ElementsAre("2024-03-05 14:07:09 prjCommon.clsCommon.OpenConnAsSQLDNS",
                          std::string(20, ' ') + composed));
}

TEST_F(ConnectionsTest, Data_source_that_fails_to_open_hands_out_the_providers_error) {
  database_->FailOn("Connection.Open", kProviderError);
  EXPECT_EQ(RaisedBy([&] {
              component_.object.OpenConnAsSQLDNS(connection_, "S", "d", "u", "p", description_);
            }),
            MemberError(0x25, "OpenConnAsSQLDNS", kComposedProviderError));
  EXPECT_EQ(description_, kComposedProviderError);
}

TEST_F(ConnectionsTest, Database_file_is_opened_by_its_trimmed_path) {
  component_.services.files->contents[u"C:\\a.mdb"] = "x";
  EXPECT_TRUE(component_.object.OpenConnAsMDB(connection_, " C:\\a.mdb "));
  EXPECT_THAT(database_->calls,
              ElementsAre("Connection.Open \"Provider=Microsoft.Jet.OLEDB.4.0;Data "
                          "Source=C:\\a.mdb;\", \"\", \"\", -1"));
}

TEST_F(ConnectionsTest, Database_password_is_trimmed_and_left_out_when_blank) {
  component_.services.files->contents[u"a.mdb"] = "x";
  component_.object.OpenConnAsMDB(connection_, "a.mdb", "  pw  ");
  component_.object.OpenConnAsMDB(connection_, "a.mdb", "   ");
  EXPECT_THAT(database_->calls,
              ElementsAre("Connection.Open \"Provider=Microsoft.Jet.OLEDB.4.0;Data Source=a.mdb;"
                          "Jet OLEDB:Database password=pw;\", \"\", \"\", -1",
                          "Connection.Open \"Provider=Microsoft.Jet.OLEDB.4.0;Data "
                          "Source=a.mdb;\", \"\", \"\", -1"));
}

struct RejectedCase {
  const char* path;
  bool connection_set;
  const char* message;
};

TEST_F(ConnectionsTest, Database_file_is_checked_before_anything_is_opened) {
  component_.services.files->folders.insert(u"folder");
  constexpr RejectedCase kCases[] = {
      {"a.mdb", false, "Connection object not set yet."},
      {"   ", false, "Connection object not set yet."},
      {"", true, "MDB file path not provided."},
      {"   ", true, "MDB file path not provided."},
      {"missing.mdb", true, "MDB file not found."},
      {"folder", true, "MDB file not found."},
  };
  for (const RejectedCase& test : kCases) {
    SCOPED_TRACE(test.path);
    description_ = "old";
    ConnectionRef& connection = test.connection_set ? connection_ : unset_;
    EXPECT_EQ(
        RaisedBy([&] { component_.object.OpenConnAsMDB(connection, test.path, "", description_); }),
        MemberError(0x26, "OpenConnAsMDB", test.message));
    EXPECT_EQ(description_, test.message);
  }
  EXPECT_THAT(database_->calls, IsEmpty());
  EXPECT_THAT(component_.LoggedNames(), testing::Each("OpenConnAsMDB"));
}

TEST_F(ConnectionsTest, Table_folder_is_opened_by_its_trimmed_path) {
  component_.services.files->folders.insert(u"C:\\Data");
  EXPECT_TRUE(component_.object.OpenConnAsFoxpro(connection_, " C:\\Data "));
  EXPECT_THAT(database_->calls,
              ElementsAre("Connection.Open \"Driver={Microsoft Visual FoxPro Driver};"
                          "SourceType=DBF;SourceDB=C:\\Data;Exclusive=No\", \"\", \"\", -1"));
}

TEST_F(ConnectionsTest, Table_folder_may_be_a_file) {
  component_.services.files->contents[u"plain"] = "x";
  EXPECT_TRUE(component_.object.OpenConnAsFoxpro(connection_, "plain"));
}

TEST_F(ConnectionsTest, Table_folder_is_checked_before_anything_is_opened) {
  constexpr RejectedCase kCases[] = {
      {"  ", false, "Connection object not set yet."},
      {"  ", true, "DBF file directory not provided."},
      {"missing", true, "DBF file not found."},
  };
  for (const RejectedCase& test : kCases) {
    SCOPED_TRACE(test.message);
    ConnectionRef& connection = test.connection_set ? connection_ : unset_;
    EXPECT_EQ(
        RaisedBy([&] { component_.object.OpenConnAsFoxpro(connection, test.path, description_); }),
        MemberError(0x27, "OpenConnAsFoxpro", test.message));
    EXPECT_EQ(description_, test.message);
  }
  EXPECT_THAT(database_->calls, IsEmpty());
}

TEST_F(ConnectionsTest, Failing_files_and_folders_hand_out_the_providers_error) {
  component_.services.files->contents[u"a"] = "x";
  database_->FailOn("Connection.Open", kProviderError);
  EXPECT_EQ(RaisedBy([&] { component_.object.OpenConnAsMDB(connection_, "a"); }),
            MemberError(0x26, "OpenConnAsMDB", kComposedProviderError));
  database_->FailOn("Connection.Open", kProviderError);
  EXPECT_EQ(RaisedBy([&] { component_.object.OpenConnAsFoxpro(connection_, "a"); }),
            MemberError(0x27, "OpenConnAsFoxpro", kComposedProviderError));
  EXPECT_THAT(component_.LoggedNames(), ElementsAre("OpenConnAsMDB", "OpenConnAsFoxpro"));
}

}  // namespace
}  // namespace vandpublic
