// What a statement is, and which tables it names.
#include "platform/posix/ado/sql/sql_statement.h"

#include <algorithm>
#include <array>
#include <optional>

#include "platform/posix/ado/ado_errors.h"
#include "runtime/object.h"

namespace vandpublic::ado {
namespace {

std::optional<Verb> VerbOf(const Token& token) {
  if (token.IsWord("SELECT")) return Verb::Select;
  if (token.IsWord("INSERT")) return Verb::Insert;
  if (token.IsWord("UPDATE")) return Verb::Update;
  if (token.IsWord("DELETE")) return Verb::Delete;
  return std::nullopt;
}

Token WordToken(const char* word) { return {TokenKind::Word, word, word}; }

bool IsOneOf(const Token& token, std::initializer_list<std::string_view> words) {
  return token.kind == TokenKind::Word &&
         std::find(words.begin(), words.end(), token.upper) != words.end();
}

// Walks over the tokens and notes the names that stand where a table must.
class TableFinder {
 public:
  explicit TableFinder(SqlStatement& statement)
      : statement_(statement), tokens_(statement.tokens) {}

  void Find() {
    if (statement_.verb == Verb::Update) levels_.back().wants_table = true;
    for (std::size_t i = 0; i < tokens_.size(); ++i)
      Visit(i);
  }

 private:
  struct Level {
    bool in_from = false;
    bool wants_table = false;
  };

  void Visit(std::size_t& i) {
    const Token& token = tokens_[i];
    Level& level = levels_.back();
    if (token.kind == TokenKind::Open) {
      // Of a nested join, or of a subquery, which begins with a verb.
      const Level inner{level.in_from && level.wants_table, level.wants_table};
      level.wants_table = false;
      levels_.push_back(inner);
    } else if (token.kind == TokenKind::Close) {
      if (levels_.size() > 1) levels_.pop_back();
    } else if (token.kind == TokenKind::Comma) {
      level.wants_table = level.in_from;
    } else if (IsOneOf(token, {"FROM", "JOIN", "INTO"})) {
      level = {true, true};
    } else if (IsOneOf(token, {"SELECT", "WHERE", "GROUP", "ORDER", "HAVING", "UNION", "SET", "ON",
                               "VALUES"})) {
      level.wants_table = false;
      level.in_from = token.upper == "ON";
    } else if (level.wants_table && token.IsName() && !IsOneOf(token, {"UPDATE"})) {
      level.wants_table = false;
      Note(i);
    }
  }

  // The ending of a file's name is dropped, here and for the translation.
  void Note(std::size_t i) {
    std::string name = tokens_[i].text;
    if (i + 2 < tokens_.size() && tokens_[i + 1].IsOperator(".") && tokens_[i + 2].IsWord("DBF")) {
      tokens_.erase(tokens_.begin() + static_cast<std::ptrdiff_t>(i) + 1,
                    tokens_.begin() + static_cast<std::ptrdiff_t>(i) + 3);
    } else if (name.size() > 4 &&
               SameName(std::string_view(name).substr(name.size() - 4), ".dbf")) {
      name.resize(name.size() - 4);
      tokens_[i].text = name;
    }
    const bool known = std::any_of(statement_.tables.begin(), statement_.tables.end(),
                                   [&](const std::string& other) { return SameName(other, name); });
    ++mentions_;
    if (!known) statement_.tables.push_back(name);
  }

 public:
  std::size_t mentions() const noexcept { return mentions_; }

 private:
  SqlStatement& statement_;
  std::vector<Token>& tokens_;
  std::vector<Level> levels_{1};
  std::size_t mentions_ = 0;
};

bool HasGroupingWord(const std::vector<Token>& tokens) {
  static constexpr std::array<std::string_view, 12> kAggregates = {
      "COUNT", "SUM",  "AVG",   "MIN",    "MAX", "TOTAL",
      "FIRST", "LAST", "STDEV", "STDEVP", "VAR", "VARP"};
  int selects = 0;
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    const Token& token = tokens[i];
    if (token.IsWord("SELECT") && ++selects > 1) return true;
    if (IsOneOf(token, {"DISTINCT", "DISTINCTROW", "GROUP", "HAVING", "UNION", "EXCEPT",
                        "INTERSECT", "JOIN", "VALUES", "WITH"})) {
      return true;
    }
    const bool called = i + 1 < tokens.size() && tokens[i + 1].kind == TokenKind::Open;
    if (called && token.kind == TokenKind::Word &&
        std::find(kAggregates.begin(), kAggregates.end(), token.upper) != kAggregates.end()) {
      return true;
    }
  }
  return false;
}

[[noreturn]] void RaiseNoVerb(Dialect dialect) {
  if (dialect == Dialect::Jet) {
    Raise(SourceError::BadStatement, kJetSource,
          "Invalid SQL statement; expected 'DELETE', 'INSERT', 'PROCEDURE', 'SELECT', or "
          "'UPDATE'.");
  }
  Raise(SourceError::BadStatement, kOdbcSource, "Unrecognized command verb.");
}

}  // namespace

SqlStatement ReadStatement(std::string_view text, Dialect dialect) {
  SqlStatement statement;
  statement.tokens = CutTokens(text, dialect);
  auto& tokens = statement.tokens;
  const auto end = std::find_if(tokens.begin(), tokens.end(), [](const Token& token) {
    return token.kind == TokenKind::Semicolon;
  });
  if (end != tokens.end() && end + 1 != tokens.end()) {
    RaiseSyntaxError(dialect, "characters found after end of SQL statement");
  }
  tokens.erase(end, tokens.end());
  if (tokens.empty()) RaiseNoVerb(dialect);

  const auto verb = VerbOf(tokens.front());
  if (!verb) {
    const bool is_name = tokens.front().IsName() &&
                         (tokens.size() == 1 || (tokens.size() == 3 && tokens[1].IsOperator(".")));
    if (!is_name) RaiseNoVerb(dialect);
    tokens.insert(tokens.begin(),
                  {WordToken("SELECT"), {TokenKind::Operator, "*", {}}, WordToken("FROM")});
  }
  statement.verb = verb.value_or(Verb::Select);

  TableFinder finder(statement);
  finder.Find();
  statement.rows_are_table_rows =
      statement.verb == Verb::Select && finder.mentions() == 1 && !HasGroupingWord(tokens);
  return statement;
}

}  // namespace vandpublic::ado
