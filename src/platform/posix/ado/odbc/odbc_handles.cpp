// Handles, and drivers' errors as ADO clients know them.
#include "platform/posix/ado/odbc/odbc_handles.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "platform/posix/ado/ado_errors.h"

namespace vandpublic::ado {
namespace {

struct StateMapping {
  std::string_view state;  // the start of an SQLSTATE
  SourceError error;
};

// The first that fits counts.
constexpr StateMapping kStates[] = {
    {"42S02", SourceError::NoSuchTable},      {"42P01", SourceError::NoSuchTable},
    {"S0002", SourceError::NoSuchTable},      {"42501", SourceError::PermissionDenied},
    {"42", SourceError::BadStatement},        {"37000", SourceError::BadStatement},
    {"07001", SourceError::ParameterMissing}, {"07002", SourceError::ParameterMissing},
    {"22018", SourceError::CannotConvert},    {"22005", SourceError::CannotConvert},
    {"22007", SourceError::CannotConvert},    {"22P02", SourceError::CannotConvert},
    {"22001", SourceError::ValueTooLarge},    {"22003", SourceError::ValueTooLarge},
    {"23", SourceError::IntegrityViolation},  {"28", SourceError::LogInFailed},
    {"57014", SourceError::TimedOut},         {"70100", SourceError::TimedOut},
    {"HYT00", SourceError::TimedOut},         {"HYT01", SourceError::TimedOut},
};

SourceError FromState(std::string_view state) {
  const auto* const found =
      std::find_if(std::begin(kStates), std::end(kStates),
                   [&](const StateMapping& m) { return state.starts_with(m.state); });
  return found == std::end(kStates) ? SourceError::Failed : found->error;
}

// Its driver reports nearly every error under one state; the native code is the engine's own.
SourceError FromSqliteCode(SQLINTEGER code, std::string_view text) {
  constexpr SQLINTEGER kError = 1, kReadOnly = 8, kTooBig = 18, kConstraint = 19, kMismatch = 20,
                       kAuthorization = 23;
  switch (code) {
    case kError:
      return text.find("no such table") != std::string_view::npos ? SourceError::NoSuchTable
                                                                  : SourceError::BadStatement;
    case kReadOnly:
    case kAuthorization:
      return SourceError::PermissionDenied;
    case kTooBig:
      return SourceError::ValueTooLarge;
    case kConstraint:
      return SourceError::IntegrityViolation;
    case kMismatch:
      return SourceError::CannotConvert;
    default:
      return SourceError::Failed;
  }
}

// A safety net: drivers are not known to quote passwords. Very short ones would be found in
// ordinary words.
std::string WithoutSecret(std::string text, const std::string& secret) {
  constexpr std::size_t kShortest = 4;
  if (secret.size() < kShortest) return text;
  for (std::size_t at = text.find(secret); at != std::string::npos; at = text.find(secret, at)) {
    text.replace(at, secret.size(), "***");
    at += 3;
  }
  return text;
}

}  // namespace

OdbcHandle::OdbcHandle(std::shared_ptr<const OdbcLibrary> library)
    : library_(std::move(library)), type_(SQL_HANDLE_ENV) {
  if (!SQL_SUCCEEDED(library_->AllocHandle(type_, SQL_NULL_HANDLE, &handle_))) {
    Raise(SourceError::Failed, kOdbcSource, "The ODBC driver manager cannot be used.");
  }
  library_->SetEnvAttr(handle_, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3),
                       0);
}

OdbcHandle::OdbcHandle(SQLSMALLINT type, const OdbcHandle& parent)
    : library_(parent.library_), type_(type), kind_(parent.kind_), secret_(parent.secret_) {
  parent.Check(library_->AllocHandle(type, parent.handle_, &handle_));
}

bool OdbcHandle::Check(SQLRETURN result) const {
  if (result == SQL_NO_DATA) return false;
  if (!SQL_SUCCEEDED(result)) RaiseDiagnostic();
  return true;
}

void OdbcHandle::RaiseDiagnostic() const {
  SQLCHAR state[6] = {};
  SQLINTEGER code = 0;
  SQLCHAR buffer[2048] = {};
  SQLSMALLINT length = 0;
  const SQLRETURN result = library_->GetDiagRec(type_, handle_, 1, state, &code, buffer,
                                                static_cast<SQLSMALLINT>(sizeof buffer), &length);
  if (!SQL_SUCCEEDED(result)) Raise(SourceError::Failed, kOdbcSource, "Unspecified error");
  std::string text(reinterpret_cast<const char*>(buffer));
  text.erase(text.find_last_not_of(" \r\n") + 1);
  const std::string_view state_text(reinterpret_cast<const char*>(state));
  const bool by_code = kind_ == OdbcKind::SQLite && code != 0;
  const SourceError error = by_code ? FromSqliteCode(code, text) : FromState(state_text);
  Raise(error, kOdbcSource, WithoutSecret(std::move(text), secret_));
}

}  // namespace vandpublic::ado
