// Builds ODBC connection strings.
#include "platform/posix/ado/odbc/odbc_connect.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <string_view>

#include "runtime/object.h"

namespace vandpublic::ado {
namespace {

std::string ProfileValue(const OdbcLibrary& library, const std::string& section, const char* key,
                         const char* file) {
  if (section.empty()) return {};
  std::array<char, 1024> buffer{};
  library.GetPrivateProfileString(section.c_str(), key, "", buffer.data(),
                                  static_cast<int>(buffer.size()), file);
  return buffer.data();
}

OdbcKind KindOf(const OdbcLibrary& library, const ConnectionString& text) {
  std::string driver = text.Value("Driver");
  if (driver.empty()) {
    std::string source = text.Value("Data Source");
    if (source.empty()) source = text.Value("DSN");
    driver = ProfileValue(library, source, "Driver", "odbc.ini");
  }
  // A driver is named by its section, or by its library's file.
  std::string names = driver + " " + ProfileValue(library, driver, "Driver", "odbcinst.ini");
  std::transform(names.begin(), names.end(), names.begin(), [](char c) {
    return static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  });
  const auto has = [&](std::string_view part) { return names.find(part) != std::string::npos; };
  if (has("sqlite")) return OdbcKind::SQLite;
  if (has("psqlodbc") || has("postgres")) return OdbcKind::PostgreSql;
  if (has("maodbc") || has("mariadb") || has("myodbc") || has("mysql")) return OdbcKind::MariaDb;
  return OdbcKind::Other;
}

std::string Braced(std::string_view value) {
  std::string text = "{";
  for (const char c : value)
    text.append(c == '}' ? 2 : 1, c);
  return text + "}";
}

// Drivers read a password in braces, but some take braces around other values for part of them; so
// those get braces only where they would break the string.
bool BreaksString(std::string_view value) {
  return value.starts_with('{') || value.find(';') != std::string_view::npos ||
         value.starts_with(' ') || value.ends_with(' ');
}
bool BreaksPassword(std::string_view value) {
  return BreaksString(value) || value.find_first_of("[]{}(),?*=!@") != std::string_view::npos;
}

void Add(std::string& text, std::string_view key, const std::string& value,
         bool (*needs_braces)(std::string_view) = &BreaksString) {
  if (value.empty()) return;
  text.append(key).append("=").append(needs_braces(value) ? Braced(value) : value).append(";");
}

std::string_view AdditionsFor(OdbcKind kind) {
  switch (kind) {
    case OdbcKind::PostgreSql:
      // The client encoding would follow the locale; Booleans would come as text.
      return "ConnSettings=SET+client_encoding+TO+'UTF8';BoolsAsChar=0;";
    case OdbcKind::MariaDb:
      // OPTION 2: rows found are counted, not only those that changed.
      return "CHARSET=utf8mb4;OPTION=2;";
    default:
      return {};
  }
}

// Keys that only mean something above ODBC, or that are handled by themselves.
bool IsProviderKey(std::string_view key) {
  constexpr std::string_view kKeys[] = {
      "Provider", "Data Source",           "User ID", "Password", "Initial Catalog",
      "Prompt",   "Persist Security Info", "Mode",    "Location", "Connect Timeout"};
  return std::any_of(std::begin(kKeys), std::end(kKeys),
                     [&](std::string_view known) { return SameName(known, key); });
}

// A string for the OLE DB provider for ODBC.
std::string FromProviderString(const ConnectionString& text, OdbcKind kind) {
  std::string result;
  Add(result, "DSN", text.Value("Data Source"));
  Add(result, "UID", text.Value("User ID"));
  Add(result, "PWD", text.Value("Password"), &BreaksPassword);
  if (kind != OdbcKind::SQLite) Add(result, "DATABASE", text.Value("Initial Catalog"));
  if (text.Find("Data Source") != nullptr) return result;
  for (const ConnectionString::Entry& entry : text.entries()) {
    if (!IsProviderKey(entry.key)) Add(result, entry.key, entry.value);
  }
  return result;
}

// A string for the driver manager itself; Connection.Open may have brought a user and a password.
std::string FromOdbcString(const ConnectionString& text) {
  std::string result;
  // The first of two equal keys counts.
  Add(result, "UID", text.Value("User ID"));
  Add(result, "PWD", text.Value("Password"), &BreaksPassword);
  result += text.text();
  if (!result.empty() && result.back() != ';') result += ';';
  return result;
}

}  // namespace

OdbcTarget FindOdbcTarget(const OdbcLibrary& library, const ConnectionString& text) {
  OdbcTarget target;
  target.kind = KindOf(library, text);
  target.connection_string = text.Find("Provider") != nullptr
                                 ? FromProviderString(text, target.kind)
                                 : FromOdbcString(text);
  target.connection_string += AdditionsFor(target.kind);
  target.password = text.Value(text.Find("Password") != nullptr ? "Password" : "PWD");
  return target;
}

}  // namespace vandpublic::ado
