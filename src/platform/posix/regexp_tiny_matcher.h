// A regular-expression matcher small enough to be seen right, to compare the engine with in tests.
#ifndef VANDPUBLIC_PLATFORM_POSIX_REGEXP_TINY_MATCHER_H
#define VANDPUBLIC_PLATFORM_POSIX_REGEXP_TINY_MATCHER_H

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "runtime/errors.h"

namespace vandpublic {

// The dialect reduced to literals, ".", "^", "$", "*", "?", "|", groups, look-aheads and \1 to \9,
// case told apart, one line. Plain recursive backtracking over a syntax tree, so for short patterns
// and subjects only. As in the engine, captures last from one pass of a repeated group to the next,
// and a pass that matches the empty text is the last one.
class TinyMatcher {
 public:
  using Span = std::optional<std::pair<std::size_t, std::size_t>>;
  using Captures = std::array<Span, 10>;

  // Raises the fault of a pattern that is wrong.
  explicit TinyMatcher(std::u16string_view pattern) : rest_(pattern) {
    root_ = ParseAlternatives();
    if (!rest_.empty()) RaiseFault(FaultNumber::RegExpSyntaxError);  // only ")" stops the parser
  }

  std::size_t GroupCount() const { return groups_; }

  // The leftmost match; captures[0] is the whole of it.
  std::optional<Captures> Search(std::u16string_view subject) const {
    for (std::size_t start = 0; start <= subject.size(); ++start) {
      Captures captures;
      std::size_t end = 0;
      const auto accept = [&end](std::size_t at, Captures&) {
        end = at;
        return true;
      };
      if (Match(*root_, subject, start, captures, accept)) {
        captures[0] = {start, end};
        return captures;
      }
    }
    return std::nullopt;
  }

 private:
  enum class Kind {
    Unit,
    Any,
    Start,
    End,
    Reference,
    Sequence,
    Alternatives,
    Group,
    Ahead,
    NotAhead,
    Repeat
  };
  struct Node {
    explicit Node(Kind node_kind) : kind(node_kind) {}
    Kind kind;
    char16_t unit = 0;
    std::size_t group = 0;  // 0 in a group that does not capture
    std::size_t max = 0;
    bool lazy = false;
    std::vector<std::unique_ptr<Node>> parts;
  };
  using Next = std::function<bool(std::size_t, Captures&)>;

  bool TakeIf(std::u16string_view text) {
    const bool found = rest_.substr(0, text.size()) == text;
    if (found) rest_.remove_prefix(text.size());
    return found;
  }

  std::unique_ptr<Node> ParseAlternatives() {
    auto node = std::make_unique<Node>(Kind::Alternatives);
    do {
      auto sequence = std::make_unique<Node>(Kind::Sequence);
      while (!rest_.empty() && rest_[0] != u'|' && rest_[0] != u')') {
        sequence->parts.push_back(ParseRepeat());
      }
      node->parts.push_back(std::move(sequence));
    } while (TakeIf(u"|"));
    return node;
  }

  std::unique_ptr<Node> ParseRepeat() {
    auto atom = ParseAtom();
    if (atom->kind == Kind::Start || atom->kind == Kind::End) return atom;
    const bool star = TakeIf(u"*");
    if (!star && !TakeIf(u"?")) return atom;
    auto node = std::make_unique<Node>(Kind::Repeat);
    node->max = star ? ~std::size_t{0} : 1;
    node->lazy = TakeIf(u"?");
    node->parts.push_back(std::move(atom));
    return node;
  }

  std::unique_ptr<Node> ParseAtom() {
    if (rest_[0] == u'*' || rest_[0] == u'?') RaiseFault(FaultNumber::RegExpUnexpectedQuantifier);
    if (TakeIf(u"(?:")) return ParseGroup(Kind::Group, 0);
    if (TakeIf(u"(?=")) return ParseGroup(Kind::Ahead, 0);
    if (TakeIf(u"(?!")) return ParseGroup(Kind::NotAhead, 0);
    if (TakeIf(u"(?")) RaiseFault(FaultNumber::RegExpSyntaxError);
    if (TakeIf(u"(")) return ParseGroup(Kind::Group, ++groups_);
    if (TakeIf(u".")) return std::make_unique<Node>(Kind::Any);
    if (TakeIf(u"^")) return std::make_unique<Node>(Kind::Start);
    if (TakeIf(u"$")) return std::make_unique<Node>(Kind::End);
    const bool escape = TakeIf(u"\\");
    auto node = std::make_unique<Node>(Kind::Unit);
    node->unit = rest_[0];
    rest_.remove_prefix(1);
    if (!escape) return node;
    node->unit = static_cast<char16_t>(node->unit - u'0');  // an octal escape unless there is
    node->group = node->unit;                               // a group of that number
    if (node->group <= groups_) node->kind = Kind::Reference;
    return node;
  }

