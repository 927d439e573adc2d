// What happens when the other side fails: servers that die, tables that are locked, disks that are
// full; and that nothing is left behind by many calls.
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <fstream>

#include "db/db_test.h"
#include "db/process.h"

namespace vandpublic::db_tests {
namespace {

constexpr Long kOptimistic = 3;

class FaultsTest : public DbTest {};

// Kills the server half a second from now.
class Killer {
 public:
  Killer() : pid_(fork()) {
    if (pid_ != 0) return;
    usleep(500'000);
    kill(Source().ServerPid(), Source().CrashSignal());
    _exit(0);
  }
  Killer(const Killer&) = delete;
  Killer& operator=(const Killer&) = delete;
  ~Killer() { waitpid(pid_, nullptr, 0); }

 private:
  pid_t pid_;
};

TEST_F(FaultsTest, Many_look_ups_leave_nothing_behind) {
  MakeTable("staff", "name VARCHAR(40), code INTEGER");
  Execute("INSERT INTO staff VALUES ('Li', 7)");
  const auto look_up = [&](int times) {
    for (int i = 0; i < times; ++i) {
      Variant value;
      component_.SelectField(connection_, "name", value, u"staff", u"code", u"7", false);
      ASSERT_EQ(Shown(value), "String Li");
    }
  };
  look_up(1000);
  const int descriptors = OpenDescriptors();
  const long memory = MemoryInUse();
  look_up(10000);
  EXPECT_EQ(OpenDescriptors(), descriptors);
  EXPECT_LT(MemoryInUse() - memory, 2048) << "KiB";
}

TEST_F(FaultsTest, Many_failures_and_connections_leave_nothing_behind) {
  component_.DebugMode(DEBUG_MODE_OFF);
  const auto fail = [&](int times) {
    for (int i = 0; i < times; ++i) {
      Variant value;
      EXPECT_NE(RaisedBy([&] { component_.SelectField(connection_, "x", value, u"nowhere"); }),
                kNothingRaised);
      ConnectionRef connection = Connect();
      connection = MakeConnection();
      EXPECT_NE(RaisedBy([&] { component_.OpenConnAsSQLDNS(connection, "nowhere", "", "", ""); }),
                kNothingRaised);
    }
  };
  fail(10);
  const int descriptors = OpenDescriptors();
  const long memory = MemoryInUse();
  fail(100);
  EXPECT_EQ(OpenDescriptors(), descriptors);
  EXPECT_LT(MemoryInUse() - memory, 4096) << "KiB";
}

TEST_F(FaultsTest, Server_that_dies_is_an_error_at_the_next_call) {
  if (!Source().is_server) GTEST_SKIP() << "a file has no server";
  MakeTable("f", "id INTEGER NOT NULL PRIMARY KEY, name VARCHAR(20)");
  Execute("INSERT INTO f VALUES (1, 'a')");
  const RecordsetRef rows = Open("SELECT * FROM f", kOptimistic);
  Source().Kill();
  // The rows are ours already.
  EXPECT_EQ(Shown(Value(*rows, "name")), "String a");
  Set(*FieldOf(*rows, "name"), "Value", "b");
  EXPECT_NE(RaisedBy([&] { Call(*rows, "Update"); }), kNothingRaised);
  const Raised raised = RaisedBy([&] { Open("SELECT * FROM f"); });
  EXPECT_NE(raised, kNothingRaised);
  EXPECT_THAT(raised.description, testing::HasSubstr("Microsoft OLE DB Provider for ODBC Drivers"));
  ConnectionRef another;
  EXPECT_NE(RaisedBy([&] { another = Connect(); }), kNothingRaised);
  EXPECT_EQ(RaisedBy([&] { Call(*connection_, "Close"); }), kNothingRaised);
  Source().Restart();
  connection_ = Connect();
  EXPECT_EQ(Shown(Value(*Open("SELECT name FROM f"), "name")), "String a");
}

TEST_F(FaultsTest, Server_that_dies_inside_a_transaction_has_stored_nothing) {
  if (!Source().is_server) GTEST_SKIP() << "a file has no server";
  MakeTable("f", "id INTEGER NOT NULL PRIMARY KEY, name VARCHAR(20)");
  Execute("INSERT INTO f VALUES (1, 'a')");
  const RecordsetRef rows = Open("SELECT * FROM f", kOptimistic);
  Call(*connection_, "BeginTrans");
  Set(*FieldOf(*rows, "name"), "Value", "b");
  Call(*rows, "Update");
  Source().Kill();
  EXPECT_NE(RaisedBy([&] { Call(*connection_, "CommitTrans"); }), kNothingRaised);
  connection_ = nullptr;
  Source().Restart();
  connection_ = Connect();
  EXPECT_EQ(Shown(Value(*Open("SELECT name FROM f"), "name")), "String a");
}

TEST_F(FaultsTest, Server_that_dies_while_it_sends_rows_is_an_error) {
  if (!Source().is_server) GTEST_SKIP() << "a file has no server";
  // Ten kilobytes a row, a hundred rows a second.
  const std::string slow =
      Source().name == "mariadb"
          ? "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 900) "
            "SELECT repeat('x', 10000) AS x, sleep(0.01) AS p FROM n"
          : "SELECT repeat('x', 10000) AS x, pg_sleep(0.01)::text AS p FROM "
            "generate_series(1, 900)";
  const Killer killer;
  const auto start = std::chrono::steady_clock::now();
  EXPECT_NE(RaisedBy([&] { Open(slow); }), kNothingRaised);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
  connection_ = nullptr;
  Source().Kill();
  Source().Restart();
  EXPECT_EQ(RaisedBy([&] { connection_ = Connect(); }), kNothingRaised);
}

TEST_F(FaultsTest, Server_that_dies_in_the_middle_of_an_update_has_stored_nothing) {
  if (!Source().is_server) GTEST_SKIP() << "a file has no server";
  MakeTable("f", "id INTEGER NOT NULL PRIMARY KEY, photo " + Source().types.binary);
  Execute("INSERT INTO f VALUES (1, " + Source().Binary("0102") + ")");
  const RecordsetRef rows = Open("SELECT * FROM f", kOptimistic);
  // The update waits for this transaction until the server dies.
  ConnectionRef other = Connect();
  Call(*other, "BeginTrans");
  Execute(*other, "DELETE FROM f");
  Set(*FieldOf(*rows, "photo"), "Value", ByteArray(Pattern(1'000'000)));
  {
    const Killer killer;
    const auto start = std::chrono::steady_clock::now();
    EXPECT_NE(RaisedBy([&] { Call(*rows, "Update"); }), kNothingRaised);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
  }
  // The edit is still there, and so are the objects.
  EXPECT_EQ(FieldOf(*rows, "photo")->GetActualSize(), 1'000'000);
  EXPECT_NE(RaisedBy([&] { Call(*rows, "Update"); }), kNothingRaised);
  Call(*rows, "CancelUpdate");
  EXPECT_EQ(Shown(Value(*rows, "photo")), "bytes 0102");
  EXPECT_EQ(RaisedBy([&] { Call(*connection_, "Close"); }), kNothingRaised);
  other = nullptr;
  Source().Kill();
  Source().Restart();
  EXPECT_EQ(Client("SELECT " + Source().HexOf("photo") + " FROM f"), "0102");
}

TEST_F(FaultsTest, Row_that_another_connection_locks_is_an_error_after_the_time_out) {
  MakeTable("f", "id INTEGER NOT NULL PRIMARY KEY, name VARCHAR(20)");
  Execute("INSERT INTO f VALUES (1, 'a')");
  const RecordsetRef rows = Open("SELECT * FROM f", kOptimistic);
  const ConnectionRef other = Connect();
  Call(*other, "BeginTrans");
  Execute(*other, "UPDATE f SET name = 'locked'");
  Set(*connection_, "CommandTimeout", Long{1});
  Set(*FieldOf(*rows, "name"), "Value", "b");
  const auto start = std::chrono::steady_clock::now();
  EXPECT_NE(RaisedBy([&] { Call(*rows, "Update"); }), kNothingRaised);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
  Call(*other, "RollbackTrans");
  Call(*rows, "Update");
  EXPECT_EQ(Client("SELECT name FROM f"), "b");
}

TEST_F(FaultsTest, Statement_that_takes_too_long_is_stopped) {
  if (!Source().is_server) GTEST_SKIP() << "its driver knows no time-out";
  const std::string slow =
      Source().name == "mariadb" ? "SELECT sleep(20) AS x" : "SELECT pg_sleep(20)::text AS x";
  Set(*connection_, "CommandTimeout", Long{1});
  const auto start = std::chrono::steady_clock::now();
  RaisedBy([&] { Open(slow); });  // MariaDB's sleep returns early instead of failing
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
  EXPECT_EQ(Shown(Value(*Open("SELECT 'x' AS x"), "x")), "String x");
}

// What writes the data cannot make its files larger than this: a limit on this process, or on the
// server, set by a program that runs as the server's user.
class SizeLimit {
 public:
  explicit SizeLimit(rlim_t size) {
    std::signal(SIGXFSZ, SIG_IGN);
    getrlimit(RLIMIT_FSIZE, &before_);
    Set(size);
  }
  SizeLimit(const SizeLimit&) = delete;
  SizeLimit& operator=(const SizeLimit&) = delete;
  ~SizeLimit() { Set(before_.rlim_cur); }

