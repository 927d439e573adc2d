// Files through the system calls themselves: no buffer, so a failing write is seen at once.
#include "platform/posix/posix_files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <utility>

#include "platform/posix/posix_paths.h"
#include "runtime/errors.h"

namespace vandpublic {
namespace {

constexpr mode_t kNewFileMode = 0666;
constexpr mode_t kAnyWrite = 0222;

class Descriptor {
 public:
  explicit Descriptor(int value) : value_(value) {}
  Descriptor(Descriptor&& other) noexcept : value_(std::exchange(other.value_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(value_, other.value_);
    return *this;
  }
  ~Descriptor() {
    if (value_ >= 0) close(value_);
  }

  int get() const noexcept { return value_; }
  int Release() noexcept { return std::exchange(value_, -1); }

 private:
  int value_;
};

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

}  // namespace

std::unique_ptr<OutputFile> PosixFiles::Open(std::u16string_view path, OpenMode mode) {
  const std::string native = NativePath(path);
  if (native.empty()) RaiseFault(FaultNumber::PathFileAccessError);
  if (native.find_first_of("*?") != std::string::npos) RaiseFault(FaultNumber::BadFileName);

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

}  // namespace vandpublic
