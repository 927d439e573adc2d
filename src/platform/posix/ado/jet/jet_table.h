// One table of a Jet database.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_JET_JET_TABLE_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_JET_JET_TABLE_H

#include <memory>
#include <vector>

#include "platform/posix/ado/jet/jet_definition.h"
#include "platform/posix/ado/jet/jet_file.h"
#include "platform/posix/ado/sql/file_table.h"

namespace vandpublic::ado {

// Read only. A row's locator is its page times 65536 plus its number on the page.
class JetTable final : public FileTable {
 public:
  // The definition begins at the page.
  JetTable(std::shared_ptr<const JetFile> file, std::uint32_t page);

  const std::vector<TableColumn>& Columns() const override { return columns_; }
  std::unique_ptr<RowScan> Scan() override;
  bool IsWritable() const override { return false; }
  void Update(std::int64_t locator, const GivenValues& before, const GivenValues& values) override;
  void Delete(std::int64_t locator, const GivenValues& before) override;
  std::int64_t Insert(const GivenValues& values) override;

 private:
  std::shared_ptr<const JetFile> file_;
  JetDefinition definition_;
  std::vector<TableColumn> columns_;
};

}  // namespace vandpublic::ado

#endif
