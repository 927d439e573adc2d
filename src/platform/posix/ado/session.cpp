// What a source without transactions answers.
#include "platform/posix/ado/ado_errors.h"
#include "platform/posix/ado/provider.h"

namespace vandpublic::ado {

void Session::Begin() { RaiseNotCapable(kConnectionSource); }
void Session::Commit() { RaiseNotCapable(kConnectionSource); }
void Session::Rollback() { RaiseNotCapable(kConnectionSource); }

}  // namespace vandpublic::ado
