// FindFirstFile and its like.
#include "platform/windows/file_lookup.h"

#include <windows.h>

#include "platform/windows/windows_paths.h"

namespace vandpublic {
namespace {

class FileSearch {
 public:
  explicit FileSearch(const std::wstring& pattern)
      : search_(FindFirstFileW(pattern.c_str(), &found_)) {}
  ~FileSearch() {
    if (HasFound()) FindClose(search_);
  }
  FileSearch(const FileSearch&) = delete;
  FileSearch& operator=(const FileSearch&) = delete;

  bool HasFound() const noexcept { return search_ != INVALID_HANDLE_VALUE; }
  DWORD attributes() const noexcept { return found_.dwFileAttributes; }
  bool Next() noexcept { return FindNextFileW(search_, &found_) != 0; }

 private:
  WIN32_FIND_DATAW found_{};
  HANDLE search_;
};

// To the file system these stand for more than themselves, so a name that holds one could match.
bool IsIllegal(const std::wstring& path) {
  return path.find_first_of(L"<>\"|") != std::wstring::npos;
}

bool IsNormalFile(DWORD attributes) noexcept {
  return (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0 && !IsHidden(attributes);
}

}  // namespace

bool NormalFileExists(const std::wstring& path) {
  if (IsIllegal(path)) return false;
  const bool is_folder = path.empty() || IsSeparator(path.back());
  FileSearch search(is_folder ? path + L'*' : path);
  if (!search.HasFound()) return false;
  do {
    if (IsNormalFile(search.attributes())) return true;
  } while (search.Next());
  return false;
}

bool FileOrFolderExists(const std::wstring& path) {
  if (IsIllegal(path)) return false;
  if (path.find_first_of(L"*?") != std::wstring::npos) return FileSearch(path).HasFound();
  return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

}  // namespace vandpublic
