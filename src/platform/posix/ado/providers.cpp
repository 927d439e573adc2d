// Which kind of data source a connection string asks for.
#include <algorithm>

#include "platform/posix/ado/ado_errors.h"
#include "platform/posix/ado/provider.h"
#include "runtime/object.h"

namespace vandpublic::ado {

OpenSession FindProvider(const ConnectionString&) {
  Raise(ObjectError::ProviderNotFound, kConnectionSource);
}

}  // namespace vandpublic::ado
