// Statements in SQLite's words, token by token. Tokens are parted by blanks, so that no two of them
// make a comment or an operator of their own.
#include <algorithm>
#include <array>
#include <charconv>
#include <initializer_list>
#include <optional>

#include "platform/posix/ado/sql/date_literal.h"
#include "platform/posix/ado/sql/sql_functions.h"
#include "platform/posix/ado/sql/sql_statement.h"

namespace vandpublic::ado {
namespace {

// Words that are never names, even where a column is called so.
constexpr std::array<std::string_view, 41> kReserved = {
    "ALL",    "AND",    "AS",    "BETWEEN",     "BY",     "CASE", "DELETE", "DISTINCT", "ELSE",
    "END",    "EXISTS", "FROM",  "FULL",        "HAVING", "IN",   "INNER",  "INSERT",   "INTO",
    "IS",     "JOIN",   "LEFT",  "LIKE",        "NOT",    "NULL", "ON",     "OR",       "OUTER",
    "RIGHT",  "SELECT", "SET",   "THEN",        "TOP",    "TRUE", "FALSE",  "UNION",    "UPDATE",
    "VALUES", "WHEN",   "WHERE", "DISTINCTROW", "ESCAPE"};

constexpr std::array<std::string_view, 12> kOperators = {
    "=", "<>", "<", ">", "<=", ">=", "!=", "==", "+", "-", "*", "."};

template <class List>
bool Contains(const List& list, std::string_view text) {
  return std::find(list.begin(), list.end(), text) != list.end();
}

std::string Quoted(std::string_view text, char quote) {
  std::string quoted(1, quote);
  for (const char c : text) {
    quoted += c;
    if (c == quote) quoted += c;
  }
  return quoted + quote;
}

// In brackets where that can be: SQLite takes an unknown name in double quotes for a text.
std::string QuotedName(std::string_view name) {
  if (name.find(']') == std::string_view::npos) return "[" + std::string(name) + "]";
  return Quoted(name, '"');
}

std::string NumberText(double value) {
  std::array<char, 64> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
  return {text.data(), end};
}

class Translator {
 public:
  Translator(const SqlStatement& statement, Dialect dialect, const Translation& translation)
      : tokens_(statement.tokens),
        dialect_(dialect),
        translation_(translation),
        pieces_(tokens_.size()) {}

  std::string Translate() {
    for (std::size_t i = 0; i < tokens_.size(); ++i)
      pieces_[i] += Piece(i);
    for (std::size_t i = 0; i < tokens_.size(); ++i) {
      if (tokens_[i].IsOperator("&")) i = JoinTexts(i);
    }
    std::string text;
    for (const std::string& piece : pieces_) {
      if (!piece.empty()) text += piece + " ";
    }
    if (levels_.size() != 1) RaiseSyntaxError(dialect_, "missing )");
    return text + levels_.back();
  }

 private:
  const Token* At(std::size_t i) const { return i < tokens_.size() ? &tokens_[i] : nullptr; }
  bool IsKind(std::size_t i, TokenKind kind) const {
    return i < tokens_.size() && tokens_[i].kind == kind;
  }
  // The token before the one at i; past the end when there is none.
  static std::size_t Before(std::size_t i) { return i - 1; }

  std::string Piece(std::size_t i) {
    const Token& token = tokens_[i];
    switch (token.kind) {
      case TokenKind::Word:
        return WordPiece(i);
      case TokenKind::Name:
        return QuotedName(token.text);
      case TokenKind::Text:
        return TextPiece(i);
      case TokenKind::Number:
        return skipped_ == i ? std::string() : token.text;
      case TokenKind::Date:
        return DatePiece(token);
      case TokenKind::Operator:
        return OperatorPiece(i);
      case TokenKind::Open:
        levels_.emplace_back();
        return "(";
      case TokenKind::Close:
        return ClosePiece();
      case TokenKind::Comma:
      case TokenKind::Semicolon:
        break;
    }
    return token.text;
  }

  std::string ClosePiece() {
    if (levels_.size() == 1) RaiseSyntaxError(dialect_, "extra )");
    const std::string limit = levels_.back();
    levels_.pop_back();
    return limit + ")";
  }

