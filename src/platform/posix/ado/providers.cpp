// Which kind of data source a connection string asks for.
#include <string>

#include "platform/posix/ado/ado_errors.h"
#include "platform/posix/ado/odbc/odbc_session.h"
#include "platform/posix/ado/provider.h"
#include "runtime/object.h"

namespace vandpublic::ado {
namespace {

struct NamedProvider {
  std::string_view name;
  OpenSession open;
};

constexpr NamedProvider kProviders[] = {
    {"MSDASQL", &OpenOdbcSession},
    {"MSDASQL.1", &OpenOdbcSession},
};

}  // namespace

OpenSession FindProvider(const ConnectionString& text) {
  const std::string* const wanted = text.Find("Provider");
  if (wanted == nullptr) return &OpenOdbcSession;
  for (const NamedProvider& provider : kProviders) {
    if (SameName(provider.name, *wanted)) return provider.open;
  }
  Raise(ObjectError::ProviderNotFound, kConnectionSource);
}

}  // namespace vandpublic::ado
