// A folder of dBASE and FoxPro tables.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_DBF_DBF_FOLDER_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_DBF_DBF_FOLDER_H

#include <string>

#include "platform/posix/ado/dbf/dbf_table.h"
#include "platform/posix/ado/sql/file_table.h"

namespace vandpublic::ado {

// Tables are the files with the ending .dbf, their memo files those of the same name with .fpt or
// .dbt, all in any letter case; a name spelled exactly so goes before the others. Nothing is kept
// open or remembered between calls.
class DbfFolder final : public TableSource {
 public:
  // "Invalid path ..." for what is no folder.
  DbfFolder(std::string native_path, DbfSettings settings);

  std::shared_ptr<FileTable> Open(std::string_view name) override;

 private:
  std::string path_;
  DbfSettings settings_;
};

}  // namespace vandpublic::ado

#endif
