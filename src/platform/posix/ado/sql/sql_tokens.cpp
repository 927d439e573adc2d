// The tokens of both dialects.
#include "platform/posix/ado/sql/sql_tokens.h"

#include <algorithm>
#include <array>

#include "platform/posix/ado/ado_errors.h"

namespace vandpublic::ado {
namespace {

constexpr std::string_view kBlanks = " \t\r\n\f\v";

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Letters of other scripts come as bytes above 0x7F.
bool IsNameStart(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' ||
         static_cast<unsigned char>(c) >= 0x80;
}

bool IsNamePart(char c) { return IsNameStart(c) || IsDigit(c) || c == '$'; }

std::string UpperAscii(std::string_view text) {
  std::string upper(text);
  std::transform(upper.begin(), upper.end(), upper.begin(), [](char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  });
  return upper;
}

class Cutter {
 public:
  Cutter(std::string_view text, Dialect dialect) : text_(text), dialect_(dialect) {}

  std::vector<Token> Cut() {
    while ((at_ = text_.find_first_not_of(kBlanks, at_)) != std::string_view::npos)
      CutOne();
    return std::move(tokens_);
  }

 private:
  char Peek(std::size_t ahead = 0) const {
    return at_ + ahead < text_.size() ? text_[at_ + ahead] : '\0';
  }

  void Add(TokenKind kind, std::string text) {
    Token token{kind, std::move(text), {}};
    if (kind == TokenKind::Word) token.upper = UpperAscii(token.text);
    tokens_.push_back(std::move(token));
  }

  void CutOne() {
    const char c = Peek();
    if (IsNameStart(c)) return Add(TokenKind::Word, Take(&IsNamePart));
    if (IsDigit(c) || (c == '.' && IsDigit(Peek(1)))) return CutNumber();
    switch (c) {
      case '\'':
      case '"':
        return Add(TokenKind::Text, TakeQuoted(c, c));
      case '[':
        return Add(TokenKind::Name, TakeQuoted('[', ']'));
      case '`':
        return Add(TokenKind::Name, TakeQuoted('`', '`'));
      case '{':
        return Add(TokenKind::Date, TakeQuoted('{', '}'));
      case '#':
        // FoxPro's "not equal".
        if (dialect_ == Dialect::FoxPro) return CutOperator();
        return Add(TokenKind::Date, TakeQuoted('#', '#'));
      case '(':
        return CutSingle(TokenKind::Open);
      case ')':
        return CutSingle(TokenKind::Close);
      case ',':
        return CutSingle(TokenKind::Comma);
      case ';':
        return CutSingle(TokenKind::Semicolon);
      case '.':
        if (dialect_ == Dialect::FoxPro && CutDottedWord()) return;
        return CutOperator();
      default:
        return CutOperator();
    }
  }

  template <class Test>
  std::string Take(Test test) {
    const std::size_t start = at_;
    while (at_ < text_.size() && test(text_[at_]))
      ++at_;
    return std::string(text_.substr(start, at_ - start));
  }

  // The closing character is part of the text where it is doubled.
  std::string TakeQuoted(char open, char close) {
    std::string value;
    for (++at_; at_ < text_.size(); ++at_) {
      if (text_[at_] == close) {
        if (Peek(1) != close || open != close || open == '#') {
          ++at_;
          return value;
        }
        ++at_;
      }
      value += text_[at_];
    }
    RaiseSyntaxError(dialect_, std::string("missing ") + close);
  }

  void CutNumber() {
    std::string number = Take(&IsDigit);
    if (Peek() == '.') {
      ++at_;
      number += '.' + Take(&IsDigit);
    }
    const std::size_t sign = Peek(1) == '+' || Peek(1) == '-' ? 1 : 0;
    if ((Peek() == 'e' || Peek() == 'E') && IsDigit(Peek(1 + sign))) {
      number += text_.substr(at_, 1 + sign);
      at_ += 1 + sign;
      number += Take(&IsDigit);
    }
    // What hangs on to a number is no name of its own: "2ndName", "1E".
    if (IsNamePart(Peek())) RaiseSyntaxError(dialect_, "near " + number);
    Add(TokenKind::Number, std::move(number));
  }

  // ".T.", ".AND." and the like, as the word without its points.
  bool CutDottedWord() {
    static constexpr std::array<std::string_view, 8> kWords = {"T",   "F",  "Y",   "N",
                                                               "AND", "OR", "NOT", "NULL"};
    const std::size_t end = text_.find('.', at_ + 1);
    if (end == std::string_view::npos) return false;
    const std::string word = UpperAscii(text_.substr(at_ + 1, end - at_ - 1));
    if (std::find(kWords.begin(), kWords.end(), word) == kWords.end()) return false;
    at_ = end + 1;
    if (word == "T" || word == "Y") {
      Add(TokenKind::Word, "TRUE");
    } else if (word == "F" || word == "N") {
      Add(TokenKind::Word, "FALSE");
    } else {
      Add(TokenKind::Word, word);
    }
    return true;
  }

  void CutSingle(TokenKind kind) {
    Add(kind, std::string(1, Peek()));
    ++at_;
  }

  void CutOperator() {
    static constexpr std::array<std::string_view, 5> kPairs = {"<>", "<=", ">=", "!=", "=="};
    const std::string_view pair = text_.substr(at_, 2);
    const bool is_pair = std::find(kPairs.begin(), kPairs.end(), pair) != kPairs.end();
    Add(TokenKind::Operator, std::string(text_.substr(at_, is_pair ? 2 : 1)));
    at_ += tokens_.back().text.size();
  }

  std::string_view text_;
  Dialect dialect_;
  std::size_t at_ = 0;
  std::vector<Token> tokens_;
};

}  // namespace

std::string_view SourceOf(Dialect dialect) noexcept {
  return dialect == Dialect::Jet ? kJetSource : kOdbcSource;
}

std::vector<Token> CutTokens(std::string_view statement, Dialect dialect) {
  return Cutter(statement, dialect).Cut();
}

void RaiseSyntaxError(Dialect dialect, std::string_view reason) {
  const std::string text = dialect == Dialect::Jet ? "Syntax error in query." : "Syntax error.";
  Raise(SourceError::BadStatement, SourceOf(dialect), text + " (" + std::string(reason) + ")");
}

}  // namespace vandpublic::ado
