// The data source that the database tests run on: an SQLite file, or a server of their own.
#ifndef VANDPUBLIC_TESTS_DB_TEST_SOURCE_H
#define VANDPUBLIC_TESTS_DB_TEST_SOURCE_H

#include <sys/types.h>

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace vandpublic::db_tests {

// Names of column types, which differ.
struct TypeNames {
  std::string binary;
  std::string text;
  std::string boolean;
  std::string timestamp;
  std::string real;
};

class TestSource {
 public:
  virtual ~TestSource() = default;

  // Why the tests cannot run here, "" when they can.
  virtual std::string Missing() const = 0;
  // Makes the database and starts its server.
  virtual void Start() = 0;
  // Ends the server as a crash would, and starts it again on the same data. Nothing for a file.
  virtual void Kill() {}
  virtual void Restart() {}
  virtual pid_t ServerPid() const { return -1; }
  // The signal at which the whole server ends at once, without storing anything.
  virtual int CrashSignal() const { return 0; }

  // Runs statements with the source's own client and gives the rows, one a line, columns separated
  // by "|".
  virtual std::string Client(const std::string& statements) const = 0;
  // An expression that gives a binary column as upper-case hexadecimal digits.
  virtual std::string HexOf(const std::string& column) const { return "hex(" + column + ")"; }
  // A binary literal.
  virtual std::string Binary(const std::string& digits) const { return "x'" + digits + "'"; }

  // The file of the ODBC driver, and what the section of the data source holds.
  virtual std::string DriverFile() const = 0;
  virtual std::vector<std::string> Settings() const = 0;

  bool is_server = true;
  std::string name;
  std::string user = "u";
  std::string password = "p;w}=x";
  std::string catalog;
  TypeNames types;
};

// Names as in "sqlite"; null for others. The folder holds everything the source writes.
std::unique_ptr<TestSource> MakeTestSource(std::string_view name,
                                           const std::filesystem::path& folder);

std::unique_ptr<TestSource> MakeSqlite(const std::filesystem::path& folder);
std::unique_ptr<TestSource> MakePostgreSql(const std::filesystem::path& folder);
std::unique_ptr<TestSource> MakeMariaDb(const std::filesystem::path& folder);

// The one that the tests run on, and the folder for files of theirs.
TestSource& Source();
const std::filesystem::path& Folder();

// The data source's name in our own odbc.ini.
inline constexpr const char* kDsn = "VandPublicTest";

}  // namespace vandpublic::db_tests

#endif
