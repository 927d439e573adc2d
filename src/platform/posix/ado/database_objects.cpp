// Makes connections and recordsets.
#include "platform/posix/ado/database_objects.h"

#include "platform/posix/ado/ado_connection.h"
#include "platform/posix/ado/ado_recordset.h"

namespace vandpublic::ado {
namespace {

class AdoObjects final : public DatabaseObjects {
 public:
  ConnectionRef MakeConnection() override { return std::make_shared<AdoConnection>(); }
  RecordsetRef MakeRecordset() override { return std::make_shared<AdoRecordset>(); }
};

}  // namespace

std::shared_ptr<DatabaseObjects> MakeDatabaseObjects() { return std::make_shared<AdoObjects>(); }

}  // namespace vandpublic::ado
