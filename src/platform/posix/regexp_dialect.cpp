// One pass over the pattern that checks it and writes it anew. What the dialect lacks is refused,
// what it takes for plain text is quoted, and what the matcher would read differently is spelled
// out: see the members of Translator.
#include "platform/posix/regexp_dialect.h"

#include <algorithm>
#include <vector>

#include "platform/posix/regexp_class.h"
#include "platform/posix/regexp_repeat.h"
#include "runtime/errors.h"

namespace vandpublic {
namespace {

constexpr std::u16string_view kCallout = u"(?C)";

// PCRE2 before 10.45 takes the first character of a look-ahead for one that the match itself has
// to consume, and misses matches: (?=ba)x?b in "ba". This start of a pattern turns that off.
constexpr std::u16string_view kNoStartOptimization = u"(*NO_START_OPT)";

// Straight work (one unit compared is 1) that may go by without a callout.
constexpr std::size_t kWorkBetweenCallouts = 64;

// Characters whose other case the library may be told to look up, one by one, in one pattern.
// Sixty-four classes of all characters; looking up that many takes it some 15 ms.
constexpr std::size_t kFoldedUnitsLimit = std::size_t{1} << 22;

constexpr std::u16string_view kWordBoundary =
    u"(?-i:(?<=[0-9A-Z_a-z])(?![0-9A-Z_a-z])|(?<![0-9A-Z_a-z])(?=[0-9A-Z_a-z]))";
constexpr std::u16string_view kNoWordBoundary =
    u"(?-i:(?<=[0-9A-Z_a-z])(?=[0-9A-Z_a-z])|(?<![0-9A-Z_a-z])(?![0-9A-Z_a-z]))";

constexpr bool IsDigit(char16_t unit) noexcept { return unit >= u'0' && unit <= u'9'; }

// Full folding slows \b and \w down, so a pattern gets it only if it may hold a character above
// 127 (written, or as \x, \u or octal) or a back reference, whose text is not known here.
RegExpFolding ChooseFolding(std::u16string_view pattern, bool ignore_case) noexcept {
  if (!ignore_case) return RegExpFolding::None;
  char16_t before = 0;
  for (const char16_t unit : pattern) {
    const bool is_code = before == u'\\' && (IsDigit(unit) || unit == u'x' || unit == u'u');
    if (unit > 0x7F || is_code) return RegExpFolding::Full;
    before = unit;
  }
  return RegExpFolding::Ascii;
}

class Translator {
 public:
  Translator(std::u16string_view pattern, bool ignore_case, bool multiline)
      : reader_(pattern), folding_(ChooseFolding(pattern, ignore_case)), multiline_(multiline) {
    text_.reserve(pattern.size() + pattern.size() / 2 + 16);
  }

  TranslatedRegExp Translate() {
    while (!reader_.AtEnd())
      ReadPiece();
    if (!groups_.empty()) RaiseFault(FaultNumber::RegExpExpectedParenthesis);
    if (choice_seen_ || has_callout_) text_.insert(0, kCallout);
    if (has_look_ahead_) text_.insert(0, kNoStartOptimization);
    return {std::move(text_), folding_};
  }

 private:
  struct Group {
    std::size_t body;          // where the text between the parentheses starts
    std::size_t outer_work;    // work_ of what stands around it
    bool choice_before;        // whether a choice stands before it
    bool has_callout = false;  // whether its body starts with a callout
  };

  void ReadPiece() {
    if (RegExpRepeat repeat; ReadRegExpRepeat(reader_, repeat)) {
      // Write and CloseGroup take every quantifier that has something to repeat.
      RaiseFault(FaultNumber::RegExpUnexpectedQuantifier);
    }
    const char16_t unit = reader_.Take();
    switch (unit) {
      case u'(':
        return OpenGroup();
      case u')':
        return CloseGroup();
      case u'|':
        return StartAlternative();
      case u'^':
        // The library knows several kinds of line break, but none that is CR or LF, each alone.
        text_ += multiline_ ? u"(?<![^\\n\\r])" : u"^";
        return;
      case u'$':
        text_ += multiline_ ? u"(?![^\\n\\r])" : u"\\z";
        return;
      case u'.':
        return Write({u".", {}});
      case u'[':
        return Write(ReadClass());
      case u'\\':
        return ReadEscape();
      default:
        return WriteCharacter(unit);
    }
  }

  void OpenGroup() {
    if (groups_.size() == kRegExpNestingLimit) RaiseFault(FaultNumber::RegExpSyntaxError);
    Group group{.body = 0, .outer_work = work_, .choice_before = choice_seen_};
    text_.push_back(u'(');
    if (reader_.TakeIf(u'?')) {
      const char16_t kind = reader_.AtEnd() ? u'\0' : reader_.Take();
      if (kind != u':' && kind != u'=' && kind != u'!') RaiseFault(FaultNumber::RegExpSyntaxError);
      text_.push_back(u'?');
      text_.push_back(kind);
      has_look_ahead_ = has_look_ahead_ || kind == u'=';
    } else {
      ++group_count_;
    }
    group.body = text_.size();
    work_ = 0;
    groups_.push_back(group);
  }

