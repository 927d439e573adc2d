// Reads character classes of the scripting dialect and writes them for the matcher.
//
// Case folding makes this more than copying. With full folding, \w would grow by the two letters
// outside ASCII that fold into it, U+017F (long s) and U+212A (Kelvin sign); the fixed classes
// must not. They are kept apart from the other members and matched with folding switched off.
// With ASCII folding the matcher knows nothing of those two letters, so they are added by hand.
#include "platform/posix/regexp_class.h"

#include "runtime/errors.h"

namespace vandpublic {
namespace {

constexpr char16_t kLongS = 0x017F;
constexpr char16_t kKelvinSign = 0x212A;
constexpr std::u16string_view kFoldingOff = u"(?-i)";
constexpr std::u16string_view kFoldingOn = u"(?i)";

// What stands at one place in a class: a character, or one of the fixed classes.
struct Member {
  bool is_fixed_class;
  char16_t unit;  // the letter of a fixed class
};

Member ReadMember(RegExpReader& reader) {
  const char16_t unit = reader.Take();
  if (unit != u'\\') return {false, unit};
  if (reader.TakeIf(u'b')) return {false, u'\b'};
  if (!reader.AtEnd() && IsFixedClassLetter(reader.Rest()[0])) return {true, reader.Take()};
  return {false, ReadCharacterEscape(reader)};
}

// The letter outside ASCII that folds to an ASCII letter, 0 if there is none.
constexpr char16_t ForeignPartner(char16_t lower_letter) noexcept {
  if (lower_letter == u'k') return kKelvinSign;
  return lower_letter == u's' ? kLongS : u'\0';
}

class ClassWriter {
 public:
  ClassWriter(RegExpFolding folding, std::size_t& folded_units) noexcept
      : folding_(folding), folded_units_(folded_units) {}

  void Add(Member member) {
    if (member.is_fixed_class) {
      // \d and \s hold no letters, so folding cannot widen them and they may stay with the rest.
      const bool keep_apart =
          folding_ == RegExpFolding::Full && member.unit != u'd' && member.unit != u's';
      (keep_apart ? exact_ : members_) += FixedClassMembers(member.unit, folding_);
    } else {
      AddRange(member.unit, member.unit);
    }
  }

  void AddRange(char16_t first, char16_t last) {
    if (first > last) RaiseFault(FaultNumber::RegExpInvalidRange);
    AppendMember(members_, first);
    if (first != last) {
      members_.push_back(u'-');
      AppendMember(members_, last);
    }
    if (folding_ == RegExpFolding::Full) folded_units_ += static_cast<std::size_t>(last - first);
    if (folding_ != RegExpFolding::Ascii) return;
    for (const char16_t letter : {u'k', u's'}) {
      const auto upper = static_cast<char16_t>(letter - 0x20);
      const bool holds_letter =
          (first <= letter && letter <= last) || (first <= upper && upper <= last);
      if (holds_letter) members_.push_back(ForeignPartner(letter));
    }
  }

  RegExpItem Finish(bool negated) const {
    const std::u16string open = negated ? u"[^" : u"[";
    if (exact_.empty()) return {open + members_ + u']', {}};
    const std::u16string exact = std::u16string(kFoldingOff) + open + exact_ + u']';
    if (members_.empty()) return {exact, kFoldingOn};
    // A group ends the effect of the switch inside it.
    const std::u16string folded = open + members_ + u']';
    if (negated) return {u"(?:(?=" + exact + u')' + folded + u')', {}};
    return {u"(?:" + folded + u'|' + exact + u')', {}};
  }

 private:
  RegExpFolding folding_;
  std::size_t& folded_units_;
  std::u16string members_;
  std::u16string exact_;  // the fixed classes that must be matched with folding switched off
};

}  // namespace

RegExpItem ReadCharacterClass(RegExpReader& reader, RegExpFolding folding,
                              std::size_t& folded_units) {
  ClassWriter writer(folding, folded_units);
  const bool negated = reader.TakeIf(u'^');
  for (bool first = true;; first = false) {
    if (reader.AtEnd()) RaiseFault(FaultNumber::RegExpExpectedBracket);
    if (!first && reader.TakeIf(u']')) return writer.Finish(negated);
    const Member from = ReadMember(reader);
    const bool has_range_sign = reader.IsAt(0, u'-') && reader.Rest().size() > 1;
    if (!has_range_sign || reader.IsAt(1, u']')) {
      writer.Add(from);
      continue;
    }
    reader.Skip(1);
    const Member to = ReadMember(reader);
    if (!from.is_fixed_class && !to.is_fixed_class) {
      writer.AddRange(from.unit, to.unit);
      continue;
    }
    // [\w-.] has no range: "-" beside a fixed class is itself. Many a pattern relies on it.
    writer.Add(from);
    writer.Add({false, u'-'});
    writer.Add(to);
  }
}

RegExpItem MakeFixedClass(char16_t letter, RegExpFolding folding) {
  if (folding != RegExpFolding::Full) return {std::u16string{u'\\', letter}, {}};
  const auto lower = static_cast<char16_t>(letter | 0x20);
  std::u16string text = letter == lower ? u"[" : u"[^";
  text += FixedClassMembers(lower, folding);
  text.push_back(u']');
  if (lower != u'w') return {std::move(text), {}};
  return {std::u16string(kFoldingOff) + text, kFoldingOn};
}

void AppendCharacter(std::u16string& text, char16_t unit, RegExpFolding folding) {
  const char16_t partner =
      folding == RegExpFolding::Ascii ? ForeignPartner(static_cast<char16_t>(unit | 0x20)) : u'\0';
  if (partner != 0) {
    text += {u'[', unit, partner, u']'};
  } else {
    AppendLiteral(text, unit);
  }
}

}  // namespace vandpublic
