// The system calls, repeated where a signal came between.
#include "platform/posix/file_calls.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <thread>

namespace vandpublic {
namespace {

template <class Call>
auto Repeated(Call call) {
  auto result = call();
  while (result < 0 && errno == EINTR)
    result = call();
  return result;
}

}  // namespace

int FileCalls::Open(int folder, const char* name, int flags, mode_t mode) {
  return Repeated([&] { return openat(folder, name, flags, mode); });
}

int FileCalls::Status(int file, struct stat& status) { return fstat(file, &status); }

int FileCalls::StatusAt(int folder, const char* name, struct stat& status) {
  return fstatat(folder, name, &status, AT_SYMLINK_NOFOLLOW);
}

int FileCalls::FollowedStatus(const char* path, struct stat& status) { return stat(path, &status); }

ssize_t FileCalls::ReadLink(const char* path, char* target, std::size_t size) {
  return readlink(path, target, size);
}

ssize_t FileCalls::Read(int file, char* bytes, std::size_t size) {
  return Repeated([&] { return read(file, bytes, size); });
}

ssize_t FileCalls::Write(int file, const char* bytes, std::size_t size) {
  return Repeated([&] { return write(file, bytes, size); });
}

int FileCalls::ChangeOwner(int file, uid_t user, gid_t group) { return fchown(file, user, group); }

int FileCalls::ChangeMode(int file, mode_t mode) { return fchmod(file, mode); }

int FileCalls::Sync(int file) {
  return Repeated([&] { return fsync(file); });
}

int FileCalls::TryLock(int file) {
  return Repeated([&] { return flock(file, LOCK_EX | LOCK_NB); });
}

int FileCalls::Unlock(int file) { return flock(file, LOCK_UN); }

int FileCalls::Rename(int folder, const char* from, const char* to) {
  return renameat(folder, from, folder, to);
}

int FileCalls::Remove(int folder, const char* name) { return unlinkat(folder, name, 0); }

void FileCalls::Pause() { std::this_thread::sleep_for(std::chrono::milliseconds(1)); }

std::shared_ptr<FileCalls> SystemFileCalls() { return std::make_shared<FileCalls>(); }

}  // namespace vandpublic
