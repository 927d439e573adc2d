// Takes connection strings apart.
#include "platform/posix/ado/connection_string.h"

#include <algorithm>
#include <optional>

#include "runtime/object.h"

namespace vandpublic::ado {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

struct ReadText {
  std::string text;
  std::size_t length;  // characters taken, up to and including the ";"
};

// A value in {...}, "..." or '...' that is closed and has nothing but blanks behind it. Anything
// else is no quoted value: a password may well start with a quote.
std::optional<ReadText> ReadQuoted(std::string_view rest) {
  const std::size_t start = rest.find_first_not_of(kBlanks);
  if (start == std::string_view::npos) return std::nullopt;
  const char opening = rest[start];
  if (opening != '{' && opening != '"' && opening != '\'') return std::nullopt;
  const char closing = opening == '{' ? '}' : opening;

  std::string text;
  std::size_t at = start + 1;
  while (true) {
    const std::size_t end = rest.find(closing, at);
    if (end == std::string_view::npos) return std::nullopt;
    text.append(rest, at, end - at);
    at = end + 1;
    if (at >= rest.size() || rest[at] != closing) break;
    text += closing;  // doubled
    ++at;
  }
  const std::size_t behind = std::min(rest.find_first_not_of(kBlanks, at), rest.size());
  if (behind < rest.size() && rest[behind] != ';') return std::nullopt;
  return ReadText{std::move(text), std::min(behind + 1, rest.size())};
}

ReadText ReadValue(std::string_view rest) {
  if (std::optional<ReadText> quoted = ReadQuoted(rest)) return *std::move(quoted);
  const std::size_t end = std::min(rest.find(';'), rest.size());
  return {std::string(Trimmed(rest.substr(0, end))), std::min(end + 1, rest.size())};
}

}  // namespace

ConnectionString::ConnectionString(std::string_view text) : text_(text) {
  std::string_view rest = text;
  while (!rest.empty()) {
    const std::size_t end = rest.find_first_of("=;");
    if (end == std::string_view::npos) return;
    const std::string_view key = Trimmed(rest.substr(0, end));
    const bool has_value = rest[end] == '=';
    rest.remove_prefix(end + 1);
    if (!has_value) continue;
    ReadText value = ReadValue(rest);
    rest.remove_prefix(value.length);
    if (!key.empty()) entries_.push_back({std::string(key), std::move(value.text)});
  }
}

const std::string* ConnectionString::Find(std::string_view key) const noexcept {
  const auto found = std::find_if(entries_.rbegin(), entries_.rend(),
                                  [&](const Entry& entry) { return SameName(entry.key, key); });
  return found == entries_.rend() ? nullptr : &found->value;
}

std::string ConnectionString::Value(std::string_view key) const {
  const std::string* value = Find(key);
  return value != nullptr ? *value : std::string();
}

void ConnectionString::Set(std::string_view key, std::string_view value) {
  entries_.push_back({std::string(key), std::string(value)});
}

}  // namespace vandpublic::ado
