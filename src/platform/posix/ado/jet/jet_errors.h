// The errors of Jet databases.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_JET_JET_ERRORS_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_JET_JET_ERRORS_H

#include <string_view>

#include "platform/posix/ado/ado_errors.h"

namespace vandpublic::ado {

[[noreturn]] void RaiseJet(SourceError error, std::string_view description);

// What is stored does not follow the format; the text names what is damaged.
[[noreturn]] void RaiseDamaged(std::string_view what);

}  // namespace vandpublic::ado

#endif
