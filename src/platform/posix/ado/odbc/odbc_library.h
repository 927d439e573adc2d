// The ODBC driver manager, loaded when it is first needed: where it is not installed, everything
// but ODBC works.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_ODBC_ODBC_LIBRARY_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_ODBC_ODBC_LIBRARY_H

#include <sql.h>
#include <sqlext.h>

#include <memory>

namespace vandpublic::ado {

// Its narrow entry points, which take and give UTF-8 whatever the locale is. Mixing them with the
// wide ones does not work: a driver decides once a connection what narrow text means.
struct OdbcLibrary {
  decltype(&::SQLAllocHandle) AllocHandle;
  decltype(&::SQLFreeHandle) FreeHandle;
  decltype(&::SQLSetEnvAttr) SetEnvAttr;
  decltype(&::SQLSetConnectAttr) SetConnectAttr;
  decltype(&::SQLSetStmtAttr) SetStmtAttr;
  decltype(&::SQLDriverConnect) DriverConnect;
  decltype(&::SQLDisconnect) Disconnect;
  decltype(&::SQLEndTran) EndTran;
  decltype(&::SQLGetInfo) GetInfo;
  decltype(&::SQLGetDiagRec) GetDiagRec;
  decltype(&::SQLExecDirect) ExecDirect;
  decltype(&::SQLPrepare) Prepare;
  decltype(&::SQLBindParameter) BindParameter;
  decltype(&::SQLExecute) Execute;
  decltype(&::SQLRowCount) RowCount;
  decltype(&::SQLNumResultCols) NumResultCols;
  decltype(&::SQLDescribeCol) DescribeCol;
  decltype(&::SQLColAttribute) ColAttribute;
  decltype(&::SQLFetch) Fetch;
  decltype(&::SQLGetData) GetData;
  decltype(&::SQLDrivers) Drivers;
  decltype(&::SQLColumns) Columns;
  decltype(&::SQLPrimaryKeys) PrimaryKeys;
  decltype(&::SQLStatistics) Statistics;

  // Reads a value of odbc.ini or odbcinst.ini: section, key, default, buffer, its size, file.
  using ProfileReader = int (*)(const char*, const char*, const char*, char*, int, const char*);
  ProfileReader GetPrivateProfileString;
};

// The library, which stays loaded. Error 3706 where it is not there; a later call tries again.
std::shared_ptr<const OdbcLibrary> LoadOdbc();
// The same from other files than the system's own.
std::shared_ptr<const OdbcLibrary> LoadOdbc(const char* manager, const char* installer);

}  // namespace vandpublic::ado

#endif
