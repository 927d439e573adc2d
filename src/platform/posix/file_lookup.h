// Look-ups of files by name or pattern.
#ifndef VANDPUBLIC_PLATFORM_POSIX_FILE_LOOKUP_H
#define VANDPUBLIC_PLATFORM_POSIX_FILE_LOOKUP_H

#include <string>
#include <string_view>

namespace vandpublic {

// Whether the name fits the pattern: "*" stands for any run of characters, "?" for any one, in
// UTF-8. Case counts.
bool MatchesPattern(std::string_view name, std::string_view pattern) noexcept;

// Whether a regular file (links followed) of that name or pattern exists; hidden ones do not
// count. Patterns stand in the last part of the path only.
bool NormalFileExists(const std::string& native_path);

// The same for regular files and folders, hidden ones too. A path that ends in "/" stands for the
// folder itself.
bool FileOrFolderExists(const std::string& native_path);

}  // namespace vandpublic

#endif
