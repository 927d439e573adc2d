// A MariaDB server on the loopback interface; its clients use a socket.
#include <signal.h>

#include <chrono>
#include <stdexcept>
#include <thread>

#include "db/process.h"
#include "db/test_source.h"

namespace vandpublic::db_tests {
namespace {

class MariaDbSource final : public TestSource {
 public:
  explicit MariaDbSource(const std::filesystem::path& folder)
      : folder_(folder), server_file_(FindFile({"/usr/sbin/mariadbd"})) {
    name = "mariadb";
    catalog = "second";
    types = {"LONGBLOB", "LONGTEXT", "BOOLEAN", "DATETIME(3)", "DOUBLE"};
  }
  ~MariaDbSource() override {
    if (server_ != nullptr) server_->End(SIGTERM);
  }

  std::string Missing() const override {
    if (server_file_.empty()) return "MariaDB's server is not installed";
    if (DriverFile().empty()) return "the ODBC driver odbc-mariadb is not installed";
    return {};
  }

  void Start() override {
    RunProgram({"mkdir", OwnTemporary()});  // by the user that the server runs as
    RunProgram({"mariadb-install-db", "--no-defaults", "--skip-test-db",
                "--auth-root-authentication-method=normal", "--datadir=" + Data(),
                "--tmpdir=" + OwnTemporary(), "--innodb-log-file-size=4M"});
    Restart();
    RunProgram({"mariadb", "--no-defaults", "--user=root", "--socket=" + Socket()},
               "CREATE DATABASE first CHARACTER SET utf8mb4;"
               "CREATE DATABASE second CHARACTER SET utf8mb4;"
               "CREATE USER '" +
                   user + "'@'localhost' IDENTIFIED BY '" + password +
                   "';"
                   "CREATE USER '" +
                   user + "'@'127.0.0.1' IDENTIFIED BY '" + password +
                   "';"
                   "GRANT ALL ON *.* TO '" +
                   user + "'@'localhost', '" + user + "'@'127.0.0.1';");
  }

  pid_t ServerPid() const override { return server_->pid(); }
  int CrashSignal() const override { return SIGKILL; }
  void Kill() override { server_->End(CrashSignal()); }

  void Restart() override {
    server_ = std::make_unique<Process>(
        Arguments{server_file_, "--no-defaults", "--datadir=" + Data(), "--socket=" + Socket(),
                  "--bind-address=127.0.0.1", "--port=" + port_, "--skip-name-resolve",
                  "--pid-file=" + (folder_ / "pid").string(), "--innodb-flush-log-at-trx-commit=2",
                  "--innodb-buffer-pool-size=16M", "--max-allowed-packet=16M",
                  "--innodb-log-file-size=4M", "--tmpdir=" + OwnTemporary()},
        folder_ / "server.log");
    for (int i = 0; i < 300; ++i) {
      try {
        RunProgram(
            {"mariadb-admin", "--no-defaults", "--user=root", "--socket=" + Socket(), "ping"});
        return;
      } catch (const std::runtime_error&) {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
      }
    }
    throw std::runtime_error("MariaDB does not start, see server.log");
  }

  std::string Client(const std::string& statements) const override {
    std::string rows =
        RunProgram({"mariadb", "--no-defaults", "--user=" + user, "--password=" + password,
                    "--socket=" + Socket(), "--default-character-set=utf8mb4", "--batch", "--raw",
                    "--skip-column-names", catalog},
                   statements + ";");
    for (char& c : rows) {
      if (c == '\t') c = '|';
    }
    return rows;
  }

  std::string DriverFile() const override { return FindFile({"/usr/lib/*/odbc/libmaodbc.so"}); }
  std::vector<std::string> Settings() const override {
    return {"Server=127.0.0.1", "Port=" + port_, "Database=first"};
  }

 private:
  std::string Data() const { return folder_ / "data"; }
  // A server that starts clears what others have left in the folder, also what they still use.
  std::string OwnTemporary() const { return folder_ / "tmp"; }
  std::string Socket() const { return folder_ / "socket"; }

  std::filesystem::path folder_;
  std::string server_file_;
  std::string port_ = std::to_string(FreePort());
  std::unique_ptr<Process> server_;
};

}  // namespace

std::unique_ptr<TestSource> MakeMariaDb(const std::filesystem::path& folder) {
  return std::make_unique<MariaDbSource>(folder);
}

}  // namespace vandpublic::db_tests
