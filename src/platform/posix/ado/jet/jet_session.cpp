// What a connection string says of the database.
#include "platform/posix/ado/jet/jet_session.h"

#include "platform/platform.h"
#include "platform/posix/ado/jet/jet_database.h"
#include "platform/posix/ado/sql/sql_engine.h"
#include "platform/posix/posix_paths.h"
#include "runtime/utf8.h"

namespace vandpublic::ado {

std::unique_ptr<Session> OpenJetSession(const ConnectionString& connection_string) {
  auto database = std::make_unique<JetDatabase>(
      NativePath(FromUtf8(connection_string.Value("Data Source"))),
      FromUtf8(connection_string.Value("Jet OLEDB:Database Password")),
      SystemPlatform()->code_page);
  return std::make_unique<SqlEngine>(std::move(database), Dialect::Jet);
}

}  // namespace vandpublic::ado
