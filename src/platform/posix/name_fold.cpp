// Upper case from the C library's Unicode tables. They come from a locale object of our own, since
// the host's locale may know ASCII letters only.
#include "platform/posix/name_fold.h"

#include <clocale>
#include <cwctype>

#include <algorithm>

namespace vandpublic {
namespace {

constexpr char16_t kAsciiEnd = 0x80;

locale_t UnicodeLocale() noexcept {
  // Never freed: names are compared until the process ends. Null where the library lacks it.
  static const locale_t locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
  return locale;
}

char16_t FoldUnit(char16_t unit) noexcept {
  if (unit < kAsciiEnd) {
    const bool lower = unit >= u'a' && unit <= u'z';
    return lower ? static_cast<char16_t>(unit - u'a' + u'A') : unit;
  }
  const locale_t locale = UnicodeLocale();
  if (locale == nullptr) return unit;
  const wint_t upper = towupper_l(unit, locale);
  return upper < kAsciiEnd || upper > 0xFFFF ? unit : static_cast<char16_t>(upper);
}

}  // namespace

std::u16string FoldName(std::u16string_view name) {
  std::u16string folded(name);
  std::transform(folded.begin(), folded.end(), folded.begin(), FoldUnit);
  return folded;
}

bool SameName(std::u16string_view a, std::u16string_view b) noexcept {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char16_t x, char16_t y) { return FoldUnit(x) == FoldUnit(y); });
}

}  // namespace vandpublic
