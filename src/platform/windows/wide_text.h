// The interface's 16-bit texts as Windows takes and gives them: the same units under another type.
#ifndef VANDPUBLIC_PLATFORM_WINDOWS_WIDE_TEXT_H
#define VANDPUBLIC_PLATFORM_WINDOWS_WIDE_TEXT_H

#include <string>
#include <string_view>

namespace vandpublic {

static_assert(sizeof(wchar_t) == sizeof(char16_t));

// A copy that ends in a zero, for functions that want one.
inline std::wstring Wide(std::u16string_view text) { return {text.begin(), text.end()}; }

// The units where they stand; for functions that take a length.
inline const wchar_t* WideUnits(std::u16string_view text) noexcept {
  return reinterpret_cast<const wchar_t*>(text.data());
}
inline wchar_t* WideUnits(std::u16string& text) noexcept {
  return reinterpret_cast<wchar_t*>(text.data());
}

inline std::u16string FromWide(std::wstring_view text) { return {text.begin(), text.end()}; }

}  // namespace vandpublic

#endif
