// The scratch file's life: created, locked, filled, renamed or removed, unlocked. In this order,
// since whoever gets the lock next must see what became of the file.
#include "platform/posix/atomic_edit.h"

#include <fcntl.h>

#include <cerrno>
#include <climits>
#include <optional>
#include <utility>

#include "platform/posix/descriptor.h"
#include "platform/posix/whole_file.h"

namespace vandpublic {
namespace {

constexpr int kLockTries = 10000;  // with a pause of a millisecond after each
constexpr int kMostLinks = 40;
constexpr mode_t kAnyWrite = 0222;
constexpr mode_t kPermissions = 07777;
constexpr mode_t kNewFileMode = 0666;
constexpr int kSafeFlags = O_CLOEXEC | O_NOCTTY | O_NONBLOCK | O_NOFOLLOW;

struct FilePlace {
  std::string folder;
  std::string name;
};

FilePlace SplitPath(const std::string& path) {
  const std::size_t slash = path.find_last_of('/');
  if (slash == std::string::npos) return {".", path};
  return {path.substr(0, slash + 1), path.substr(slash + 1)};
}

// Folder and name of the file that the path means: links at its end are followed by hand, because
// the last one must be followed even when it leads to a file that is not there yet.
std::optional<FilePlace> ResolveLinks(FileCalls& calls, std::string path) {
  for (int links = 0; links <= kMostLinks; ++links) {
    FilePlace place = SplitPath(path);
    if (place.name.empty()) return std::nullopt;
    struct stat status {};
    const bool exists = calls.StatusAt(AT_FDCWD, path.c_str(), status) == 0;
    if (!exists && errno != ENOENT) return std::nullopt;
    if (!exists || !S_ISLNK(status.st_mode)) return place;

    std::string target(PATH_MAX, '\0');
    const ssize_t size = calls.ReadLink(path.c_str(), target.data(), target.size());
    if (size < 0) return std::nullopt;
    target.resize(static_cast<std::size_t>(size));
    path = target.starts_with('/') ? target : place.folder + '/' + target;
  }
  return std::nullopt;
}

struct OldFile {
  std::optional<struct stat> status;  // nothing when the file is missing
  std::string bytes;
};

// Nothing when the file must not be replaced.
std::optional<OldFile> LoadOldFile(FileCalls& calls, int folder, const std::string& name,
                                   std::size_t limit) {
  OldFile old;
  struct stat status {};
  if (calls.StatusAt(folder, name.c_str(), status) != 0) {
    return errno == ENOENT ? std::optional(old) : std::nullopt;
  }
  if (!S_ISREG(status.st_mode) || (status.st_mode & kAnyWrite) == 0) return std::nullopt;
  // Opened for writing too, only to learn whether that is allowed.
  const Descriptor file(calls.Open(folder, name.c_str(), O_RDWR | kSafeFlags, 0));
  if (!file || calls.Status(file.get(), status) != 0) return std::nullopt;
  auto bytes = ReadToEnd(calls, file.get(), limit);
  if (!bytes) return std::nullopt;
  old.status = status;
  old.bytes = *std::move(bytes);
  return old;
}

class ScratchFile {
 public:
  ScratchFile(FileCalls& calls, int folder, const std::string& target)
      : calls_(calls), folder_(folder), target_(target), name_('.' + target + ".vandpublic") {}

  ScratchFile(const ScratchFile&) = delete;
  ScratchFile& operator=(const ScratchFile&) = delete;

  ~ScratchFile() {
    if (!locked_) return;
    if (!renamed_) calls_.Remove(folder_, name_.c_str());
    // Said aloud: a child process that another thread has just forked may hold the file open.
    calls_.Unlock(file_.get());
  }

  bool Lock() {
    for (int i = 0; i < kLockTries; ++i) {
      const Try result = TryOnce();
      if (result != Try::Busy) return result == Try::Locked;
      calls_.Pause();
    }
    return false;
  }

