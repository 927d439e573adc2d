// Texts of the errors.
#include "platform/posix/ado/dbf/dbf_errors.h"

#include <cerrno>
#include <string>
#include <system_error>

namespace vandpublic::ado {

void RaiseDbf(SourceError error, std::string_view description) {
  Raise(error, kOdbcSource, description);
}

void RaiseNotATable(std::string_view file, std::string_view reason) {
  RaiseDbf(SourceError::Failed,
           "Not a table. File '" + std::string(file) + "': " + std::string(reason) + ".");
}

void RaiseDbfSystemError(int error_number, std::string_view file) {
  const bool refused = error_number == EACCES || error_number == EPERM || error_number == EROFS;
  RaiseDbf(refused ? SourceError::PermissionDenied : SourceError::Failed,
           "Cannot access file '" + std::string(file) +
               "': " + std::generic_category().message(error_number) + ".");
}

}  // namespace vandpublic::ado
