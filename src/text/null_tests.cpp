// FstrIsNullExt, NotNull and FstrRidOfEmpty: absent, null and blank.
#include <algorithm>
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

std::u16string Without(std::u16string_view text, std::u16string_view unwanted) {
  std::u16string kept;
  kept.reserve(text.size());
  for (std::size_t start = 0; start <= text.size();) {
    const std::size_t found = std::min(text.find(unwanted, start), text.size());
    kept += text.substr(start, found - start);
    start = found + unwanted.size();
  }
  return kept;
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
  // Three passes in this order: a CR and an LF that only blanks held apart go as well.
  const std::u16string without_ideographic = Without(istr_Source.view(), u"\u3000");
  return Without(Without(without_ideographic, u" "), u"\r\n");
}

}  // namespace vandpublic
