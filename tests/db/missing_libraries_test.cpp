// The component where no database library is installed. The test runs with a library path in front
// of the system's whose files of these names are no libraries, so that none can be loaded.
#include <dlfcn.h>

#include "db/file_test.h"

namespace vandpublic::db_tests {
namespace {

class MissingLibraries : public FileDbTest {
 protected:
  MissingLibraries() : FileDbTest({"jet/testV1997.mdb", "dbf/setup.dbf"}) {}
  void SetUp() override {
    FileDbTest::SetUp();
    for (const char* const name : {"libodbc.so.2", "libsqlite3.so.0"})
      ASSERT_EQ(dlopen(name, RTLD_NOW), nullptr) << name << " is there: run this by ctest";
  }
};

const char* const kText =
    "ADODB.Connection (-2146824582) - Provider cannot be found. It may not be properly installed.";

TEST_F(MissingLibraries, Leave_connections_without_a_provider) {
  String path(folder_.File("testV1997.mdb"));
  EXPECT_EQ(RaisedBy([&] { component_.OpenConnAsMDB(connection_, path); }),
            MemberError(0x26, "OpenConnAsMDB", kText));
  String folder(folder_.path().string());
  EXPECT_EQ(RaisedBy([&] { component_.OpenConnAsFoxpro(connection_, folder); }),
            MemberError(0x27, "OpenConnAsFoxpro", kText));
  EXPECT_EQ(RaisedBy([&] { component_.OpenConnAsSQLDNS(connection_, "S1", "db", "u", "p"); }),
            MemberError(0x25, "OpenConnAsSQLDNS", kText));
  EXPECT_EQ(Get(*connection_, "State"), Variant(kStateClosed));
  EXPECT_THAT(Log("ERROR.log"), testing::HasSubstr(kText));
}

TEST_F(MissingLibraries, Leave_everything_else_working) {
  String key = "0123456789ABCDEFFEDCBA9876543210";
  String data = "0123456789ABCDE7";
  Integer length = 0;
  EXPECT_EQ(component_.FstrDES3(key, data, length), String("7F 1D 0A 77 82 6B 8A FF "));
  EXPECT_EQ(component_.EncodeStrSQL("O'Brien"), String("O''Brien"));
  EXPECT_EQ(Get(*connection_, "State"), Variant(kStateClosed));
}

}  // namespace
}  // namespace vandpublic::db_tests
