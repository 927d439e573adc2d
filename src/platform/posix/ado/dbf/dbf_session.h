// Connections to folders of dBASE and FoxPro tables.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_DBF_DBF_SESSION_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_DBF_DBF_SESSION_H

#include <memory>

#include "platform/posix/ado/provider.h"

namespace vandpublic::ado {

// Opens the folder that SourceDB names, for strings such as
//   Driver={Microsoft Visual FoxPro Driver};SourceType=DBF;SourceDB=C:\Data;Exclusive=No
// A "\" in the path separates folders. Database containers (SourceType=DBC) and exclusive use are
// refused.
std::unique_ptr<Session> OpenDbfSession(const ConnectionString& connection_string);

}  // namespace vandpublic::ado

#endif
