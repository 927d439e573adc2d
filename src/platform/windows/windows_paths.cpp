// The table of system errors.
#include "platform/windows/windows_paths.h"

#include "platform/windows/wide_text.h"

namespace vandpublic {
namespace {

struct KnownError {
  DWORD error;
  FaultNumber fault;
};

constexpr KnownError kKnownErrors[] = {
    {ERROR_DIRECTORY, FaultNumber::PathNotFound},
    {ERROR_INVALID_DRIVE, FaultNumber::PathNotFound},
    {ERROR_BAD_NETPATH, FaultNumber::PathNotFound},
    {ERROR_BAD_NET_NAME, FaultNumber::PathNotFound},
    {ERROR_ACCESS_DENIED, FaultNumber::PathFileAccessError},
    {ERROR_WRITE_PROTECT, FaultNumber::PathFileAccessError},
    {ERROR_NETWORK_ACCESS_DENIED, FaultNumber::PathFileAccessError},
    {ERROR_SHARING_VIOLATION, FaultNumber::PermissionDenied},
    {ERROR_LOCK_VIOLATION, FaultNumber::PermissionDenied},
    {ERROR_USER_MAPPED_FILE, FaultNumber::PermissionDenied},
    {ERROR_INVALID_NAME, FaultNumber::BadFileName},
    {ERROR_BAD_PATHNAME, FaultNumber::BadFileName},
    {ERROR_FILENAME_EXCED_RANGE, FaultNumber::BadFileName},
    {ERROR_TOO_MANY_OPEN_FILES, FaultNumber::TooManyFiles},
    {ERROR_DISK_FULL, FaultNumber::DiskFull},
    {ERROR_HANDLE_DISK_FULL, FaultNumber::DiskFull},
    {ERROR_FILE_TOO_LARGE, FaultNumber::DiskFull},
    {ERROR_NOT_ENOUGH_MEMORY, FaultNumber::OutOfMemory},
    {ERROR_OUTOFMEMORY, FaultNumber::OutOfMemory},
};

bool IsFolder(const std::wstring& path) noexcept {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

// The separator stays: without it, "C:" would be the current folder of the drive.
bool ParentExists(const std::wstring& path) {
  const std::size_t separator = path.find_last_of(L"\\/");
  return separator == std::wstring::npos || IsFolder(path.substr(0, separator + 1));
}

}  // namespace

std::wstring NativePath(std::u16string_view path) {
  if (path.find(u'\0') != std::u16string_view::npos) RaiseFault(FaultNumber::BadFileName);
  return Wide(path);
}

FaultNumber FaultFromSystemError(DWORD error, const std::wstring& path) {
  // A folder's path with a separator at its end is told in several ways.
  if (IsFolder(path)) return FaultNumber::PathFileAccessError;
  if (error == ERROR_PATH_NOT_FOUND || error == ERROR_FILE_NOT_FOUND) {
    // A path that is too long is told as one that is not there.
    if (path.size() >= MAX_PATH) return FaultNumber::BadFileName;
    return ParentExists(path) ? FaultNumber::FileNotFound : FaultNumber::PathNotFound;
  }
  for (const KnownError& known : kKnownErrors) {
    if (known.error == error) return known.fault;
  }
  return FaultNumber::DeviceIoError;
}

bool IsHidden(DWORD attributes) noexcept {
  return (attributes & (FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM)) != 0;
}

bool IsSeparator(wchar_t unit) noexcept { return unit == L'\\' || unit == L'/'; }

}  // namespace vandpublic
