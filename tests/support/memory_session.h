// A data source in memory, for the tests of connections and recordsets: one table of a number, a
// short text and a long binary column. It writes down what it is asked to do, and can fail on
// demand.
#ifndef VANDPUBLIC_TESTS_SUPPORT_MEMORY_SESSION_H
#define VANDPUBLIC_TESTS_SUPPORT_MEMORY_SESSION_H

#include <memory>
#include <string>
#include <vector>

#include "platform/posix/ado/ado_connection.h"
#include "platform/posix/ado/ado_errors.h"
#include "platform/posix/ado/provider.h"
#include "runtime/coerce.h"

namespace vandpublic::ado {

struct MemoryTable {
  std::vector<Row> rows;
  std::vector<std::string> calls;
  bool writable = true;
  bool fails = false;  // every write raises "row not located"

  static Row MakeRow(Long id, Variant name, Variant photo = NullValue{}) {
    return {{id, std::move(name), std::move(photo)}, id};
  }
};

class MemoryWriter final : public RowWriter {
 public:
  explicit MemoryWriter(MemoryTable& table) : table_(table) {}

  void Update(const Row& before, Row& after, const ColumnFlags& changed) override {
    std::string columns;
    for (const bool flag : changed)
      columns += flag ? '1' : '0';
    Note("update " + std::to_string(before.locator) + " " + columns);
    for (Row& row : table_.rows) {
      if (row.locator == before.locator) row = after;
    }
  }
  void Insert(Row& added, const ColumnFlags&) override {
    Note("insert");
    added.locator = 1000 + std::ssize(table_.rows);
    table_.rows.push_back(added);
  }
  void Delete(const Row& row) override {
    Note("delete " + std::to_string(row.locator));
    const auto locator = row.locator;
    std::erase_if(table_.rows, [&](const Row& r) { return r.locator == locator; });
  }

 private:
  void Note(std::string call) {
    table_.calls.push_back(std::move(call));
    if (table_.fails) RaiseRowNotLocated();
  }

  MemoryTable& table_;
};

// Statements: "rows" gives the table, anything else gives no rows and changes two.
class MemorySession final : public Session {
 public:
  explicit MemorySession(MemoryTable& table) : table_(table) {}
  ~MemorySession() override { table_.calls.emplace_back("close"); }

  Result Execute(const std::string& statement, bool updatable) override {
    table_.calls.push_back(statement);
    Result result;
    if (statement.find("rows") == std::string::npos) {
      result.rows_affected = 2;
      return result;
    }
    result.columns = {
        {"Id", DataType::Integer, 4, false, false, true, true},
        {"Name", DataType::VarWChar, 20, false, true, true, false},
        {"Photo", DataType::LongVarBinary, 0x7FFFFFFF, true, true, true, false},
        {"Sum", DataType::Double, 8, false, true, false, false},
    };
    result.rows = table_.rows;
    for (Row& row : result.rows)
      row.values.resize(4, Variant(2.5));
    if (updatable && table_.writable) result.writer = std::make_unique<MemoryWriter>(table_);
    return result;
  }
  void SetCommandTimeout(Long seconds) override {
    table_.calls.push_back("timeout " + std::to_string(seconds));
  }
  void Begin() override { table_.calls.emplace_back("begin"); }
  void Commit() override { table_.calls.emplace_back("commit"); }
  void Rollback() override { table_.calls.emplace_back("rollback"); }

 private:
  MemoryTable& table_;
};

// The table that sessions opened by OpenMemory use; one test at a time.
inline MemoryTable* memory_table = nullptr;
inline ConnectionString* memory_string = nullptr;

inline std::unique_ptr<Session> OpenMemory(const ConnectionString& text) {
  if (memory_string != nullptr) *memory_string = text;
  if (text.Value("Data Source") == "broken") Raise(SourceError::Failed, kOdbcSource, "Broken.");
  return std::make_unique<MemorySession>(*memory_table);
}

}  // namespace vandpublic::ado

#endif
