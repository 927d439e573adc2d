// Statements cut into tokens, as the dialects of Jet and FoxPro write them.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_SQL_SQL_TOKENS_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_SQL_SQL_TOKENS_H

#include <string>
#include <string_view>
#include <vector>

namespace vandpublic::ado {

// Whose SQL it is.
enum class Dialect { Jet, FoxPro };

enum class TokenKind {
  Word,  // a keyword, or a name without quotes
  Name,  // a name in [...] or `...`; the text is what stands inside
  Text,  // a literal; the text is its value
  Number,
  Date,      // #...#, {...}; the text is what stands inside
  Operator,  // one or two characters
  Open,      // (
  Close,     // )
  Comma,
  Semicolon,
};

struct Token {
  TokenKind kind = TokenKind::Word;
  std::string text;   // UTF-8
  std::string upper;  // a word in upper-case ASCII letters; empty for other kinds

  bool IsWord(std::string_view word) const { return kind == TokenKind::Word && upper == word; }
  bool IsOperator(std::string_view op) const { return kind == TokenKind::Operator && text == op; }
  bool IsName() const { return kind == TokenKind::Word || kind == TokenKind::Name; }
};

// The source that errors of the dialect's statements name.
std::string_view SourceOf(Dialect dialect) noexcept;

// Cuts a statement (UTF-8) up. A literal or name without its end is a bad statement, raised with
// the dialect's number, source and text; any other character makes an operator of its own.
std::vector<Token> CutTokens(std::string_view statement, Dialect dialect);

// A bad statement; the reason is added to the dialect's own words.
[[noreturn]] void RaiseSyntaxError(Dialect dialect, std::string_view reason);

}  // namespace vandpublic::ado

#endif
