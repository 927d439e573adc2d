// Connections: states, transactions, and the way to the provider.
#include "platform/posix/ado/ado_connection.h"

#include <utility>

#include "platform/posix/ado/ado_errors.h"
#include "platform/posix/ado/ado_recordset.h"
#include "platform/posix/ado/dispatch.h"
#include "runtime/errors.h"
#include "runtime/utf8.h"

namespace vandpublic::ado {
namespace {

constexpr std::u16string_view kVersion = u"2.8";
constexpr std::string_view kDefaultProvider = "MSDASQL";
constexpr Long kTransactionExists = static_cast<Long>(0x8004D013u);
constexpr Long kNoTransaction = static_cast<Long>(0x8004D00Eu);

[[noreturn]] void RaiseTransactionError(Long number, std::u16string_view text) {
  throw AutomationError(number, FromUtf8(kConnectionSource), std::u16string(text));
}

Long TimeoutValue(const Variant& value) {
  const Long seconds = LongValue(value, kConnectionSource);
  if (seconds < 0) Raise(ObjectError::InvalidArgument, kConnectionSource);
  return seconds;
}

Variant OpenByName(AdoConnection& self, std::span<Variant> arguments) {
  const auto text = [&](std::size_t i) { return TextArgument(arguments, i, kConnectionSource); };
  self.Open(text(0), text(1), text(2), LongArgument(arguments, 3, kUnspecified, kConnectionSource));
  return {};
}

Variant ExecuteByName(AdoConnection& self, std::span<Variant> arguments) {
  Long rows_affected = -1;
  RecordsetRef rows = self.Execute(TextArgument(arguments, 0, kConnectionSource), rows_affected);
  if (arguments.size() > 1) arguments[1] = rows_affected;
  return ObjectRef(std::move(rows));
}

using Property = NamedProperty<AdoConnection>;
using Operation = NamedOperation<AdoConnection>;

constexpr Property kProperties[] = {
    {"ConnectionString",
     [](AdoConnection& self) { return Variant(String(self.connection_string())); },
     [](AdoConnection& self, const Variant& value) {
       self.SetConnectionString(TextValue(value, kConnectionSource));
     }},
    {"Provider", [](AdoConnection& self) { return Variant(String(self.ProviderName())); },
     [](AdoConnection& self, const Variant& value) {
       self.SetProviderName(TextValue(value, kConnectionSource));
     }},
    {"State",
     [](AdoConnection& self) { return Variant(self.IsOpen() ? kStateOpen : kStateClosed); }},
    {"Version", [](AdoConnection&) { return Variant(String(kVersion)); }},
    {"CursorLocation", [](AdoConnection& self) { return Variant(self.cursor_location); },
     [](AdoConnection& self, const Variant& value) {
       self.cursor_location = LongValue(value, kConnectionSource);
     }},
    {"ConnectionTimeout", [](AdoConnection& self) { return Variant(self.connection_timeout); },
     [](AdoConnection& self, const Variant& value) {
       self.connection_timeout = TimeoutValue(value);
     }},
    {"CommandTimeout", [](AdoConnection& self) { return Variant(self.command_timeout()); },
     [](AdoConnection& self, const Variant& value) {
       self.SetCommandTimeout(TimeoutValue(value));
     }},
};

constexpr Operation kOperations[] = {
    {"Open", 4, &OpenByName},
    {"Close", 0,
     [](AdoConnection& self, std::span<Variant>) {
       self.Close();
       return Variant();
     }},
    {"Execute", 3, &ExecuteByName},
    {"BeginTrans", 0,
     [](AdoConnection& self, std::span<Variant>) { return Variant(self.BeginTransaction()); }},
    {"CommitTrans", 0,
     [](AdoConnection& self, std::span<Variant>) {
       self.CommitTransaction();
       return Variant();
     }},
    {"RollbackTrans", 0,
     [](AdoConnection& self, std::span<Variant>) {
       self.RollbackTransaction();
       return Variant();
     }},
};

}  // namespace

void AdoConnection::RequireOpen() const {
  if (!IsOpen()) Raise(ObjectError::ObjectClosed, kConnectionSource);
}

void AdoConnection::SetConnectionString(std::u16string_view text) {
  if (IsOpen()) Raise(ObjectError::ObjectOpen, kConnectionSource);
  connection_string_ = text;
}

std::u16string AdoConnection::ProviderName() const {
  const ConnectionString parsed(ToUtf8(connection_string_));
  if (const std::string* name = parsed.Find("Provider")) return FromUtf8(*name);
  return provider_.empty() ? FromUtf8(kDefaultProvider) : provider_;
}

void AdoConnection::SetProviderName(std::u16string name) {
  if (IsOpen()) Raise(ObjectError::ObjectOpen, kConnectionSource);
  provider_ = std::move(name);
}

void AdoConnection::Open(std::u16string_view connection_string, std::u16string_view user_id,
                         std::u16string_view password, Long) {
  if (IsOpen()) Raise(ObjectError::ObjectOpen, kConnectionSource);
  if (!connection_string.empty()) connection_string_ = connection_string;
  ConnectionString parsed(ToUtf8(connection_string_));
  if (parsed.Find("Provider") == nullptr && !provider_.empty()) {
    parsed.Set("Provider", ToUtf8(provider_));
  }
  if (!user_id.empty()) parsed.Set("User ID", ToUtf8(user_id));
  if (!password.empty()) parsed.Set("Password", ToUtf8(password));
  if (parsed.Find("Connect Timeout") == nullptr) {
    parsed.Set("Connect Timeout", std::to_string(connection_timeout));
  }
  const OpenSession open = open_ != nullptr ? open_ : FindProvider(parsed);
  session_ = open(parsed);
  session_->SetCommandTimeout(command_timeout_);
}

void AdoConnection::SetCommandTimeout(Long seconds) {
  command_timeout_ = seconds;
  if (IsOpen()) session_->SetCommandTimeout(seconds);
}

void AdoConnection::Close() {
  RequireOpen();
  const std::vector<AdoRecordset*> open_recordsets = std::exchange(recordsets_, {});
  for (AdoRecordset* recordset : open_recordsets)
    recordset->Abandon();
  in_transaction_ = false;
  session_.reset();
}

Session& AdoConnection::OpenedSession() {
  if (!IsOpen()) Raise(ObjectError::InvalidConnection, kRecordsetSource);
  return *session_;
}

RecordsetRef AdoConnection::Execute(std::u16string_view statement, Long& rows_affected) {
  RequireOpen();
  Result result = session_->Execute(ToUtf8(statement), false);
  rows_affected = result.rows_affected;
  return AdoRecordset::Holding(shared_from_this(), std::u16string(statement), std::move(result));
}

Long AdoConnection::BeginTransaction() {
  RequireOpen();
  if (in_transaction_) {
    RaiseTransactionError(kTransactionExists,
                          u"Only one transaction can be active on this session.");
  }
  session_->Begin();
  in_transaction_ = true;
  return 1;
}

void AdoConnection::RequireTransaction() const {
  RequireOpen();
  if (!in_transaction_) RaiseTransactionError(kNoTransaction, u"No transaction is active.");
}

void AdoConnection::CommitTransaction() {
  RequireTransaction();
  session_->Commit();
  in_transaction_ = false;
}

void AdoConnection::RollbackTransaction() {
  RequireTransaction();
  in_transaction_ = false;
  session_->Rollback();
}

Variant AdoConnection::Get(std::string_view name, std::span<const Variant> arguments) {
  return GetProperty(*this, kProperties, name, arguments);
}
void AdoConnection::Set(std::string_view name, const Variant& value) {
  SetProperty(*this, kProperties, name, value);
}
Variant AdoConnection::Call(std::string_view name, std::span<Variant> arguments) {
  return CallOperation(*this, kOperations, name, arguments);
}

}  // namespace vandpublic::ado