  // Jet compares texts without regard to case; a constant brings the comparison along to
  // expressions that have none of their own. A constant that names a column has none.
  std::string TextPiece(std::size_t i) const {
    const std::string quoted = Quoted(tokens_[i].text, '\'');
    const bool is_alias = i > 0 && tokens_[i - 1].IsWord("AS");
    return dialect_ == Dialect::Jet && !is_alias ? quoted + " COLLATE vp_text" : quoted;
  }

  std::string DatePiece(const Token& token) const {
    const auto days = ParseDateLiteral(token.text);
    if (!days) RaiseSyntaxError(dialect_, "in date " + token.text);
    return "(" + NumberText(*days) + ")";
  }

  std::string WordPiece(std::size_t i) {
    const Token& token = tokens_[i];
    const bool qualified =
        i > 0 && (tokens_[i - 1].IsOperator(".") || tokens_[i - 1].IsOperator("!"));
    const bool called = IsKind(i + 1, TokenKind::Open);
    if (!qualified && called && NamesFunction(i)) {
      return SqliteFunctionName(token.upper);
    }
    if (qualified || (translation_.is_column(token.text) && !called && IsColumnHere(i))) {
      return QuotedName(token.text);
    }
    if (token.upper == "TRUE") return "(-1)";
    if (token.upper == "FALSE") return "0";
    if (token.upper == "MOD") return "%";
    if (token.upper == "DISTINCTROW") return {};
    if (token.upper == "TOP") return TopPiece(i);
    if (token.upper == "FROM" && levels_.size() == 1 && !translation_.extra_column.empty()) {
      return ", " + translation_.extra_column + " FROM";
    }
    return token.text;
  }

  // "x Between (1) And (2)" calls no function, "Between(x, 1, 2)" does.
  bool NamesFunction(std::size_t i) const {
    if (!IsDialectFunction(dialect_, tokens_[i].upper)) return false;
    return tokens_[i].upper != "BETWEEN" || BeginsOperand(tokens_[i - 1].IsWord("NOT") ? i - 1 : i);
  }

  bool IsColumnHere(std::size_t i) const {
    const std::string& word = tokens_[i].upper;
    if (Contains(kReserved, word)) return false;
    if (word == "ORDER" || word == "GROUP") return !At(i + 1) || !tokens_[i + 1].IsWord("BY");
    if (word == "ASC" || word == "DESC") return BeginsOperand(i);
    return true;
  }

  // Whether a value, not an operator or a clause, stands at the place.
  bool BeginsOperand(std::size_t i) const {
    if (i == 0) return false;
    const Token& before = tokens_[i - 1];
    switch (before.kind) {
      case TokenKind::Comma:
      case TokenKind::Open:
      case TokenKind::Operator:
        return true;
      case TokenKind::Word:
        return Contains(kReserved, before.upper) && before.upper != "NULL";
      default:
        return false;
    }
  }

  // "TOP n" becomes the LIMIT of its level.
  std::string TopPiece(std::size_t i) {
    const bool after_select =
        i > 0 && (tokens_[i - 1].IsWord("SELECT") || tokens_[i - 1].IsWord("ALL") ||
                  tokens_[i - 1].IsWord("DISTINCT") || tokens_[i - 1].IsWord("DISTINCTROW"));
    if (!after_select || !IsKind(i + 1, TokenKind::Number)) return tokens_[i].text;
    if (IsWordAt(i + 2, "PERCENT")) RaiseSyntaxError(dialect_, "TOP n PERCENT is not supported");
    levels_.back() = " LIMIT " + tokens_[i + 1].text;
    skipped_ = i + 1;
    return {};
  }

  bool IsWordAt(std::size_t i, std::string_view word) const {
    return i < tokens_.size() && tokens_[i].IsWord(word);
  }

  std::string OperatorPiece(std::size_t i) const {
    const std::string& op = tokens_[i].text;
    if (op == "&") return ",";  // JoinTexts puts the function around
    // A quotient is no whole number, whatever its terms are.
    if (op == "/") return "* 1.0 /";
    if (op == "+") return JoinsTexts(i) ? "||" : "+";
    if (op == "#") return "<>";
    if (op == "!") return dialect_ == Dialect::Jet ? "." : "NOT";
    if (op == "%" && dialect_ == Dialect::FoxPro) return op;
    if (!Contains(kOperators, op)) RaiseSyntaxError(dialect_, "near " + op);
    return op;
  }

