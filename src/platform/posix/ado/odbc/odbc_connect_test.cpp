// Connection strings for the driver manager, with made-up settings in place of odbc.ini.
#include "platform/posix/ado/odbc/odbc_connect.h"

#include <gtest/gtest.h>

#include <cstring>

#include "support/test_component.h"

namespace vandpublic::ado {
namespace {

struct Setting {
  std::string_view file;
  std::string_view section;
  std::string_view value;
};

constexpr Setting kSettings[] = {
    {"odbc.ini", "Lite", "Lite driver"},    {"odbcinst.ini", "Lite driver", "libsqlite3odbc.so"},
    {"odbc.ini", "Pg", "psqlodbcw.so"},     {"odbc.ini", "Maria", "My MariaDB"},
    {"odbc.ini", "Other", "libtdsodbc.so"},
};

int ReadSetting(const char* section, const char*, const char*, char* buffer, int size,
                const char* file) {
  buffer[0] = '\0';
  for (const Setting& setting : kSettings) {
    if (setting.file != file || setting.section != section) continue;
    const std::size_t length = setting.value.copy(buffer, static_cast<std::size_t>(size) - 1);
    buffer[length] = '\0';
  }
  return static_cast<int>(std::strlen(buffer));
}

struct TargetCase {
  const char* name;
  const char* text;
  const char* expected;
  OdbcKind kind;
};

constexpr const char* kPgAdditions = "ConnSettings=SET+client_encoding+TO+'UTF8';BoolsAsChar=0;";

class OdbcTargetTest : public testing::TestWithParam<TargetCase> {};

TEST_P(OdbcTargetTest, Is_built) {
  OdbcLibrary library{};
  library.GetPrivateProfileString = &ReadSetting;
  std::string expected = GetParam().expected;
  if (GetParam().kind == OdbcKind::PostgreSql) expected += kPgAdditions;
  if (GetParam().kind == OdbcKind::MariaDb) expected += "CHARSET=utf8mb4;OPTION=2;";
  const OdbcTarget target = FindOdbcTarget(library, ConnectionString(GetParam().text));
  EXPECT_EQ(target.connection_string, expected);
  EXPECT_EQ(target.kind, GetParam().kind);
}

constexpr TargetCase kCases[] = {
    {"As_the_member_builds_it",
     "Provider=MSDASQL.1;User ID=u;Password=p; Data Source=Other;Initial Catalog=db",
     "DSN=Other;UID=u;PWD=p;DATABASE=db;", OdbcKind::Other},
    {"Without_user_and_catalog",
     "Provider=MSDASQL.1;User ID=;Password=; Data Source=Other;Initial Catalog=", "DSN=Other;",
     OdbcKind::Other},
    {"No_catalog_for_SQLite", "Provider=MSDASQL;Data Source=Lite;Initial Catalog=db", "DSN=Lite;",
     OdbcKind::SQLite},
    {"PostgreSql_by_its_library", "Provider=MSDASQL;Data Source=Pg;Initial Catalog=db",
     "DSN=Pg;DATABASE=db;", OdbcKind::PostgreSql},
    {"MariaDb_by_its_name", "Provider=MSDASQL;Data Source=Maria", "DSN=Maria;", OdbcKind::MariaDb},
    {"Unknown_source", "Provider=MSDASQL;Data Source=nowhere", "DSN=nowhere;", OdbcKind::Other},
    {"Password_in_braces", "Provider=MSDASQL;Data Source=Other;Password=\"p;w}=x\"",
     "DSN=Other;PWD={p;w}}=x};", OdbcKind::Other},
    {"User_in_braces_only_where_it_must", "Provider=MSDASQL;Data Source=Other;User ID=a@b",
     "DSN=Other;UID=a@b;", OdbcKind::Other},
    {"User_cannot_smuggle_a_key", "Provider=MSDASQL;Data Source=Other;User ID=\"u;DATABASE=other\"",
     "DSN=Other;UID={u;DATABASE=other};", OdbcKind::Other},
    {"Driver_behind_the_provider",
     "Provider=MSDASQL;Driver={PostgreSQL Unicode};Server=s;Database=d;User ID=u",
     "UID=u;Driver=PostgreSQL Unicode;Server=s;Database=d;", OdbcKind::PostgreSql},
    {"Driver_manager_string", "DSN=Other;UID=x", "DSN=Other;UID=x;", OdbcKind::Other},
    {"Driver_manager_string_keeps_its_odd_parts", "Driver={SQLite3}; x ;;y=z",
     "Driver={SQLite3}; x ;;y=z;", OdbcKind::SQLite},
    {"Driver_manager_string_of_a_known_source", "DSN=Pg", "DSN=Pg;", OdbcKind::PostgreSql},
};

INSTANTIATE_TEST_SUITE_P(Cases, OdbcTargetTest, testing::ValuesIn(kCases),
                         [](const auto& test) { return test.param.name; });

TEST(OdbcTarget, User_and_password_of_Open_go_first_in_a_driver_managers_string) {
  OdbcLibrary library{};
  library.GetPrivateProfileString = &ReadSetting;
  ConnectionString text("DSN=Other;UID=x");
  text.Set("User ID", "u");
  text.Set("Password", "p");
  const OdbcTarget target = FindOdbcTarget(library, text);
  EXPECT_EQ(target.connection_string, "UID=u;PWD=p;DSN=Other;UID=x;");
  EXPECT_EQ(target.password, "p");
}

TEST(OdbcLibrary, That_is_not_installed_is_a_provider_that_is_not_found) {
  const Raised expected{static_cast<Long>(0x800A0E7A), "ADODB.Connection",
                        "Provider cannot be found. It may not be properly installed."};
  EXPECT_EQ(RaisedBy([] { LoadOdbc("libno-such-manager.so", "libc.so.6"); }), expected);
  EXPECT_EQ(RaisedBy([] { LoadOdbc("libc.so.6", "libno-such-installer.so"); }), expected);
  EXPECT_EQ(RaisedBy([] { LoadOdbc("libc.so.6", "libc.so.6"); }), expected)
      << "a library without the functions";
}

}  // namespace
}  // namespace vandpublic::ado
