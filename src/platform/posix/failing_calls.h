// For tests: system calls of which one, or all from one on, fail.
#ifndef VANDPUBLIC_PLATFORM_POSIX_FAILING_CALLS_H
#define VANDPUBLIC_PLATFORM_POSIX_FAILING_CALLS_H

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <functional>
#include <limits>

#include "platform/posix/file_calls.h"

namespace vandpublic {

class FailingCalls : public FileCalls {
 public:
  // Counted from 1 over all calls. Pauses neither count nor take time.
  int fail_from = std::numeric_limits<int>::max();
  int fail_to = std::numeric_limits<int>::max();
  int error = EIO;
  std::function<void()> at_failure = [] {};
  int calls = 0;
  int pauses = 0;
  std::size_t most_bytes = std::numeric_limits<std::size_t>::max();  // of one read or write

  int Open(int folder, const char* name, int flags, mode_t mode) override {
    return Fails() ? -1 : FileCalls::Open(folder, name, flags, mode);
  }
  int Status(int file, struct stat& status) override {
    return Fails() ? -1 : FileCalls::Status(file, status);
  }
  int StatusAt(int folder, const char* name, struct stat& status) override {
    return Fails() ? -1 : FileCalls::StatusAt(folder, name, status);
  }
  int FollowedStatus(const char* path, struct stat& status) override {
    return Fails() ? -1 : FileCalls::FollowedStatus(path, status);
  }
  ssize_t ReadLink(const char* path, char* target, std::size_t size) override {
    return Fails() ? -1 : FileCalls::ReadLink(path, target, size);
  }
  ssize_t Read(int file, char* bytes, std::size_t size) override {
    return Fails() ? -1 : FileCalls::Read(file, bytes, std::min(size, most_bytes));
  }
  ssize_t Write(int file, const char* bytes, std::size_t size) override {
    return Fails() ? -1 : FileCalls::Write(file, bytes, std::min(size, most_bytes));
  }
  int ChangeOwner(int file, uid_t user, gid_t group) override {
    return Fails() ? -1 : FileCalls::ChangeOwner(file, user, group);
  }
  int ChangeMode(int file, mode_t mode) override {
    return Fails() ? -1 : FileCalls::ChangeMode(file, mode);
  }
  int Sync(int file) override { return Fails() ? -1 : FileCalls::Sync(file); }
  int TryLock(int file) override { return Fails() ? -1 : FileCalls::TryLock(file); }
  int Unlock(int file) override { return Fails() ? -1 : FileCalls::Unlock(file); }
  int Rename(int folder, const char* from, const char* to) override {
    return Fails() ? -1 : FileCalls::Rename(folder, from, to);
  }
  int Remove(int folder, const char* name) override {
    return Fails() ? -1 : FileCalls::Remove(folder, name);
  }
  void Pause() override { ++pauses; }

 private:
  bool Fails() {
    ++calls;
    if (calls < fail_from || calls > fail_to) return false;
    at_failure();
    errno = error;
    return true;
  }
};

}  // namespace vandpublic

#endif
