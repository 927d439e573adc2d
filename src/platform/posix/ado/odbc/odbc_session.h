// ODBC data sources.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_ODBC_ODBC_SESSION_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_ODBC_ODBC_SESSION_H

#include <memory>

#include "platform/posix/ado/odbc/odbc_connect.h"
#include "platform/posix/ado/odbc/odbc_handles.h"
#include "platform/posix/ado/provider.h"

namespace vandpublic::ado {

class OdbcSession final : public Session {
 public:
  explicit OdbcSession(const ConnectionString& text);
  ~OdbcSession() override;

  Result Execute(const std::string& statement, bool updatable) override;
  void Begin() override;
  void Commit() override;
  void Rollback() override;
  void SetCommandTimeout(Long seconds) override;

  const OdbcHandle& connection() const noexcept { return connection_; }
  OdbcHandle NewStatement() const;
  // Sets the statement's time limit.
  void LimitTime(const OdbcHandle& statement) const;
  // Runs a statement that returns nothing.
  void Run(const std::string& statement) const;
  bool in_transaction() const noexcept { return in_transaction_; }
  // What is done from now on counts when EndTransaction commits it; after that statements count
  // at once again.
  void StartTransaction() const;
  void EndTransaction(bool commit) const;

 private:
  OdbcHandle environment_;
  OdbcHandle connection_;
  bool in_transaction_ = false;
  Long command_timeout_ = 0;
  mutable bool can_limit_time_ = true;
};

// Opens what the string names through the ODBC driver manager.
std::unique_ptr<Session> OpenOdbcSession(const ConnectionString& text);

}  // namespace vandpublic::ado

#endif
