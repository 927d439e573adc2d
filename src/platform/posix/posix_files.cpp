// Files through the system calls themselves: no buffer, so a failing write is seen at once.
#include "platform/posix/posix_files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <optional>
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

// Reads until the buffer is full or the file ends. The bytes read; nothing, with errno set, on an
// error.
std::optional<std::size_t> Fill(int file, void* buffer, std::size_t size) {
  auto* const bytes = static_cast<char*>(buffer);
  std::size_t filled = 0;
  while (filled < size) {
    const ssize_t count = read(file, bytes + filled, size - filled);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return std::nullopt;
    if (count == 0) break;
    filled += static_cast<std::size_t>(count);
  }
  return filled;
}

// An ordinary file, opened for reading.
Descriptor OpenForReading(const std::string& native, std::int64_t& size) {
  Descriptor file(open(native.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK));
  if (file.get() < 0) RaiseFault(FaultFromErrno(errno, native));
  struct stat status {};
  if (fstat(file.get(), &status) != 0) RaiseFault(FaultFromErrno(errno, native));
  if (!S_ISREG(status.st_mode)) RaiseFault(FaultNumber::PathFileAccessError);
  size = status.st_size;
  return file;
}

class PosixInputFile final : public InputFile {
 public:
  PosixInputFile(Descriptor descriptor, std::string path)
      : descriptor_(std::move(descriptor)), path_(std::move(path)) {}

  std::int64_t Size() override {
    struct stat status {};
    if (fstat(descriptor_.get(), &status) != 0) RaiseFault(FaultFromErrno(errno, path_));
    return status.st_size;
  }

  std::size_t Read(std::span<Byte> bytes) override {
    const auto count = Fill(descriptor_.get(), bytes.data(), bytes.size());
    if (!count) RaiseFault(FaultFromErrno(errno, path_));
    return *count;
  }

 private:
  Descriptor descriptor_;
  std::string path_;
};

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
  std::int64_t size = 0;
  Descriptor file = OpenForReading(native, size);
  // Up to the end that the file had when it was opened; somebody may cut it meanwhile.
  std::string bytes(static_cast<std::size_t>(size), '\0');
  if (const auto count = Fill(file.get(), bytes.data(), bytes.size())) {
    bytes.resize(*count);
    return bytes;
  }
  const int error = errno;
  file.Release();  // given up, on purpose
  RaiseFault(FaultFromErrno(error, native));
}

std::unique_ptr<InputFile> PosixFiles::OpenToRead(std::u16string_view path) {
  const std::string native = NameToOpen(path);
  std::int64_t size = 0;
  return std::make_unique<PosixInputFile>(OpenForReading(native, size), native);
}

void PosixFiles::DeleteIfThere(std::u16string_view path) {
  const std::string native = NameToOpen(path);
  struct stat status {};
  if (stat(native.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return;
  if ((status.st_mode & kAnyWrite) == 0) RaiseFault(FaultNumber::PermissionDenied);
  if (unlink(native.c_str()) != 0) RaiseFault(FaultFromErrno(errno, native));
}

bool PosixFiles::FindsNormalFile(std::u16string_view path) {
  return NormalFileExists(NativePath(path));
}

bool PosixFiles::FindsFileOrFolder(std::u16string_view path) {
  return FileOrFolderExists(NativePath(path));
}

}  // namespace vandpublic
