// Connection strings: "Provider=MSDASQL.1;User ID=u; Data Source=S1".
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_CONNECTION_STRING_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_CONNECTION_STRING_H

#include <string>
#include <string_view>
#include <vector>

namespace vandpublic::ado {

// The keys and values of a connection string, in UTF-8.
//
// Keys are compared without regard to case; blanks around them are dropped, those inside count
// ("Jet OLEDB:Database password"). A value loses the blanks around it, unless it stands in {...},
// "..." or '...', where the closing character is doubled to be part of the value; "{", quotes and
// the like inside another value are plain text. A key given twice has its last value. A piece
// without "=" is ignored.
class ConnectionString {
 public:
  struct Entry {
    std::string key;
    std::string value;
  };

  explicit ConnectionString(std::string_view text);

  // The value, null where the key is not given.
  const std::string* Find(std::string_view key) const noexcept;
  // The value, empty where the key is not given.
  std::string Value(std::string_view key) const;
  // Replaces or adds a value.
  void Set(std::string_view key, std::string_view value);

  // All of them in order, those that Set added at the end.
  const std::vector<Entry>& entries() const noexcept { return entries_; }

  // The text as it was given, for a driver that reads it itself. It may hold a password.
  const std::string& text() const noexcept { return text_; }

 private:
  std::string text_;
  std::vector<Entry> entries_;
};

}  // namespace vandpublic::ado

#endif
