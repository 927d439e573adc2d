// Look-ups by SelectField in an SQLite source, beside the same statements in the plain ODBC API.
//
//   bench_look_ups [LOOK_UPS_A_ROUND] [ROUNDS]      (2000, 15)
//
// Rounds of the two alternate in one process, on one file, through one driver manager; the ratio is
// the median over pairs of rounds of the time by SelectField over that by the plain API. The plain
// program does what one would write by hand: a statement handle, execute, fetch, one SQLGetData,
// free.
#include <sql.h>
#include <sqlext.h>
#include <vandpublic/clsPublic.h>
#include <vandpublic/database.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using vandpublic::clsPublic;
using vandpublic::ConnectionRef;
using vandpublic::String;
using vandpublic::Variant;

constexpr int kRows = 10000;
constexpr const char* kSource = "LookUps";

// A folder with the data file and settings of ODBC that name it; removed at the end.
class Folder {
 public:
  Folder() {
    std::string name = std::filesystem::temp_directory_path() / "vandpublic-bench-XXXXXX";
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
    path_ = name;
    std::ofstream(path_ / "odbc.ini")
        << "[" << kSource << "]\nDriver=SQLite3\nDatabase=" << (path_ / "data.db").string() << '\n';
    setenv("ODBCINI", (path_ / "odbc.ini").c_str(), 1);
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  ~Folder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

 private:
  std::filesystem::path path_;
};

void Check(SQLRETURN result, const char* what) {
  if (!SQL_SUCCEEDED(result)) throw std::runtime_error(what);
}

// What a program without the component does.
class PlainOdbc {
 public:
  PlainOdbc() {
    Check(SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment_), "environment");
    SQLSetEnvAttr(environment_, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3),
                  0);
    Check(SQLAllocHandle(SQL_HANDLE_DBC, environment_, &connection_), "connection");
    const std::string text = std::string("DSN=") + kSource;
    Check(SQLDriverConnect(connection_, nullptr, Text(text), SQL_NTS, nullptr, 0, nullptr,
                           SQL_DRIVER_NOPROMPT),
          "connect");
  }
  PlainOdbc(const PlainOdbc&) = delete;
  PlainOdbc& operator=(const PlainOdbc&) = delete;
  ~PlainOdbc() {
    SQLDisconnect(connection_);
    SQLFreeHandle(SQL_HANDLE_DBC, connection_);
    SQLFreeHandle(SQL_HANDLE_ENV, environment_);
  }

  std::string LookUp(int code) {
    const std::string statement =
        "Select Name As RetField From Staff Where Code=" + std::to_string(code);
    SQLHANDLE handle = SQL_NULL_HANDLE;
    Check(SQLAllocHandle(SQL_HANDLE_STMT, connection_, &handle), "statement");
    Check(SQLExecDirect(handle, Text(statement), SQL_NTS), "execute");
    std::string value;
    if (SQLFetch(handle) == SQL_SUCCESS) {
      char buffer[1024];
      SQLLEN length = 0;
      Check(SQLGetData(handle, 1, SQL_C_CHAR, buffer, sizeof buffer, &length), "value");
      value.assign(buffer, static_cast<std::size_t>(length));
    }
    SQLFreeHandle(SQL_HANDLE_STMT, handle);
    return value;
  }

 private:
  static SQLCHAR* Text(const std::string& text) {
    return const_cast<SQLCHAR*>(reinterpret_cast<const SQLCHAR*>(text.c_str()));
  }

  SQLHANDLE environment_ = SQL_NULL_HANDLE;
  SQLHANDLE connection_ = SQL_NULL_HANDLE;
};

class ByMember {
 public:
  ByMember() {
    connection_ = vandpublic::MakeConnection();
    component_.OpenConnAsSQLDNS(connection_, kSource, "", "", "");
  }

  void MakeTable() {
    const auto execute = [this](const std::string& statement) {
      std::vector<Variant> arguments{Variant(statement.c_str())};
      connection_->Call("Execute", arguments);
    };
    execute("CREATE TABLE Staff (Code INTEGER PRIMARY KEY, Name VARCHAR(40))");
    execute("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " +
            std::to_string(kRows) + ") INSERT INTO Staff SELECT i, 'Name of ' || i FROM n");
  }

  std::string LookUp(int code) {
    component_.SelectField(connection_, "Name", value_, table_, column_,
                           String(std::to_string(code)), false);
    return value_.Get<String>()->ToUtf8();
  }

 private:
  clsPublic component_;
  ConnectionRef connection_;
  String table_ = "Staff";
  String column_ = "Code";
  Variant value_;
};

// Seconds of the processor for one round: what else the machine does counts less in them.
template <class Who>
double Round(Who& who, int look_ups) {
  const std::clock_t start = std::clock();
  for (int i = 0; i < look_ups; ++i) {
    const int code = 1 + i * 7919 % kRows;
    if (who.LookUp(code) != "Name of " + std::to_string(code)) throw std::runtime_error("value");
  }
  return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

void Measure(int look_ups, int rounds) {
  const Folder folder;
  ByMember member;
  member.MakeTable();
  PlainOdbc plain;
  Round(member, look_ups);
  Round(plain, look_ups);
  std::vector<double> by_member;
  std::vector<double> by_plain;
  std::vector<double> ratios;
  for (int i = 0; i < rounds; ++i) {
    by_member.push_back(Round(member, look_ups));
    by_plain.push_back(Round(plain, look_ups));
    ratios.push_back(by_member.back() / by_plain.back());
  }
  const double member_time = Median(by_member) / look_ups;
  const double plain_time = Median(by_plain) / look_ups;
  std::printf("SelectField   %8.0f look-ups a second   %6.1f us each\n", 1 / member_time,
              member_time * 1e6);
  std::printf("plain ODBC    %8.0f look-ups a second   %6.1f us each\n", 1 / plain_time,
              plain_time * 1e6);
  std::printf("ratio         %8.2f\n", Median(ratios));
}

}  // namespace

int main(int argc, char** argv) {
  try {
    Measure(argc > 1 ? std::atoi(argv[1]) : 2000, argc > 2 ? std::atoi(argv[2]) : 15);
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
}