  // The first choice of a pattern needs no callout of its own, since one stands at its start. A
  // later one is come to anew each time an earlier one is revised, so it gets its own: a matcher
  // that tries combinations without end keeps meeting callouts.
  void StartAlternative() {
    text_.push_back(u'|');
    choice_seen_ = true;
    if (!groups_.empty() && groups_.back().choice_before) AddGroupCallout(groups_.back());
  }

  void CloseGroup() {
    if (groups_.empty()) RaiseFault(FaultNumber::RegExpSyntaxError);
    Group group = groups_.back();
    groups_.pop_back();
    text_.push_back(u')');
    RegExpRepeat repeat;
    if (ReadRegExpRepeat(reader_, repeat)) {
      work_ *= std::max(repeat.min, 1U);
      if ((choice_seen_ && repeat.max > 1) || work_ > kWorkBetweenCallouts) AddGroupCallout(group);
      AppendRegExpRepeat(text_, repeat);
      choice_seen_ = choice_seen_ || repeat.min != repeat.max;
    }
    work_ += group.outer_work + 1;
  }

  void AddGroupCallout(Group& group) {
    if (group.has_callout) return;
    group.has_callout = true;
    AddCallout(group.body);
  }

  void AddCallout(std::size_t where) {
    text_.insert(where, kCallout);
    has_callout_ = true;
    work_ = 0;
  }

  RegExpItem ReadClass() {
    RegExpItem item = ReadCharacterClass(reader_, folding_, folded_units_);
    if (folded_units_ > kFoldedUnitsLimit) RaiseFault(FaultNumber::RegExpSyntaxError);
    return item;
  }

  // Writes something that stands for one character, and the quantifier that may follow it.
  void Write(const RegExpItem& item) {
    const std::size_t start = text_.size();
    text_ += item.text;
    EndItem(start, item.suffix);
  }

  // The same for a character, which needs no texts of its own.
  void WriteCharacter(char16_t unit) {
    const std::size_t start = text_.size();
    AppendCharacter(text_, unit, folding_);
    EndItem(start, {});
  }

  void EndItem(std::size_t start, std::u16string_view suffix) {
    std::size_t work = 1;
    RegExpRepeat repeat;
    if (ReadRegExpRepeat(reader_, repeat)) {
      AppendRegExpRepeat(text_, repeat);
      work = repeat.min;
      const bool is_choice = repeat.min != repeat.max;
      if (is_choice && choice_seen_) AddCallout(start);
      choice_seen_ = choice_seen_ || is_choice;
    }
    text_ += suffix;
    work_ += work;
    if (work_ > kWorkBetweenCallouts) AddCallout(text_.size());
  }

  void ReadEscape() {
    const char16_t letter = reader_.AtEnd() ? u'\0' : reader_.Rest()[0];
    if (letter == u'b' || letter == u'B') {
      reader_.Skip(1);
      WriteWordBoundary(letter);
    } else if (IsFixedClassLetter(letter)) {
      reader_.Skip(1);
      Write(MakeFixedClass(letter, folding_));
    } else if (const unsigned group = TakeBackReference(); group != 0) {
      WriteBackReference(group);
    } else {
      WriteCharacter(ReadCharacterEscape(reader_));
    }
  }

  void WriteWordBoundary(char16_t letter) {
    if (folding_ == RegExpFolding::Full) {
      text_ += letter == u'b' ? kWordBoundary : kNoWordBoundary;
    } else {
      text_.push_back(u'\\');
      text_.push_back(letter);
    }
  }

  // Two digits where so many groups have been opened, else one, else none: then 0 is returned and
  // the number is an octal escape.
  unsigned TakeBackReference() noexcept {
    const std::u16string_view rest = reader_.Rest();
    if (rest.empty() || !IsDigit(rest[0]) || rest[0] == u'0') return 0;
    const auto one_digit = static_cast<unsigned>(rest[0] - u'0');
    if (one_digit > group_count_) return 0;
    reader_.Skip(1);
    if (rest.size() == 1 || !IsDigit(rest[1])) return one_digit;
    const unsigned two_digits = one_digit * 10 + static_cast<unsigned>(rest[1] - u'0');
    if (two_digits > group_count_) return one_digit;
    reader_.Skip(1);
    return two_digits;
  }

  // The group's text can be long, so this is work of unknown length, as a choice is.
  void WriteBackReference(unsigned group) {
    if (choice_seen_) AddCallout(text_.size());
    const std::string number = std::to_string(group);
    Write({u"\\g{" + std::u16string(number.begin(), number.end()) + u"}", {}});
  }

  RegExpReader reader_;
  RegExpFolding folding_;
  bool multiline_;
  std::u16string text_;
  std::vector<Group> groups_;
  unsigned group_count_ = 0;  // capturing groups opened so far
  std::size_t folded_units_ = 0;
  std::size_t work_ = 0;      // straight work in this group since the last callout
  bool choice_seen_ = false;  // a quantifier with a choice, or an alternative, stands before
  bool has_callout_ = false;
  bool has_look_ahead_ = false;
};

}  // namespace

TranslatedRegExp TranslateRegExp(std::u16string_view pattern, bool ignore_case, bool multiline) {
  return Translator(pattern, ignore_case, multiline).Translate();
}

}  // namespace vandpublic
