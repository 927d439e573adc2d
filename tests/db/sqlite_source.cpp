// An SQLite file.
#include "db/process.h"
#include "db/test_source.h"

namespace vandpublic::db_tests {
namespace {

class SqliteSource final : public TestSource {
 public:
  explicit SqliteSource(const std::filesystem::path& folder) : file_(folder / "data.db") {
    is_server = false;
    name = "sqlite";
    catalog = "catalog_that_is_no_file";
    types = {"BLOB", "TEXT", "BOOLEAN", "TIMESTAMP", "DOUBLE"};
  }

  std::string Missing() const override {
    if (FindFile({"/usr/bin/sqlite3"}).empty()) return "the program sqlite3 is not installed";
    if (DriverFile().empty()) return "the ODBC driver libsqliteodbc is not installed";
    return {};
  }
  // Made by the client, so that it belongs to the same user.
  void Start() override { Client("PRAGMA user_version = 1"); }

  std::string Client(const std::string& statements) const override {
    return RunProgram({"sqlite3", file_}, statements + ";");
  }
  std::string DriverFile() const override {
    return FindFile({"/usr/lib/*/odbc/libsqlite3odbc.so"});
  }
  std::vector<std::string> Settings() const override {
    return {"Database=" + file_.string(), "Timeout=300"};
  }

 private:
  std::filesystem::path file_;
};

}  // namespace

std::unique_ptr<TestSource> MakeSqlite(const std::filesystem::path& folder) {
  return std::make_unique<SqliteSource>(folder);
}

}  // namespace vandpublic::db_tests
