// Runs the database tests on one kind of data source:
//
//   database_tests sqlite --gtest_filter=...
//
// Everything is made in a temporary folder, the settings of ODBC included; nothing that is
// installed is changed. Exit status 77 where the source is not installed, with the reason.
#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <fstream>
#include <iostream>

#include "db/process.h"
#include "db/test_source.h"
#include "support/temp_folder.h"

namespace vandpublic::db_tests {
namespace {

constexpr int kSkipped = 77;

struct Run {
  TempFolder folder;
  std::unique_ptr<TestSource> source;
};
Run* current = nullptr;

void WriteOdbcSettings(const TestSource& source, const std::filesystem::path& folder) {
  std::ofstream drivers(folder / "odbcinst.ini");
  drivers << "[TestDriver-" << source.name << "]\nDriver=" << source.DriverFile() << '\n'
          << "[MissingDriver]\nDriver=libno-such-driver.so\n";
  std::ofstream sources(folder / "odbc.ini");
  sources << "[" << kDsn << "]\nDriver=TestDriver-" << source.name << '\n';
  for (const std::string& setting : source.Settings())
    sources << setting << '\n';
  sources << "[MissingDriverSource]\nDriver=MissingDriver\n";
  setenv("ODBCSYSINI", folder.c_str(), 1);
  setenv("ODBCINI", (folder / "odbc.ini").c_str(), 1);
}

int RunTests(std::string_view name) {
  Run run;
  GiveToOrdinaryUser(run.folder.path());
  run.source = MakeTestSource(name, run.folder.path());
  if (run.source == nullptr) {
    std::cerr << "name a data source: sqlite, postgresql, mariadb\n";
    return 2;
  }
  if (const std::string reason = run.source->Missing(); !reason.empty()) {
    std::cout << "skipped: " << reason << '\n';
    return kSkipped;
  }
  run.source->Start();
  WriteOdbcSettings(*run.source, run.folder.path());
  current = &run;
  return RUN_ALL_TESTS();
}

}  // namespace

TestSource& Source() { return *current->source; }
const std::filesystem::path& Folder() { return current->folder.path(); }

std::unique_ptr<TestSource> MakeTestSource(std::string_view name,
                                           const std::filesystem::path& folder) {
  if (name == "sqlite") return MakeSqlite(folder);
  if (name == "postgresql") return MakePostgreSql(folder);
  if (name == "mariadb") return MakeMariaDb(folder);
  return nullptr;
}

}  // namespace vandpublic::db_tests

// PostgreSQL's driver loses a few bytes with every connection.
extern "C" [[gnu::visibility("default")]] const char* __lsan_default_suppressions();  // NOLINT
extern "C" const char* __lsan_default_suppressions() { return "leak:psqlodbcw.so\n"; }

int main(int argc, char** argv) {
  std::setlocale(LC_ALL, "");  // as most programs do that use the component
  testing::InitGoogleTest(&argc, argv);
  try {
    return vandpublic::db_tests::RunTests(argc > 1 ? argv[1] : "");
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
}
