// Paths and system errors on Windows: what a path must not hold, and a system error's fault number.
#ifndef VANDPUBLIC_PLATFORM_WINDOWS_WINDOWS_PATHS_H
#define VANDPUBLIC_PLATFORM_WINDOWS_WINDOWS_PATHS_H

#include <windows.h>

#include <string>
#include <string_view>

#include "runtime/errors.h"

namespace vandpublic {

// The path for the system. Fault 52 for a zero character, which would cut it short.
std::wstring NativePath(std::u16string_view path);

// The fault for a failed operation on the path, by what GetLastError told: a missing name is 53 or
// 76, depending on whether its folder exists.
FaultNumber FaultFromSystemError(DWORD error, const std::wstring& path);

// Whether a file or folder that is hidden or the system's own has these attributes.
bool IsHidden(DWORD attributes) noexcept;

// Both "\" and "/" separate folders.
bool IsSeparator(wchar_t unit) noexcept;

}  // namespace vandpublic

#endif
