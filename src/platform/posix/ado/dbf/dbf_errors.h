// The errors of dBASE and FoxPro tables, with the numbers and the source that clients of the ODBC
// driver for them know.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_DBF_DBF_ERRORS_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_DBF_DBF_ERRORS_H

#include <string_view>

#include "platform/posix/ado/ado_errors.h"

namespace vandpublic::ado {

// Both texts are UTF-8.
[[noreturn]] void RaiseDbf(SourceError error, std::string_view description);

// "Not a table.", and what gave it away: a file of another kind, or a damaged one.
[[noreturn]] void RaiseNotATable(std::string_view file, std::string_view reason);

// A system call on the file failed; the description names the file and the system's reason.
[[noreturn]] void RaiseDbfSystemError(int error_number, std::string_view file);

}  // namespace vandpublic::ado

#endif
