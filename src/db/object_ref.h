// References to the caller's database objects.
#ifndef VANDPUBLIC_DB_OBJECT_REF_H
#define VANDPUBLIC_DB_OBJECT_REF_H

#include <memory>

#include "runtime/errors.h"

namespace vandpublic {

// The object; fault 91 where the reference is not set.
template <class T>
T& ObjectIn(const std::shared_ptr<T>& reference) {
  if (reference == nullptr) RaiseFault(FaultNumber::ObjectVariableNotSet);
  return *reference;
}

}  // namespace vandpublic

#endif
