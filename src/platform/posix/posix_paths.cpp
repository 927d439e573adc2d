// Paths, error numbers and the component's own folder.
#include "platform/posix/posix_paths.h"

#include <link.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <memory>

#include "runtime/utf8.h"

namespace vandpublic {
namespace {

std::string_view LastComponent(std::string_view path) {
  return path.substr(path.find_last_of('/') + 1);  // npos + 1 is 0: the whole path
}

bool FolderExists(const std::string& path) {
  const std::size_t slash = path.find_last_of('/');
  if (slash == std::string::npos) return true;  // the current folder
  const std::string folder = path.substr(0, std::max<std::size_t>(slash, 1));
  struct stat status {};
  return stat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

// Finds the loaded object whose segments hold the address of one of our own functions.
struct ObjectSearch {
  ElfW(Addr) address;
  std::string name;  // empty for the main program
};

int VisitObject(dl_phdr_info* info, std::size_t, void* data) {
  auto& search = *static_cast<ObjectSearch*>(data);
  for (int i = 0; i < info->dlpi_phnum; ++i) {
    const auto& segment = info->dlpi_phdr[i];
    const ElfW(Addr) start = info->dlpi_addr + segment.p_vaddr;
    const bool inside = search.address >= start && search.address - start < segment.p_memsz;
    if (segment.p_type != PT_LOAD || !inside) continue;
    search.name = info->dlpi_name;
    return 1;
  }
  return 0;
}

struct FreeDeleter {
  void operator()(char* text) const noexcept { std::free(text); }
};

}  // namespace

std::string NativePath(std::u16string_view path) {
  if (path.find(u'\0') != std::u16string_view::npos) RaiseFault(FaultNumber::BadFileName);
  std::string native = ToUtf8(path);
  std::replace(native.begin(), native.end(), '\\', '/');
  return native;
}

FaultNumber FaultFromErrno(int error, const std::string& native_path) noexcept {
  switch (error) {
    case ENOENT:
      return FolderExists(native_path) ? FaultNumber::FileNotFound : FaultNumber::PathNotFound;
    case ENOTDIR:
      return FaultNumber::PathNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
      return FaultNumber::PathFileAccessError;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return FaultNumber::DiskFull;
    case EMFILE:
    case ENFILE:
      return FaultNumber::TooManyFiles;
    case EBUSY:
    case ETXTBSY:
    case EAGAIN:
      return FaultNumber::PermissionDenied;
    case ENAMETOOLONG:
    case EINVAL:
      return FaultNumber::BadFileName;
    case ENOMEM:
      return FaultNumber::OutOfMemory;
    default:
      return FaultNumber::DeviceIoError;
  }
}

bool IsHiddenName(const std::string& native_path) noexcept {
  const std::string_view name = LastComponent(native_path);
  return name.starts_with('.') && name != "." && name != "..";
}

std::u16string ComponentFolder() {
  ObjectSearch search{reinterpret_cast<ElfW(Addr)>(&ComponentFolder), {}};
  dl_iterate_phdr(VisitObject, &search);
  const char* const file = search.name.empty() ? "/proc/self/exe" : search.name.c_str();
  const std::unique_ptr<char, FreeDeleter> resolved(realpath(file, nullptr));
  if (!resolved) return u".";
  const std::string_view path = resolved.get();
  const std::size_t slash = path.find_last_of('/');
  return FromUtf8(path.substr(0, std::max<std::size_t>(slash, 1)));
}

}  // namespace vandpublic