  std::unique_ptr<Node> ParseGroup(Kind kind, std::size_t group) {
    auto node = std::make_unique<Node>(kind);
    node->group = group;
    node->parts.push_back(ParseAlternatives());
    if (!TakeIf(u")")) RaiseFault(FaultNumber::RegExpExpectedParenthesis);
    return node;
  }

  static bool Match(const Node& node, std::u16string_view subject, std::size_t at,
                    Captures& captures, const Next& next) {
    switch (node.kind) {
      case Kind::Unit:
        return at < subject.size() && subject[at] == node.unit && next(at + 1, captures);
      case Kind::Any:
        return at < subject.size() && subject[at] != u'\n' && next(at + 1, captures);
      case Kind::Start:
        return at == 0 && next(at, captures);
      case Kind::End:
        return at == subject.size() && next(at, captures);
      case Kind::Reference:
        return MatchReference(captures[node.group], subject, at, captures, next);
      case Kind::Sequence:
        return MatchSequence(node, 0, subject, at, captures, next);
      case Kind::Alternatives:
        for (const auto& part : node.parts) {
          if (Match(*part, subject, at, captures, next)) return true;
        }
        return false;
      case Kind::Group:
        return MatchGroup(node, subject, at, captures, next);
      case Kind::Ahead:
      case Kind::NotAhead:
        return MatchAhead(node, subject, at, captures, next);
      case Kind::Repeat:
        break;
    }
    return MatchRepeat(node, 0, subject, at, captures, next);
  }

  static bool MatchReference(const Span& span, std::u16string_view subject, std::size_t at,
                             Captures& captures, const Next& next) {
    if (!span) return next(at, captures);
    const auto text = subject.substr(span->first, span->second - span->first);
    return subject.substr(at, text.size()) == text && next(at + text.size(), captures);
  }

  static bool MatchSequence(const Node& node, std::size_t index, std::u16string_view subject,
                            std::size_t at, Captures& captures, const Next& next) {
    if (index == node.parts.size()) return next(at, captures);
    return Match(*node.parts[index], subject, at, captures, [&](std::size_t then, Captures& c) {
      return MatchSequence(node, index + 1, subject, then, c, next);
    });
  }

  static bool MatchGroup(const Node& node, std::u16string_view subject, std::size_t at,
                         Captures& captures, const Next& next) {
    if (node.group == 0) return Match(*node.parts[0], subject, at, captures, next);
    return Match(*node.parts[0], subject, at, captures, [&](std::size_t end, Captures& c) {
      const Span before = c[node.group];
      c[node.group] = {at, end};
      if (next(end, c)) return true;
      c[node.group] = before;
      return false;
    });
  }

  // What follows cannot make a look-ahead match in another way. Captures come out of it only when
  // it must match.
  static bool MatchAhead(const Node& node, std::u16string_view subject, std::size_t at,
                         Captures& captures, const Next& next) {
    Captures inside = captures;
    const auto accept = [](std::size_t, Captures&) { return true; };
    const bool found = Match(*node.parts[0], subject, at, inside, accept);
    if (found != (node.kind == Kind::Ahead)) return false;
    const Captures before = captures;
    if (found) captures = inside;
    if (next(at, captures)) return true;
    captures = before;
    return false;
  }

  static bool MatchRepeat(const Node& node, std::size_t count, std::u16string_view subject,
                          std::size_t at, Captures& captures, const Next& next) {
    const auto once_more = [&] {
      return count < node.max &&
             Match(*node.parts[0], subject, at, captures, [&](std::size_t end, Captures& c) {
               if (end == at) return next(end, c);
               return MatchRepeat(node, count + 1, subject, end, c, next);
             });
    };
    if (node.lazy) return next(at, captures) || once_more();
    return once_more() || next(at, captures);
  }

  std::u16string_view rest_;
  std::size_t groups_ = 0;
  std::unique_ptr<Node> root_;
};

}  // namespace vandpublic

#endif
