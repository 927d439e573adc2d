// Writes rows of an ODBC statement back to their table.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_ODBC_ODBC_WRITER_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_ODBC_ODBC_WRITER_H

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/posix/ado/odbc/odbc_session.h"
#include "platform/posix/ado/odbc/odbc_types.h"
#include "platform/posix/ado/provider.h"

namespace vandpublic::ado {

// A row is found by its primary key, else by a unique index without null values, else by all its
// short values; it must be the only one. Columns of several tables, or of none, raise "Insufficient
// base table information" when a row is written.
class OdbcWriter final : public RowWriter {
 public:
  // Marks the columns that can be written.
  static std::unique_ptr<OdbcWriter> Make(const OdbcSession& session, const std::string& statement,
                                          std::vector<OdbcColumn> sources,
                                          std::vector<Column>& columns);

  void Update(const Row& before, Row& after, const ColumnFlags& changed) override;
  void Insert(Row& added, const ColumnFlags& given) override;
  void Delete(const Row& row) override;

 private:
  // Columns of the result that together identify a row.
  using Key = std::vector<std::size_t>;

  OdbcWriter(const OdbcSession& session, std::vector<OdbcColumn> sources);

  void FindTable(const std::string& statement);
  void MarkColumns(std::vector<Column>& columns);
  void FindKeys();
  void AddKey(const std::vector<std::string>& names);
  void RequireTable() const;
  std::string Quoted(const std::string& name) const;
  std::string TableText() const;
  const Key& KeyFor(const Row& row) const;
  void Execute(const std::string& text, const std::vector<std::size_t>& columns,
               const std::vector<const Variant*>& values);
  std::string Condition(const Row& row, std::vector<std::size_t>& columns,
                        std::vector<const Variant*>& values) const;

  const OdbcSession& session_;
  std::vector<OdbcColumn> sources_;
  ColumnFlags writable_;
  std::optional<OdbcColumn> table_;  // its catalog, schema and table
  std::string quote_;
  std::vector<Key> keys_;  // the best first
  Key comparable_;
};

}  // namespace vandpublic::ado

#endif
