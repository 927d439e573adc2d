// The dynamic loader behind LoadedLibrary.
#include "platform/posix/ado/loaded_library.h"

#include <dlfcn.h>

#include "platform/posix/ado/ado_errors.h"

namespace vandpublic::ado {

LoadedLibrary::LoadedLibrary(const char* file_name)
    : handle_(dlopen(file_name, RTLD_NOW | RTLD_LOCAL)) {
  if (handle_ == nullptr) Raise(ObjectError::ProviderNotFound, kConnectionSource);
}

void* LoadedLibrary::Symbol(const char* name) const {
  void* const symbol = dlsym(handle_, name);
  if (symbol == nullptr) Raise(ObjectError::ProviderNotFound, kConnectionSource);
  return symbol;
}

}  // namespace vandpublic::ado
