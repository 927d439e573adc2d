// Statements over the tables of files, run by SQLite.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_SQL_SQL_ENGINE_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_SQL_SQL_ENGINE_H

#include <memory>
#include <string>

#include "platform/posix/ado/provider.h"
#include "platform/posix/ado/sql/file_table.h"
#include "platform/posix/ado/sql/sql_tokens.h"

namespace vandpublic::ado {

// A data source made of files. Each statement looks its tables up anew and so sees what they hold
// now; between statements no file is open, but by the writers of results.
//
// A statement can only read the tables that it names, and change them where their kind can be
// written: SQLite's own commands, attached files and extensions are out of its reach.
class SqlEngine final : public Session {
 public:
  // Error 3706 where SQLite is not installed.
  SqlEngine(std::unique_ptr<TableSource> source, Dialect dialect);

  Result Execute(const std::string& statement, bool updatable) override;
  void SetCommandTimeout(Long seconds) override { command_timeout_ = seconds; }

 private:
  std::unique_ptr<TableSource> source_;
  Dialect dialect_;
  Long command_timeout_ = 0;
};

}  // namespace vandpublic::ado

#endif
