// Files by their descriptors.
#include "platform/posix/ado/dbf/regular_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <thread>
#include <utility>

#include "platform/posix/ado/dbf/dbf_errors.h"

namespace vandpublic::ado {
namespace {

constexpr auto kLockPatience = std::chrono::seconds(2);
constexpr auto kLockPause = std::chrono::milliseconds(10);

struct flock ByteRangeLock(short type, std::uint64_t position, std::uint64_t size) {
  struct flock lock {};
  lock.l_type = type;
  lock.l_whence = SEEK_SET;
  lock.l_start = static_cast<off_t>(position);
  lock.l_len = static_cast<off_t>(size);
  return lock;
}

}  // namespace

RegularFile::RegularFile(std::string path, FileAccess access)
    : path_(std::move(path)),
      // Not blocking: a pipe of that name must not make us wait for its other end.
      descriptor_(open(path_.c_str(), (access == FileAccess::Read ? O_RDONLY : O_RDWR) | O_CLOEXEC |
                                          O_NOCTTY | O_NONBLOCK)) {
  if (descriptor_.get() < 0) RaiseDbfSystemError(errno, Name());
  struct stat status {};
  if (fstat(descriptor_.get(), &status) != 0) RaiseDbfSystemError(errno, Name());
  if (!S_ISREG(status.st_mode)) RaiseNotATable(Name(), "it is no regular file");
  // Read-only for everybody, the superuser included, as everywhere in this component.
  constexpr mode_t kAnyWrite = 0222;
  if (access == FileAccess::ReadAndWrite && (status.st_mode & kAnyWrite) == 0) {
    RaiseDbfSystemError(EACCES, Name());
  }
}

std::string_view RegularFile::Name() const noexcept {
  return std::string_view(path_).substr(path_.find_last_of('/') + 1);
}

std::uint64_t RegularFile::Size() const {
  struct stat status {};
  if (fstat(descriptor_.get(), &status) != 0) RaiseDbfSystemError(errno, Name());
  return static_cast<std::uint64_t>(status.st_size);
}

std::size_t RegularFile::Read(std::uint64_t position, std::span<char> bytes) const {
  std::size_t count = 0;
  while (count < bytes.size()) {
    const ssize_t got = pread(descriptor_.get(), bytes.data() + count, bytes.size() - count,
                              static_cast<off_t>(position + count));
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) RaiseDbfSystemError(errno, Name());
    if (got == 0) break;
    count += static_cast<std::size_t>(got);
  }
  return count;
}

std::string RegularFile::Read(std::uint64_t position, std::size_t size) const {
  std::string bytes(size, '\0');
  bytes.resize(Read(position, std::span<char>(bytes)));
  return bytes;
}

void RegularFile::Write(std::uint64_t position, std::string_view bytes) const {
  while (!bytes.empty()) {
    const ssize_t written =
        pwrite(descriptor_.get(), bytes.data(), bytes.size(), static_cast<off_t>(position));
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) RaiseDbfSystemError(errno, Name());
    bytes.remove_prefix(static_cast<std::size_t>(written));
    position += static_cast<std::uint64_t>(written);
  }
}

void RegularFile::Truncate(std::uint64_t size) const noexcept {
  while (ftruncate(descriptor_.get(), static_cast<off_t>(size)) != 0 && errno == EINTR) {
  }
}

// Locks of the open file, not of the process: those of the process would go as soon as any part of
// the host program closes this file.
void RegularFile::Lock(std::uint64_t position, std::uint64_t size) const {
  const auto give_up = std::chrono::steady_clock::now() + kLockPatience;
  struct flock lock = ByteRangeLock(F_WRLCK, position, size);
  while (fcntl(descriptor_.get(), F_OFD_SETLK, &lock) != 0) {
    if (errno != EAGAIN && errno != EACCES && errno != EINTR) RaiseDbfSystemError(errno, Name());
    if (std::chrono::steady_clock::now() >= give_up) {
      RaiseDbf(SourceError::TimedOut,
               "File is in use: '" + std::string(Name()) + "' is locked by another user.");
    }
    std::this_thread::sleep_for(kLockPause);
  }
}

void RegularFile::Unlock(std::uint64_t position, std::uint64_t size) const noexcept {
  struct flock lock = ByteRangeLock(F_UNLCK, position, size);
  fcntl(descriptor_.get(), F_OFD_SETLK, &lock);
}

}  // namespace vandpublic::ado
