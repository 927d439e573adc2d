// ADODB.Connection over the data sources of this system.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_ADO_CONNECTION_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_ADO_CONNECTION_H

#include <memory>
#include <string>
#include <vector>

#include "platform/database.h"
#include "platform/posix/ado/provider.h"

namespace vandpublic::ado {

class AdoRecordset;

// By name it has the properties ConnectionString, Provider, State, Version, CursorLocation,
// ConnectionTimeout and CommandTimeout (seconds to wait for a server and for a statement, 15
// and 30 by default, 0 without end), and the operations Open, Close, Execute, BeginTrans,
// CommitTrans and RollbackTrans. Close closes its recordsets, without storing what is being edited
// in them, and undoes a transaction.
class AdoConnection final : public Connection, public std::enable_shared_from_this<AdoConnection> {
 public:
  AdoConnection() = default;
  // Opens everything with this function, whatever the string says.
  explicit AdoConnection(OpenSession open) : open_(open) {}

  void SetConnectionString(std::u16string_view text) override;
  void Open(std::u16string_view connection_string, std::u16string_view user_id,
            std::u16string_view password, Long options) override;
  Variant Get(std::string_view name, std::span<const Variant> arguments) override;
  void Set(std::string_view name, const Variant& value) override;
  Variant Call(std::string_view name, std::span<Variant> arguments) override;

  void Close();
  bool IsOpen() const noexcept { return session_ != nullptr; }
  // Runs the statement and wraps its rows in a recordset, which is closed when there are none.
  RecordsetRef Execute(std::u16string_view statement, Long& rows_affected);
  // 1, the depth of the transaction; sources have no nested ones.
  Long BeginTransaction();
  void CommitTransaction();
  void RollbackTransaction();

  // The session of an open connection; 3709, raised for a recordset, when it is closed.
  Session& OpenedSession();
  // Recordsets say when they open and close over this connection.
  void Add(AdoRecordset& recordset) { recordsets_.push_back(&recordset); }
  void Remove(AdoRecordset& recordset) noexcept { std::erase(recordsets_, &recordset); }

  const std::u16string& connection_string() const noexcept { return connection_string_; }
  std::u16string ProviderName() const;
  void SetProviderName(std::u16string name);
  Long command_timeout() const noexcept { return command_timeout_; }
  void SetCommandTimeout(Long seconds);
  Long cursor_location = 2;
  Long connection_timeout = 15;

 private:
  void RequireOpen() const;
  void RequireTransaction() const;

  OpenSession open_ = nullptr;
  std::u16string connection_string_;
  std::u16string provider_;
  std::unique_ptr<Session> session_;
  bool in_transaction_ = false;
  Long command_timeout_ = 30;
  std::vector<AdoRecordset*> recordsets_;
};

}  // namespace vandpublic::ado

#endif
