// Connections to Jet databases.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_JET_JET_SESSION_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_JET_JET_SESSION_H

#include <memory>

#include "platform/posix/ado/provider.h"

namespace vandpublic::ado {

// Opens the file that Data Source names, for strings such as
//   Provider=Microsoft.Jet.OLEDB.4.0;Data Source=C:\a.mdb;Jet OLEDB:Database password=pw;
// A "\" in the path separates folders. Rows cannot be written.
std::unique_ptr<Session> OpenJetSession(const ConnectionString& connection_string);

}  // namespace vandpublic::ado

#endif
