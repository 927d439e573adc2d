// A Jet database as a source of tables, for reading.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_JET_JET_DATABASE_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_JET_JET_DATABASE_H

#include <memory>
#include <string>

#include "platform/code_page.h"
#include "platform/posix/ado/sql/file_table.h"

namespace vandpublic::ado {

// The lock file beside the database is not looked at: rows that another program is writing may be
// read half written, or as damaged.
class JetDatabase final : public TableSource {
 public:
  // Opens the file and checks its password, "Not a valid password.". `ansi` is the code page of
  // the component.
  JetDatabase(std::string native_path, std::u16string_view password,
              std::shared_ptr<const CodePage> ansi);

  // Tables that the user made. A linked table or a saved query of that name is an error that says
  // so.
  std::shared_ptr<FileTable> Open(std::string_view name) override;

 private:
  std::string path_;
  std::shared_ptr<const CodePage> ansi_;
};

}  // namespace vandpublic::ado

#endif
