// ODBC handles with an owner, and the errors their functions report.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_ODBC_ODBC_HANDLES_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_ODBC_ODBC_HANDLES_H

#include <memory>
#include <string>

#include "platform/posix/ado/odbc/odbc_library.h"

namespace vandpublic::ado {

// What is behind the driver manager, where that matters.
enum class OdbcKind { Other, SQLite, PostgreSql, MariaDb };

// An environment, connection or statement handle. A call that fails raises the driver's first
// error as an AutomationError of the ODBC source.
class OdbcHandle {
 public:
  // The environment.
  explicit OdbcHandle(std::shared_ptr<const OdbcLibrary> library);
  // A handle of the type (SQL_HANDLE_DBC, SQL_HANDLE_STMT) under its parent, which must outlive it.
  OdbcHandle(SQLSMALLINT type, const OdbcHandle& parent);
  OdbcHandle(const OdbcHandle&) = delete;
  OdbcHandle& operator=(const OdbcHandle&) = delete;
  ~OdbcHandle() { library_->FreeHandle(type_, handle_); }

  const OdbcLibrary& library() const noexcept { return *library_; }
  SQLHANDLE get() const noexcept { return handle_; }

  // Which codes of the driver mean what.
  void set_kind(OdbcKind kind) noexcept { kind_ = kind; }
  OdbcKind kind() const noexcept { return kind_; }
  // A text that no error may show.
  void set_secret(std::string secret) { secret_ = std::move(secret); }

  // Raises the handle's error unless the function succeeded; true unless it said "no data".
  bool Check(SQLRETURN result) const;

 private:
  [[noreturn]] void RaiseDiagnostic() const;

  std::shared_ptr<const OdbcLibrary> library_;
  SQLSMALLINT type_;
  SQLHANDLE handle_ = SQL_NULL_HANDLE;
  OdbcKind kind_ = OdbcKind::Other;
  std::string secret_;
};

// A text as ODBC functions take it; they do not change it.
inline SQLCHAR* OdbcText(const std::string& text) noexcept {
  return const_cast<SQLCHAR*>(reinterpret_cast<const SQLCHAR*>(text.c_str()));
}

}  // namespace vandpublic::ado

#endif