  bool JoinsTexts(std::size_t i) const {
    return (i > 0 && IsText(i - 1)) || IsText(i + 1) ||
           (i + 3 < tokens_.size() && tokens_[i + 2].IsOperator(".") && IsText(i + 3));
  }

  bool IsText(std::size_t i) const {
    if (i >= tokens_.size()) return false;
    const Token& token = tokens_[i];
    return token.kind == TokenKind::Text || (token.IsName() && !IsKind(i + 1, TokenKind::Open) &&
                                             translation_.is_text_column(token.text));
  }

  // Puts the function that joins texts around the operands of the "&" at i and of those that follow
  // it; the last token of the last operand. SQLite's own operator would bind more tightly, and be
  // null where any part is.
  std::size_t JoinTexts(std::size_t i) {
    const std::size_t first = OperandStart(i);
    std::size_t last = OperandEnd(i + 1);
    while (last + 1 < tokens_.size() && tokens_[last + 1].IsOperator("&")) {
      last = OperandEnd(last + 2);
    }
    pieces_[first] = "vp_join( " + pieces_[first];
    pieces_[last] += " )";
    return i;
  }

  static bool IsArithmetic(const Token& token) {
    return token.IsOperator("+") || token.IsOperator("-") || token.IsOperator("*") ||
           token.IsOperator("/") || token.IsWord("MOD");
  }

  // The last token of the operand, a chain of terms and arithmetic operators, that begins at i.
  std::size_t OperandEnd(std::size_t i) const {
    for (;;) {
      while (i < tokens_.size() && (tokens_[i].IsOperator("-") || tokens_[i].IsOperator("+")))
        ++i;
      i = TermEnd(i);
      if (i + 1 >= tokens_.size() || !IsArithmetic(tokens_[i + 1])) return i;
      i += 2;
    }
  }

  std::size_t TermEnd(std::size_t i) const {
    if (i >= tokens_.size()) RaiseSyntaxError(dialect_, "missing operator");
    while (tokens_[i].IsName() && i + 2 < tokens_.size() &&
           (tokens_[i + 1].IsOperator(".") || tokens_[i + 1].IsOperator("!"))) {
      i += 2;
    }
    if (tokens_[i].IsName() && IsKind(i + 1, TokenKind::Open)) ++i;
    if (tokens_[i].kind != TokenKind::Open) return i;
    int depth = 0;
    for (; i < tokens_.size(); ++i) {
      if (tokens_[i].kind == TokenKind::Open) ++depth;
      if (tokens_[i].kind == TokenKind::Close && --depth == 0) return i;
    }
    RaiseSyntaxError(dialect_, "missing )");
  }

  // The first token of the operand that ends before the "&" at i.
  std::size_t OperandStart(std::size_t i) const {
    for (;;) {
      i = TermStart(i);
      while (i > 1 && (tokens_[i - 1].IsOperator("-") || tokens_[i - 1].IsOperator("+")) &&
             BeginsOperand(i - 1)) {
        --i;
      }
      if (i < 2 || !IsArithmetic(tokens_[i - 1])) return i;
      --i;
    }
  }

  std::size_t TermStart(std::size_t behind) const {
    std::size_t i = behind - 1;
    if (tokens_[i].kind == TokenKind::Close) {
      int depth = 0;
      for (;; --i) {
        if (tokens_[i].kind == TokenKind::Close) ++depth;
        // There is one: ClosePiece has counted them.
        if (tokens_[i].kind == TokenKind::Open && --depth == 0) break;
      }
      const bool called = i > 0 && tokens_[i - 1].kind == TokenKind::Word &&
                          (NamesFunction(i - 1) || !Contains(kReserved, tokens_[i - 1].upper));
      return called ? i - 1 : i;
    }
    while (i >= 2 && tokens_[i].IsName() &&
           (tokens_[i - 1].IsOperator(".") || tokens_[i - 1].IsOperator("!"))) {
      i -= 2;
    }
    return i;
  }

  const std::vector<Token>& tokens_;
  Dialect dialect_;
  const Translation& translation_;
  std::vector<std::string> pieces_;
  std::vector<std::string> levels_{1};  // of each open parenthesis, what goes before its end
  std::size_t skipped_ = static_cast<std::size_t>(-1);
};

}  // namespace

std::string TranslateStatement(const SqlStatement& statement, Dialect dialect,
                               const Translation& translation) {
  return Translator(statement, dialect, translation).Translate();
}

}  // namespace vandpublic::ado
