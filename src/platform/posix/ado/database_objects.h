// The database objects of Linux.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_DATABASE_OBJECTS_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_DATABASE_OBJECTS_H

#include <memory>

#include "platform/database.h"

namespace vandpublic::ado {

std::shared_ptr<DatabaseObjects> MakeDatabaseObjects();

}  // namespace vandpublic::ado

#endif
