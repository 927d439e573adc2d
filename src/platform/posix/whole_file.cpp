// Whole files, with the checks that keep a reader from blocking or filling the memory.
#include "platform/posix/whole_file.h"

#include <fcntl.h>

#include <algorithm>

#include "platform/posix/descriptor.h"

namespace vandpublic {

FileState::FileState(const struct stat& status) noexcept
    : device_(status.st_dev),
      number_(status.st_ino),
      size_(status.st_size),
      modified_seconds_(status.st_mtim.tv_sec),
      modified_nanoseconds_(status.st_mtim.tv_nsec),
      changed_seconds_(status.st_ctim.tv_sec),
      changed_nanoseconds_(status.st_ctim.tv_nsec) {}

std::optional<FileState> StateOfFile(FileCalls& calls, const std::string& path) {
  struct stat status {};
  if (calls.FollowedStatus(path.c_str(), status) != 0) return std::nullopt;
  if (!S_ISREG(status.st_mode)) return std::nullopt;
  return FileState(status);
}

std::optional<FileContent> ReadFile(FileCalls& calls, const std::string& path, std::size_t limit) {
  // Asked before the open, since opening a device can do something; and again after it, since
  // the name may mean another file by then.
  if (!StateOfFile(calls, path)) return std::nullopt;
  const int flags = O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK;
  const Descriptor file(calls.Open(AT_FDCWD, path.c_str(), flags, 0));
  struct stat status {};
  if (!file || calls.Status(file.get(), status) != 0) return std::nullopt;
  if (!S_ISREG(status.st_mode)) return std::nullopt;
  auto bytes = ReadToEnd(calls, file.get(), limit);
  if (!bytes) return std::nullopt;
  return FileContent{FileState(status), *std::move(bytes)};
}

std::optional<std::string> ReadToEnd(FileCalls& calls, int file, std::size_t limit) {
  struct stat status {};
  if (calls.Status(file, status) != 0) return std::nullopt;
  const auto expected = static_cast<std::size_t>(std::max<off_t>(status.st_size, 0));
  if (expected > limit) return std::nullopt;

  // One byte more than expected, so that the end is met without growing first.
  std::string bytes(expected + 1, '\0');
  std::size_t size = 0;
  while (true) {
    const ssize_t count = calls.Read(file, bytes.data() + size, bytes.size() - size);
    if (count < 0) return std::nullopt;
    if (count == 0) break;
    size += static_cast<std::size_t>(count);
    if (size > limit) return std::nullopt;
    if (size == bytes.size()) bytes.resize(std::min(2 * size, limit + 1));
  }
  bytes.resize(size);
  return bytes;
}

}  // namespace vandpublic
