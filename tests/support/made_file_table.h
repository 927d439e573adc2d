// A table in memory under the SQL engine, with the columns and rows that a test gives it. It can
// fail wherever a file can.
#ifndef VANDPUBLIC_TESTS_SUPPORT_MADE_FILE_TABLE_H
#define VANDPUBLIC_TESTS_SUPPORT_MADE_FILE_TABLE_H

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/posix/ado/ado_errors.h"
#include "platform/posix/ado/sql/file_table.h"
#include "platform/posix/ado/sql/sql_engine.h"
#include "runtime/object.h"

namespace vandpublic::ado {

// Where the table fails, with an error whose description is "broken".
enum class Broken { Nowhere, Scan, Next, Value, Seek, WrittenValue };

struct MadeTable {
  std::vector<TableColumn> columns;
  std::vector<std::vector<Variant>> rows;  // locators are 1, 2, ...
  bool writable = false;
  Broken broken = Broken::Nowhere;

  void FailAt(Broken place) const {
    if (broken == place) Raise(SourceError::Failed, kJetSource, "broken");
  }
};

class MadeRowScan final : public RowScan {
 public:
  explicit MadeRowScan(const MadeTable& table) : table_(table) {}

  bool Next() override {
    table_.FailAt(Broken::Next);
    return ++row_ <= table_.rows.size();
  }
  bool Seek(std::int64_t locator) override {
    table_.FailAt(Broken::Seek);
    row_ = static_cast<std::size_t>(locator);
    return row_ >= 1 && row_ <= table_.rows.size();
  }
  std::int64_t Locator() const override { return static_cast<std::int64_t>(row_); }
  Variant Value(std::size_t column) override {
    table_.FailAt(Broken::Value);
    return table_.rows[row_ - 1][column];
  }

 private:
  const MadeTable& table_;
  std::size_t row_ = 0;
};

class MadeFileTable final : public FileTable {
 public:
  explicit MadeFileTable(MadeTable& table) : table_(table) {}

  const std::vector<TableColumn>& Columns() const override { return table_.columns; }
  std::unique_ptr<RowScan> Scan() override {
    table_.FailAt(Broken::Scan);
    return std::make_unique<MadeRowScan>(table_);
  }
  bool IsWritable() const override { return table_.writable; }
  void Update(std::int64_t locator, const GivenValues&, const GivenValues& values) override {
    Store(table_.rows.at(static_cast<std::size_t>(locator - 1)), values);
  }
  void Delete(std::int64_t locator, const GivenValues&) override {
    table_.rows.erase(table_.rows.begin() + (locator - 1));
  }
  std::int64_t Insert(const GivenValues& values) override {
    table_.rows.emplace_back(table_.columns.size(), NullValue{});
    Store(table_.rows.back(), values);
    return static_cast<std::int64_t>(table_.rows.size());
  }

 private:
  void Store(std::vector<Variant>& row, const GivenValues& values) {
    for (std::size_t i = 0; i < values.size(); ++i) {
      if (values[i]) row[i] = *values[i];
    }
    if (table_.broken == Broken::WrittenValue) table_.broken = Broken::Value;
  }

  MadeTable& table_;
};

// Tables by their names. They must outlive the engine.
class MadeTables final : public TableSource {
 public:
  explicit MadeTables(std::map<std::string, MadeTable*> tables) : tables_(std::move(tables)) {}

  std::shared_ptr<FileTable> Open(std::string_view name) override {
    for (const auto& [own, table] : tables_) {
      if (SameName(own, name)) return std::make_shared<MadeFileTable>(*table);
    }
    return nullptr;
  }

 private:
  std::map<std::string, MadeTable*> tables_;
};

// An engine over one table, which is called "t".
inline SqlEngine EngineOver(MadeTable& table, Dialect dialect) {
  return {std::make_unique<MadeTables>(std::map<std::string, MadeTable*>{{"t", &table}}), dialect};
}

}  // namespace vandpublic::ado

#endif
