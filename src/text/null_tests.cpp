// FstrIsNullExt, NotNull and FstrRidOfEmpty: absent, null and blank.
#include <cstdint>
#include <string>
#include <utility>

#include "frame/trap.h"
#include "members/messages.h"

namespace vandpublic {
namespace {

// What NotNull returns in place of the null value.
Variant ReplacementFor(Long value_type) {
  // Type codes have 16 bits, the argument 32.
  if (!std::in_range<std::uint16_t>(value_type)) Reject(messages::kInvalidValueType);
  switch (static_cast<VarType>(value_type)) {
    case VarType::Integer:
    case VarType::Long:
    case VarType::Single:
    case VarType::Double:
    case VarType::Currency:
      return Integer{0};  // a 16-bit zero for all of them, on purpose
    case VarType::String:
      return String();
    case VarType::Boolean:
      return false;
    default:
      Reject(messages::kInvalidValueType);
  }
}

// Without the two blanks. Every unit is written and only those to keep are stepped over, so that
// nothing depends on what comes next.
std::u16string WithoutBlanks(std::u16string_view text) {
  std::u16string kept(text.size(), u'\0');
  char16_t* end = kept.data();
  for (const char16_t unit : text) {
    *end = unit;
    end += unit != u' ' && unit != u'\u3000' ? 1 : 0;
  }
  kept.resize(static_cast<std::size_t>(end - kept.data()));
  return kept;
}

// Without the pairs of CR and LF, those that stand in the text as it is.
void RemoveLineEnds(std::u16string& text) {
  std::size_t kept = text.find(u'\r');
  for (std::size_t i = kept; i < text.size(); ++i) {
    const bool pair = text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n';
    if (pair) {
      ++i;
    } else {
      text[kept++] = text[i];
    }
  }
  if (kept < text.size()) text.resize(kept);
}

}  // namespace

bool clsPublic::FstrIsNullExt(const String& istr_Source, bool ibln_VbNullStringIsNull,
                              bool ibln_SpaceIsNull) {
  if (!ibln_VbNullStringIsNull) return false;  // whatever ibln_SpaceIsNull says, on purpose
  if (istr_Source.ByteLength() == 0) return true;
  const bool whole_units = istr_Source.ByteLength() % 2 == 0;  // half a unit is no blank
  return ibln_SpaceIsNull && whole_units && TrimSpaces(istr_Source.view()).empty();
}

Variant clsPublic::NotNull(Variant& Value, OptionalRef<Long> ValueType) {
  return Trapped(*this, Member::NotNull, [&]() -> Variant {
    // The type is checked first, also when the value needs no replacement.
    Variant replacement = ReplacementFor(*ValueType);
    return Value.IsNull() ? replacement : Value;
  });
}

String clsPublic::FstrRidOfEmpty(String& istr_Source) {
  // Line ends last: a CR and an LF that only blanks held apart go as well.
  std::u16string text = WithoutBlanks(istr_Source.view());
  RemoveLineEnds(text);
  return text;
}

}  // namespace vandpublic
