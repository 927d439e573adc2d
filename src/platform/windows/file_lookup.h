// Look-ups of files by name or pattern, as the system matches them.
#ifndef VANDPUBLIC_PLATFORM_WINDOWS_FILE_LOOKUP_H
#define VANDPUBLIC_PLATFORM_WINDOWS_FILE_LOOKUP_H

#include <string>

namespace vandpublic {

// Whether a file of that name or pattern exists that is neither hidden nor the system's own.
// Patterns ("*" and "?") stand in the last part of the path only; a path that ends in a separator
// stands for any file there.
bool NormalFileExists(const std::wstring& path);

// The same for files and folders, hidden ones too. A path that ends in a separator stands for the
// folder itself.
bool FileOrFolderExists(const std::wstring& path);

}  // namespace vandpublic

#endif
