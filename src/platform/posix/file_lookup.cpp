// The look-up that the text-file members and the connection members share.
#include "platform/posix/file_lookup.h"

#include <dirent.h>
#include <sys/stat.h>

#include <memory>

#include "platform/posix/posix_paths.h"

namespace vandpublic {
namespace {

struct FolderCloser {
  void operator()(DIR* folder) const noexcept { closedir(folder); }
};

bool IsNormalFile(const std::string& path) {
  struct stat status {};
  return !IsHiddenName(path) && stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

bool IsFileOrFolder(const std::string& path) {
  struct stat status {};
  return stat(path.c_str(), &status) == 0 && (S_ISREG(status.st_mode) || S_ISDIR(status.st_mode));
}

// Whether the test holds for the path or, where its last part is a pattern, for an entry that fits.
bool AnyMatches(const std::string& native_path, bool (*test)(const std::string&)) {
  const std::size_t name_start = native_path.find_last_of('/') + 1;
  const std::string pattern = native_path.substr(name_start);
  if (pattern.find_first_of("*?") == std::string::npos) return test(native_path);

  const std::string prefix = native_path.substr(0, name_start);
  const std::unique_ptr<DIR, FolderCloser> folder(opendir(prefix.empty() ? "." : prefix.c_str()));
  if (!folder) return false;
  while (const dirent* entry = readdir(folder.get())) {
    if (MatchesPattern(entry->d_name, pattern) && test(prefix + entry->d_name)) return true;
  }
  return false;
}

// The length of the character at the front of a non-empty UTF-8 text; malformed bytes stand alone.
std::size_t CharacterLength(std::string_view text) {
  std::size_t length = 1;
  while (length < text.size() && (static_cast<unsigned char>(text[length]) & 0xC0) == 0x80) {
    ++length;
  }
  return length;
}

}  // namespace

bool MatchesPattern(std::string_view name, std::string_view pattern) noexcept {
  // After a "*" that fitted too little, matching goes on one character further behind it.
  std::string_view retry_name;
  std::string_view retry_pattern;
  bool can_retry = false;
  while (!name.empty()) {
    if (pattern.starts_with('*')) {
      pattern.remove_prefix(1);
      retry_name = name;
      retry_pattern = pattern;
      can_retry = true;
    } else if (pattern.starts_with('?')) {
      pattern.remove_prefix(1);
      name.remove_prefix(CharacterLength(name));
    } else if (!pattern.empty() && pattern.front() == name.front()) {
      pattern.remove_prefix(1);
      name.remove_prefix(1);
    } else if (can_retry) {
      retry_name.remove_prefix(CharacterLength(retry_name));
      name = retry_name;
      pattern = retry_pattern;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of('*') == std::string_view::npos;
}

bool NormalFileExists(const std::string& native_path) {
  const bool is_folder = native_path.empty() || native_path.ends_with('/');
  return AnyMatches(is_folder ? native_path + '*' : native_path, &IsNormalFile);
}

bool FileOrFolderExists(const std::string& native_path) {
  return AnyMatches(native_path, &IsFileOrFolder);
}

}  // namespace vandpublic
