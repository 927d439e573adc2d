// What a connection string says of the folder.
#include "platform/posix/ado/dbf/dbf_session.h"

#include "platform/platform.h"
#include "platform/posix/ado/dbf/dbf_errors.h"
#include "platform/posix/ado/dbf/dbf_folder.h"
#include "platform/posix/ado/sql/sql_engine.h"
#include "platform/posix/posix_paths.h"
#include "runtime/object.h"
#include "runtime/utf8.h"

namespace vandpublic::ado {

std::unique_ptr<Session> OpenDbfSession(const ConnectionString& connection_string) {
  const std::string kind = connection_string.Value("SourceType");
  if (!kind.empty() && !SameName(kind, "DBF")) {
    RaiseDbf(SourceError::Failed, "SourceType=" + kind + " is not supported.");
  }
  const std::string exclusive = connection_string.Value("Exclusive");
  if (SameName(exclusive, "Yes") || SameName(exclusive, "True") || exclusive == "1") {
    RaiseDbf(SourceError::Failed, "Exclusive=" + exclusive + " is not supported.");
  }
  const auto platform = SystemPlatform();
  return std::make_unique<SqlEngine>(
      std::make_unique<DbfFolder>(NativePath(FromUtf8(connection_string.Value("SourceDB"))),
                                  DbfSettings{platform->code_page, platform->clock}),
      Dialect::FoxPro);
}

}  // namespace vandpublic::ado
