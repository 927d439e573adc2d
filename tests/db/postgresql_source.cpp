// A PostgreSQL server on the loopback interface.
#include <signal.h>

#include <chrono>
#include <fstream>
#include <stdexcept>
#include <thread>

#include "db/process.h"
#include "db/test_source.h"

namespace vandpublic::db_tests {
namespace {

class PostgreSqlSource final : public TestSource {
 public:
  explicit PostgreSqlSource(const std::filesystem::path& folder)
      : folder_(folder), programs_(FindFile({"/usr/lib/postgresql/*/bin"})) {
    name = "postgresql";
    catalog = "second";
    types = {"bytea", "text", "boolean", "timestamp", "double precision"};
  }
  ~PostgreSqlSource() override {
    if (server_ != nullptr) server_->End(SIGINT);
  }

  std::string Missing() const override {
    if (FindFile({programs_ + "/postgres"}).empty()) return "PostgreSQL's server is not installed";
    if (DriverFile().empty()) return "the ODBC driver odbc-postgresql is not installed";
    return {};
  }

  void Start() override {
    std::ofstream(folder_ / "password") << password << '\n';
    RunProgram({programs_ + "/initdb", "--no-sync", "-A", "scram-sha-256", "-E", "UTF8",
                "--locale=C.UTF-8", "-U", user, "--pwfile", folder_ / "password", "-D",
                folder_ / "data"});
    Restart();
    Client("CREATE DATABASE second", "postgres");
  }

  pid_t ServerPid() const override { return server_->pid(); }
  int CrashSignal() const override { return SIGQUIT; }
  void Kill() override { server_->End(CrashSignal()); }

  void Restart() override {
    server_ = std::make_unique<Process>(
        Arguments{programs_ + "/postgres", "-D", folder_ / "data", "-c",
                  "listen_addresses=127.0.0.1", "-c", "port=" + port_, "-c",
                  "unix_socket_directories=" + folder_.string(), "-c", "fsync=off"},
        folder_ / "server.log");
    for (int i = 0; i < 300; ++i) {
      try {
        RunProgram({programs_ + "/pg_isready", "-q", "-h", folder_, "-p", port_});
        return;
      } catch (const std::runtime_error&) {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
      }
    }
    throw std::runtime_error("PostgreSQL does not start, see server.log");
  }

  std::string Client(const std::string& statements) const override {
    return Client(statements, catalog);
  }
  std::string HexOf(const std::string& column) const override {
    return "upper(encode(" + column + ", 'hex'))";
  }
  std::string Binary(const std::string& digits) const override {
    return "decode('" + digits + "', 'hex')";
  }

  std::string DriverFile() const override { return FindFile({"/usr/lib/*/odbc/psqlodbcw.so"}); }
  std::vector<std::string> Settings() const override {
    return {"Servername=127.0.0.1", "Port=" + port_, "Database=postgres"};
  }

 private:
  std::string Client(const std::string& statements, const std::string& database) const {
    return RunProgram(
        {"env", "PGPASSWORD=" + password, programs_ + "/psql", "-X", "-q", "-A", "-t", "-v",
         "ON_ERROR_STOP=1", "-h", folder_, "-p", port_, "-U", user, "-d", database},
        statements + ";");
  }

  std::filesystem::path folder_;
  std::string programs_;
  std::string port_ = std::to_string(FreePort());
  std::unique_ptr<Process> server_;
};

}  // namespace

std::unique_ptr<TestSource> MakePostgreSql(const std::filesystem::path& folder) {
  return std::make_unique<PostgreSqlSource>(folder);
}

}  // namespace vandpublic::db_tests
