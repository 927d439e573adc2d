// Finds the driver manager's entry points.
#include "platform/posix/ado/odbc/odbc_library.h"

#include <dlfcn.h>

#include <mutex>

#include "platform/posix/ado/ado_errors.h"

namespace vandpublic::ado {
namespace {

// Never unloaded: drivers leave threads and exit handlers behind.
class LoadedFile {
 public:
  explicit LoadedFile(const char* name) : handle_(dlopen(name, RTLD_NOW | RTLD_LOCAL)) {
    if (handle_ == nullptr) Raise(ObjectError::ProviderNotFound, kConnectionSource);
  }

  template <class Function>
  void Find(const char* name, Function& function) const {
    void* const address = dlsym(handle_, name);
    if (address == nullptr) Raise(ObjectError::ProviderNotFound, kConnectionSource);
    function = reinterpret_cast<Function>(address);
  }

 private:
  void* handle_;
};

constexpr const char* kManager = "libodbc.so.2";
constexpr const char* kInstaller = "libodbcinst.so.2";

}  // namespace

std::shared_ptr<const OdbcLibrary> LoadOdbc(const char* manager, const char* installer) {
  // The installer library keeps the drivers' settings; without a hold of our own it goes and comes
  // with each driver, and loses memory each time.
  const LoadedFile installer_file(installer);
  const LoadedFile file(manager);
  auto library = std::make_shared<OdbcLibrary>();
  file.Find("SQLAllocHandle", library->AllocHandle);
  file.Find("SQLFreeHandle", library->FreeHandle);
  file.Find("SQLSetEnvAttr", library->SetEnvAttr);
  file.Find("SQLSetConnectAttr", library->SetConnectAttr);
  file.Find("SQLSetStmtAttr", library->SetStmtAttr);
  file.Find("SQLDriverConnect", library->DriverConnect);
  file.Find("SQLDisconnect", library->Disconnect);
  file.Find("SQLEndTran", library->EndTran);
  file.Find("SQLGetInfo", library->GetInfo);
  file.Find("SQLGetDiagRec", library->GetDiagRec);
  file.Find("SQLExecDirect", library->ExecDirect);
  file.Find("SQLPrepare", library->Prepare);
  file.Find("SQLBindParameter", library->BindParameter);
  file.Find("SQLExecute", library->Execute);
  file.Find("SQLRowCount", library->RowCount);
  file.Find("SQLNumResultCols", library->NumResultCols);
  file.Find("SQLDescribeCol", library->DescribeCol);
  file.Find("SQLColAttribute", library->ColAttribute);
  file.Find("SQLFetch", library->Fetch);
  file.Find("SQLGetData", library->GetData);
  file.Find("SQLColumns", library->Columns);
  file.Find("SQLPrimaryKeys", library->PrimaryKeys);
  file.Find("SQLStatistics", library->Statistics);
  installer_file.Find("SQLGetPrivateProfileString", library->GetPrivateProfileString);
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
