// Which kind of data source a connection string asks for.
#include <string>

#include "platform/posix/ado/ado_errors.h"
#include "platform/posix/ado/dbf/dbf_session.h"
#include "platform/posix/ado/jet/jet_session.h"
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
    {"Microsoft.Jet.OLEDB.4.0", &OpenJetSession},
};

// The one ODBC driver that is built in: there is none for this system.
constexpr std::string_view kFoxProDriver = "Microsoft Visual FoxPro Driver";

bool IsFoxPro(const ConnectionString& text) {
  return SameName(text.Value("Driver"), kFoxProDriver);
}

}  // namespace

OpenSession FindProvider(const ConnectionString& text) {
  const std::string* const wanted = text.Find("Provider");
  if (IsFoxPro(text)) return &OpenDbfSession;
  if (wanted == nullptr) return &OpenOdbcSession;
  for (const NamedProvider& provider : kProviders) {
    if (SameName(provider.name, *wanted)) return provider.open;
  }
  Raise(ObjectError::ProviderNotFound, kConnectionSource);
}

}  // namespace vandpublic::ado
