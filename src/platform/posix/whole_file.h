// Reads a file in one piece, and tells whether it has changed since.
#ifndef VANDPUBLIC_PLATFORM_POSIX_WHOLE_FILE_H
#define VANDPUBLIC_PLATFORM_POSIX_WHOLE_FILE_H

#include <sys/stat.h>

#include <cstddef>
#include <optional>
#include <string>

#include "platform/posix/file_calls.h"

namespace vandpublic {

// Which file it is and in which state. The state is not proof alone: a change within the same tick
// of the file system's clock as the one before leaves all of it equal (see IsSettled).
struct FileState {
  explicit FileState(const struct stat& status) noexcept;
  bool operator==(const FileState& other) const noexcept = default;

  // Whether the last change is old enough at this time (seconds since 1970) that a later one has
  // another time stamp; file systems count in steps of up to two seconds.
  bool IsSettled(time_t now) const noexcept { return now > changed_seconds_ + 2; }

 private:
  dev_t device_;
  ino_t number_;
  off_t size_;
  time_t modified_seconds_;
  long modified_nanoseconds_;
  time_t changed_seconds_;
  long changed_nanoseconds_;
};

struct FileContent {
  FileState state;
  std::string bytes;
};

// The state of the file at this path, links followed; nothing when there is no regular file.
std::optional<FileState> StateOfFile(FileCalls& calls, const std::string& path);

// The file at this path, links followed; nothing when it is missing, cannot be read, is larger
// than the limit or is no regular file. Never waits for a pipe or a device, nor opens one.
std::optional<FileContent> ReadFile(FileCalls& calls, const std::string& path, std::size_t limit);

// From an open regular file's place to its end; nothing on a failure or past the limit.
std::optional<std::string> ReadToEnd(FileCalls& calls, int file, std::size_t limit);

}  // namespace vandpublic

#endif