 private:
  void Set(rlim_t size) {
    if (Source().is_server) {
      const std::string limit = size == RLIM_INFINITY ? "unlimited" : std::to_string(size);
      RunProgram(
          {"prlimit", "--pid=" + std::to_string(Source().ServerPid()), "--fsize=" + limit + ":"});
      return;
    }
    const rlimit limit{size, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }

  rlimit before_{};
};

TEST_F(FaultsTest, Full_disk_is_an_error_and_loses_no_row) {
  constexpr std::size_t kLargeValue = 12'000'000;
  MakeTable("f", "id INTEGER NOT NULL PRIMARY KEY, photo " + Source().types.binary);
  // As it is, so that its size is known.
  if (Source().name == "postgresql") Execute("ALTER TABLE f ALTER photo SET STORAGE EXTERNAL");
  Execute("INSERT INTO f VALUES (1, " + Source().Binary("00") + "), (2, " +
          Source().Binary("0102") + ")");
  RecordsetRef rows = Open("SELECT * FROM f WHERE id = 1", kOptimistic);
  Set(*FieldOf(*rows, "photo"), "Value", ByteArray(Pattern(kLargeValue)));
  Call(*rows, "Update");
  {
    // Room for the files of the server itself, and for the first value, but not for another.
    const SizeLimit limit(rlim_t{20} << 20);
    connection_ = Connect();  // served by a process that has the limit
    rows = Open("SELECT * FROM f WHERE id = 2", kOptimistic);
    Set(*FieldOf(*rows, "photo"), "Value", ByteArray(Pattern(kLargeValue)));
    EXPECT_NE(RaisedBy([&] { Call(*rows, "Update"); }), kNothingRaised);
    EXPECT_EQ(Client("SELECT " + Source().HexOf("photo") + " FROM f WHERE id = 2"), "0102");
    Call(*rows, "CancelUpdate");
    EXPECT_EQ(Shown(Value(*rows, "photo")), "bytes 0102");
  }
  connection_ = Connect();
  rows = Open("SELECT * FROM f WHERE id = 2", kOptimistic);
  Set(*FieldOf(*rows, "photo"), "Value", ByteArray(Pattern(kLargeValue)));
  Call(*rows, "Update");
  EXPECT_EQ(Client("SELECT length(photo) FROM f ORDER BY id"), "12000000\n12000000");
  Execute("DROP TABLE f");
}

}  // namespace
}  // namespace vandpublic::db_tests
