// The system calls of the settings files, each replaceable, so that a test can let any of them
// fail.
#ifndef VANDPUBLIC_PLATFORM_POSIX_FILE_CALLS_H
#define VANDPUBLIC_PLATFORM_POSIX_FILE_CALLS_H

#include <sys/stat.h>
#include <sys/types.h>

#include <cstddef>
#include <memory>

namespace vandpublic {

// Each does what the call of its name does, and tells a failure through its result and errno as
// the call does. An interrupted call is repeated. A folder is a descriptor or AT_FDCWD.
class FileCalls {
 public:
  virtual ~FileCalls() = default;

  virtual int Open(int folder, const char* name, int flags, mode_t mode);      // openat
  virtual int Status(int file, struct stat& status);                           // fstat
  virtual int StatusAt(int folder, const char* name, struct stat& status);     // lstat
  virtual int FollowedStatus(const char* path, struct stat& status);           // stat
  virtual ssize_t ReadLink(const char* path, char* target, std::size_t size);  // readlink
  virtual ssize_t Read(int file, char* bytes, std::size_t size);
  virtual ssize_t Write(int file, const char* bytes, std::size_t size);
  virtual int ChangeOwner(int file, uid_t user, gid_t group);  // fchown
  virtual int ChangeMode(int file, mode_t mode);               // fchmod
  virtual int Sync(int file);                                  // fsync
  virtual int TryLock(int file);                               // flock, exclusive, without waiting
  virtual int Unlock(int file);
  virtual int Rename(int folder, const char* from, const char* to);
  virtual int Remove(int folder, const char* name);  // unlinkat
  virtual void Pause();                              // a millisecond, between two tries of a lock
};

// The calls themselves.
std::shared_ptr<FileCalls> SystemFileCalls();

}  // namespace vandpublic

#endif