  bool Fill(std::string_view bytes, const OldFile& old) {
    if (old.status && !TakeOver(*old.status)) return false;
    while (!bytes.empty()) {
      const ssize_t count = calls_.Write(file_.get(), bytes.data(), bytes.size());
      if (count <= 0) return false;
      bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return calls_.Sync(file_.get()) == 0;
  }

  bool ReplaceTarget() {
    if (calls_.Rename(folder_, name_.c_str(), target_.c_str()) != 0) return false;
    renamed_ = true;
    return true;
  }

 private:
  enum class Try { Locked, Busy, Failed };

  Try TryOnce() {
    const int flags = O_RDWR | kSafeFlags;
    file_ = Descriptor(calls_.Open(folder_, name_.c_str(), flags | O_CREAT | O_EXCL, kNewFileMode));
    const bool created = static_cast<bool>(file_);
    if (!created && errno != EEXIST) return Try::Failed;
    if (!created) file_ = Descriptor(calls_.Open(folder_, name_.c_str(), flags, 0));
    // Gone again, or another user's who has not yet given it the file's permissions.
    if (!file_) return errno == ENOENT || errno == EACCES ? Try::Busy : Try::Failed;
    if (calls_.TryLock(file_.get()) != 0) return LockFailed(created);

    // Locked, but perhaps too late: its owner may have renamed it to the target in the meantime.
    struct stat mine {};
    struct stat named {};
    const bool current = calls_.Status(file_.get(), mine) == 0 &&
                         calls_.StatusAt(folder_, name_.c_str(), named) == 0 &&
                         mine.st_dev == named.st_dev && mine.st_ino == named.st_ino;
    if (current && created) {
      locked_ = true;
      return Try::Locked;
    }
    // One that exists and can be locked has been left by a crash.
    const bool removed = !current || calls_.Remove(folder_, name_.c_str()) == 0;
    calls_.Unlock(file_.get());
    return removed ? Try::Busy : Try::Failed;
  }

  // Another holds the lock, or the file system has none: then nobody else can be at the file.
  Try LockFailed(bool created) {
    if (errno == EWOULDBLOCK) return Try::Busy;
    if (created) calls_.Remove(folder_, name_.c_str());
    return Try::Failed;
  }

  // Owner before permissions, because a change of owner takes some of those away.
  bool TakeOver(const struct stat& old) {
    struct stat mine {};
    if (calls_.Status(file_.get(), mine) != 0) return false;
    mode_t mode = old.st_mode & kPermissions;
    if (mine.st_uid != old.st_uid) calls_.ChangeOwner(file_.get(), old.st_uid, kSameGroup);
    if (mine.st_gid != old.st_gid && calls_.ChangeOwner(file_.get(), kSameUser, old.st_gid) != 0) {
      mode = (mode & ~mode_t{S_IRWXG}) | (mode & ((mode & S_IRWXO) << 3));
    }
    return calls_.ChangeMode(file_.get(), mode) == 0;
  }

  static constexpr uid_t kSameUser = static_cast<uid_t>(-1);
  static constexpr gid_t kSameGroup = static_cast<gid_t>(-1);

  FileCalls& calls_;
  int folder_;
  std::string target_;
  std::string name_;
  Descriptor file_;
  bool locked_ = false;
  bool renamed_ = false;
};

// Brings the rename to the disk. Its failure is no failure of the edit, which everybody can see.
void SyncFolder(FileCalls& calls, int folder) {
  const Descriptor open_folder(calls.Open(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC, 0));
  if (open_folder) calls.Sync(open_folder.get());
}

}  // namespace

bool EditFile(FileCalls& calls, const std::string& path, std::size_t limit, const FileEdit& edit) {
  const std::optional<FilePlace> place = ResolveLinks(calls, path);
  if (!place) return false;
  // Held open, so that all that follows happens in one folder even if that is renamed.
  const int folder_flags = O_PATH | O_DIRECTORY | O_CLOEXEC;
  const Descriptor folder(calls.Open(AT_FDCWD, place->folder.c_str(), folder_flags, 0));
  if (!folder) return false;

  ScratchFile scratch(calls, folder.get(), place->name);
  if (!scratch.Lock()) return false;
  const std::optional<OldFile> old = LoadOldFile(calls, folder.get(), place->name, limit);
  if (!old) return false;
  const std::string changed = edit(old->bytes);
  if (old->status && changed == old->bytes) return true;
  if (changed.size() > limit) return false;
  if (!scratch.Fill(changed, *old) || !scratch.ReplaceTarget()) return false;
  SyncFolder(calls, folder.get());
  return true;
}

}  // namespace vandpublic
