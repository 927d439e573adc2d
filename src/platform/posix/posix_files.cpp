// Files through the system calls themselves: no buffer, so a failing write is seen at once.
#include "platform/posix/posix_files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <utility>

#include "platform/posix/descriptor.h"
#include "platform/posix/file_lookup.h"
#include "platform/posix/posix_paths.h"
#include "runtime/errors.h"

namespace vandpublic {
namespace {

constexpr mode_t kNewFileMode = 0666;
constexpr mode_t kAnyWrite = 0222;

class PosixOutputFile final : public OutputFile {
 public:
  PosixOutputFile(Descriptor descriptor, std::string path)
      : descriptor_(std::move(descriptor)), path_(std::move(path)) {}

  void Write(std::string_view bytes) override {
    while (!bytes.empty()) {
      const ssize_t written = write(descriptor_.get(), bytes.data(), bytes.size());
      if (written < 0 && errno == EINTR) continue;
      if (written < 0) RaiseFault(FaultFromErrno(errno, path_));
      bytes.remove_prefix(static_cast<std::size_t>(written));
    }
  }

  void Close() override {
    // An interrupted close has closed the descriptor all the same.
    if (close(descriptor_.Release()) != 0 && errno != EINTR) {
      RaiseFault(FaultFromErrno(errno, path_));
    }
  }

  void GiveUp() noexcept override { descriptor_.Release(); }

 private:
  Descriptor descriptor_;
  std::string path_;
};

// Refuses what open() lets pass: read-only files, and what is no file or device.
void CheckOpened(const Descriptor& file, bool existed, OpenMode mode, const std::string& path) {
  struct stat status {};
  if (fstat(file.get(), &status) != 0) RaiseFault(FaultFromErrno(errno, path));
  const bool regular = S_ISREG(status.st_mode);
  if (!regular && !S_ISCHR(status.st_mode)) RaiseFault(FaultNumber::PathFileAccessError);
  if (regular && (status.st_mode & kAnyWrite) == 0) RaiseFault(FaultNumber::PathFileAccessError);
  if (existed && mode == OpenMode::Output && IsHiddenName(path)) {
    RaiseFault(FaultNumber::PathFileAccessError);
  }
  if (!regular || mode != OpenMode::Output) return;
  if (ftruncate(file.get(), 0) != 0) RaiseFault(FaultFromErrno(errno, path));
}

std::string NameToOpen(std::u16string_view path) {
  std::string native = NativePath(path);
  if (native.empty()) RaiseFault(FaultNumber::PathFileAccessError);
  if (native.find_first_of("*?") != std::string::npos) RaiseFault(FaultNumber::BadFileName);
  return native;
}

// Reads up to the end that the file had when it was opened. False, with errno set, on an error.
bool ReadWhole(int file, std::size_t size, std::string& bytes) {
  bytes.resize(size);
  std::size_t filled = 0;
  while (filled < size) {
    const ssize_t count = read(file, bytes.data() + filled, size - filled);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return false;
    if (count == 0) break;  // somebody cut the file meanwhile
    filled += static_cast<std::size_t>(count);
  }
  bytes.resize(filled);
  return true;
}

}  // namespace

std::unique_ptr<OutputFile> PosixFiles::Open(std::u16string_view path, OpenMode mode) {
  const std::string native = NameToOpen(path);

  // Not truncated by open itself: what must not be emptied is only known afterwards.
  const int flags =
      O_WRONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK | (mode == OpenMode::Append ? O_APPEND : 0);
  bool existed = true;
  Descriptor file(open(native.c_str(), flags));
  if (file.get() < 0 && errno == ENOENT) {
    existed = false;
    file = Descriptor(open(native.c_str(), flags | O_CREAT, kNewFileMode));
  }
  if (file.get() < 0 && errno == ENXIO) RaiseFault(FaultNumber::PathFileAccessError);
  if (file.get() < 0) RaiseFault(FaultFromErrno(errno, native));
  CheckOpened(file, existed, mode, native);
  return std::make_unique<PosixOutputFile>(std::move(file), native);
}

std::string PosixFiles::ReadAll(std::u16string_view path) {
  const std::string native = NameToOpen(path);
  Descriptor file(open(native.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK));
  if (file.get() < 0) RaiseFault(FaultFromErrno(errno, native));
  struct stat status {};
  if (fstat(file.get(), &status) != 0) RaiseFault(FaultFromErrno(errno, native));
  if (!S_ISREG(status.st_mode)) RaiseFault(FaultNumber::PathFileAccessError);

  std::string bytes;
  if (ReadWhole(file.get(), static_cast<std::size_t>(status.st_size), bytes)) return bytes;
  const int error = errno;
  file.Release();  // given up, on purpose
  RaiseFault(FaultFromErrno(error, native));
}

bool PosixFiles::FindsNormalFile(std::u16string_view path) {
  return NormalFileExists(NativePath(path));
}

}  // namespace vandpublic
