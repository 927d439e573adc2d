// Finds the driver manager's entry points.
#include "platform/posix/ado/odbc/odbc_library.h"

#include <mutex>
#include <type_traits>

#include "platform/posix/ado/loaded_library.h"

namespace vandpublic::ado {
namespace {

constexpr const char* kManager = "libodbc.so.2";
constexpr const char* kInstaller = "libodbcinst.so.2";

template <class Pointer>
void Find(const LoadedLibrary& file, const char* name, Pointer& function) {
  function = file.Function<std::remove_pointer_t<Pointer>>(name);
}

}  // namespace

std::shared_ptr<const OdbcLibrary> LoadOdbc(const char* manager, const char* installer) {
  // The installer library keeps the drivers' settings; without a hold of our own it goes and comes
  // with each driver, and loses memory each time.
  const LoadedLibrary installer_file(installer);
  const LoadedLibrary file(manager);
  auto library = std::make_shared<OdbcLibrary>();
  Find(file, "SQLAllocHandle", library->AllocHandle);
  Find(file, "SQLFreeHandle", library->FreeHandle);
  Find(file, "SQLSetEnvAttr", library->SetEnvAttr);
  Find(file, "SQLSetConnectAttr", library->SetConnectAttr);
  Find(file, "SQLSetStmtAttr", library->SetStmtAttr);
  Find(file, "SQLDriverConnect", library->DriverConnect);
  Find(file, "SQLDisconnect", library->Disconnect);
  Find(file, "SQLEndTran", library->EndTran);
  Find(file, "SQLGetInfo", library->GetInfo);
  Find(file, "SQLGetDiagRec", library->GetDiagRec);
  Find(file, "SQLExecDirect", library->ExecDirect);
  Find(file, "SQLPrepare", library->Prepare);
  Find(file, "SQLBindParameter", library->BindParameter);
  Find(file, "SQLExecute", library->Execute);
  Find(file, "SQLRowCount", library->RowCount);
  Find(file, "SQLNumResultCols", library->NumResultCols);
  Find(file, "SQLDescribeCol", library->DescribeCol);
  Find(file, "SQLColAttribute", library->ColAttribute);
  Find(file, "SQLFetch", library->Fetch);
  Find(file, "SQLGetData", library->GetData);
  Find(file, "SQLDrivers", library->Drivers);
  Find(file, "SQLColumns", library->Columns);
  Find(file, "SQLPrimaryKeys", library->PrimaryKeys);
  Find(file, "SQLStatistics", library->Statistics);
  Find(installer_file, "SQLGetPrivateProfileString", library->GetPrivateProfileString);
  return library;
}

std::shared_ptr<const OdbcLibrary> LoadOdbc() {
  static std::mutex mutex;
  static std::shared_ptr<const OdbcLibrary> loaded;
  const std::lock_guard lock(mutex);
  if (loaded == nullptr) loaded = LoadOdbc(kManager, kInstaller);
  return loaded;
}

}  // namespace vandpublic::ado
