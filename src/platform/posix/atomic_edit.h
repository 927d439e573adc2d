// Edits a whole file so that nobody, and no crash, ever sees half of an edit.
//
// The new text is written to a scratch file in the same folder, ".NAME.vandpublic", brought to the
// disk and renamed over the old file. The scratch file is also the lock: whoever creates it and
// holds it locked edits, everybody else, in this process or another, waits. So there is no second
// file to lock or to leave behind, a missing file can be locked like any other, two files of one
// folder do not wait for each other, and nobody who may not write in the folder can keep the
// lock. A crash drops the lock and leaves at most the scratch file, which the next edit removes
// (unless it belongs to another user and may not be opened: then edits fail until it is removed).
//
// What an edit does not keep: hard links (the other names keep the old text), and access lists and
// attributes beyond owner, group and permissions.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ATOMIC_EDIT_H
#define VANDPUBLIC_PLATFORM_POSIX_ATOMIC_EDIT_H

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "platform/posix/file_calls.h"

namespace vandpublic {

// From the file's bytes to its new ones; called once at most, under the lock.
using FileEdit = std::function<std::string(std::string_view)>;

// True when the file now holds the new bytes. A missing file has no bytes and is created, readable
// and writable as the process's mask allows; symbolic links are followed and kept. Bytes that come
// back unchanged are not written.
//
// False, and the file is as it was: the folder is missing or cannot be written to; the file is no
// regular file, is larger than the limit before or after, may not be read and written, or has no
// write permission for anybody (then it is read-only for the superuser, too); its name has more
// than 243 bytes; a call failed, as on a full disk; the lock was not free for some ten seconds.
//
// Owner and group are kept where the process may set them. Where it may not set the group, the
// new group gets no more permissions than everybody has.
bool EditFile(FileCalls& calls, const std::string& path, std::size_t limit, const FileEdit& edit);

}  // namespace vandpublic

#endif
