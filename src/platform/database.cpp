// Database objects of this system for clients that call the component directly.
#include "platform/database.h"

#include "platform/platform.h"
#include "runtime/errors.h"

namespace vandpublic {
namespace {

DatabaseObjects& SystemObjects() {
  DatabaseObjects* const objects = SystemPlatform()->database.get();
  if (objects == nullptr) RaiseFault(FaultNumber::CannotCreateObject);
  return *objects;
}

}  // namespace

ConnectionRef MakeConnection() { return SystemObjects().MakeConnection(); }
RecordsetRef MakeRecordset() { return SystemObjects().MakeRecordset(); }

}  // namespace vandpublic
