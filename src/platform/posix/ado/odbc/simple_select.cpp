// A look at a statement's words, no more: enough to tell a plain SELECT from anything else.
#include "platform/posix/ado/odbc/simple_select.h"

#include <algorithm>
#include <cctype>
#include <cstddef>

#include "runtime/object.h"

namespace vandpublic::ado {
namespace {

struct Word {
  enum class Kind { Name, Value, Sign } kind;
  std::string text;  // of a name without its quotes
  bool quoted = false;
};

bool IsNameCharacter(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return std::isalnum(byte) != 0 || c == '_' || c == '$' || byte >= 0x80;
}

class Words {
 public:
  explicit Words(std::string_view text) : rest_(text) {}

  // Nothing at the end.
  std::optional<Word> Next() {
    SkipBlanks();
    if (rest_.empty()) return std::nullopt;
    const char c = rest_.front();
    if (c == '\'') return TakeQuoted('\'', Word::Kind::Value);
    if (c == '"' || c == '`') return TakeQuoted(c, Word::Kind::Name);
    if (c == '[') return TakeQuoted(']', Word::Kind::Name);
    if (!IsNameCharacter(c)) return Word{Word::Kind::Sign, Take(1)};
    std::size_t length = 1;
    while (length < rest_.size() && IsNameCharacter(rest_[length]))
      ++length;
    const bool number = std::isdigit(static_cast<unsigned char>(c)) != 0;
    return Word{number ? Word::Kind::Value : Word::Kind::Name, Take(length)};
  }

 private:
  std::string Take(std::size_t length) {
    std::string taken(rest_.substr(0, length));
    rest_.remove_prefix(length);
    return taken;
  }

  Word TakeQuoted(char closing, Word::Kind kind) {
    std::string text;
    rest_.remove_prefix(1);
    while (!rest_.empty()) {
      const std::size_t end = std::min(rest_.find(closing), rest_.size());
      text += Take(end);
      rest_.remove_prefix(std::min<std::size_t>(1, rest_.size()));
      if (!rest_.starts_with(closing)) break;
      text += Take(1);  // doubled
    }
    return {kind, std::move(text), true};
  }

  void SkipTo(std::string_view end) {
    const std::size_t found = rest_.find(end);
    rest_.remove_prefix(found == std::string_view::npos ? rest_.size() : found + end.size());
  }

  void SkipBlanks() {
    while (!rest_.empty()) {
      if (std::isspace(static_cast<unsigned char>(rest_.front())) != 0) {
        rest_.remove_prefix(1);
      } else if (rest_.starts_with("--")) {
        SkipTo("\n");
      } else if (rest_.starts_with("/*")) {
        SkipTo("*/");
      } else {
        return;
      }
    }
  }

  std::string_view rest_;
};

bool IsWord(const Word& word, std::string_view text) {
  return word.kind == Word::Kind::Name && !word.quoted && SameName(word.text, text);
}

bool IsSign(const Word& word, std::string_view text) {
  return word.kind == Word::Kind::Sign && word.text == text;
}

bool IsAnyWord(const Word& word, std::initializer_list<std::string_view> texts) {
  return std::any_of(texts.begin(), texts.end(), [&](auto text) { return IsWord(word, text); });
}

// One item of the select list: an alias is a name at its end that is neither the whole item nor
// behind a point.
void AddAlias(const std::vector<Word>& item, std::vector<std::string>& aliases) {
  if (item.size() < 2 || item.back().kind != Word::Kind::Name) return;
  if (!IsSign(item[item.size() - 2], ".")) aliases.push_back(item.back().text);
}

int DepthChange(const Word& word) {
  if (IsSign(word, "(")) return 1;
  return IsSign(word, ")") ? -1 : 0;
}

// Reads up to and including FROM. False where there is none.
bool TakeSelectList(Words& words, std::vector<std::string>& aliases) {
  std::vector<Word> item;
  int depth = 0;
  bool first = true;
  while (auto word = words.Next()) {
    if (first && IsWord(*word, "distinct")) return false;
    first = false;
    depth += DepthChange(*word);
    const bool from = depth == 0 && IsWord(*word, "from");
    if (from || (depth == 0 && IsSign(*word, ","))) {
      AddAlias(item, aliases);
      item.clear();
      if (from) return true;
      continue;
    }
    item.push_back(*std::move(word));
  }
  return false;
}

// What follows the table's name: an alias and clauses that leave rows as they are.
bool RestIsSimple(Words& words) {
  int depth = 0;
  bool in_clauses = false;
  while (const auto word = words.Next()) {
    depth += DepthChange(*word);
    if (depth > 0) {
      if (!in_clauses) return false;
      continue;
    }
    if (IsAnyWord(*word, {"join", "group", "having", "union", "intersect", "except", "window"})) {
      return false;
    }
    if (IsAnyWord(*word, {"where", "order", "limit"})) in_clauses = true;
    if (!in_clauses && IsSign(*word, ",")) return false;
    if (IsSign(*word, ";")) return !words.Next();
  }
  return true;
}

}  // namespace

std::optional<SimpleSelect> ParseSimpleSelect(std::string_view statement) {
  Words words(statement);
  const auto first = words.Next();
  if (!first || !IsWord(*first, "select")) return std::nullopt;
  SimpleSelect result;
  if (!TakeSelectList(words, result.aliases)) return std::nullopt;

  const auto table = words.Next();
  if (!table || table->kind != Word::Kind::Name) return std::nullopt;
  result.table = table->text;
  Words behind = words;
  if (const auto point = behind.Next(); point && IsSign(*point, ".")) {
    const auto name = behind.Next();
    if (!name || name->kind != Word::Kind::Name) return std::nullopt;
    result.table = name->text;
    words = behind;
  }
  if (!RestIsSimple(words)) return std::nullopt;
  return result;
}

}  // namespace vandpublic::ado
