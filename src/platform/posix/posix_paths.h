// Paths and system errors on Linux: what turns the interface's texts into file names, and errno
// into the classic fault numbers.
#ifndef VANDPUBLIC_PLATFORM_POSIX_POSIX_PATHS_H
#define VANDPUBLIC_PLATFORM_POSIX_POSIX_PATHS_H

#include <string>
#include <string_view>

#include "runtime/errors.h"

namespace vandpublic {

// The file name to open: UTF-8, every "\" a "/". Drive letters are not mapped, case is not folded.
// Fault 52 for a zero character, which would cut the name short.
std::string NativePath(std::u16string_view path);

// The fault for an errno value of an operation on the path: a missing name is 53 or 76, depending
// on whether its folder exists.
FaultNumber FaultFromErrno(int error, const std::string& native_path) noexcept;

// A last component that starts with "." counts as hidden, "." and ".." do not.
bool IsHiddenName(const std::string& native_path) noexcept;

// The folder of the shared object or program that holds this component, links resolved.
std::u16string ComponentFolder();

}  // namespace vandpublic

#endif
