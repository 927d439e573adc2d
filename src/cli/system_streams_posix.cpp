// Streams and command line on Linux.
#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

#include "cli/system_streams.h"

namespace vandpublic {
namespace {

constexpr mode_t kNewFileMode = 0666;

// Repeats a call that a signal has broken off, and waits where it would block.
template <class Call>
std::ptrdiff_t Persistently(int descriptor, short events, Call call) {
  for (;;) {
    const ssize_t count = call();
    if (count >= 0) return count;
    if (errno == EAGAIN) {
      pollfd wanted{descriptor, events, 0};
      poll(&wanted, 1, -1);
    } else if (errno != EINTR) {
      return -1;
    }
  }
}

// A standard stream that the caller closed is taken by a file that can only be used the wrong way:
// its use stays an error, and no file that is opened later gets its number and with it the tool's
// output.
void Occupy(int standard) {
  if (fcntl(standard, F_GETFD) >= 0) return;
  open("/dev/null", standard == kStandardInput ? O_WRONLY : O_RDONLY);  // the lowest free number
}

// Only regular files have an end to go on at; a device may even never end.
int RegularFile(int descriptor) {
  struct stat status {};
  if (descriptor < 0 || (fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode))) {
    return descriptor;
  }
  close(descriptor);
  errno = EINVAL;
  return -1;
}

}  // namespace

ByteStreams::ByteStreams() : previous_(0) {
  std::signal(SIGPIPE, SIG_IGN);
  for (const int standard : {kStandardInput, kStandardOutput, kStandardError})
    Occupy(standard);
}

// The tool ends right after it; nobody needs the signal back.
ByteStreams::~ByteStreams() = default;

std::ptrdiff_t ReadSome(int descriptor, char* bytes, std::size_t size) {
  return Persistently(descriptor, POLLIN, [&] { return read(descriptor, bytes, size); });
}

std::ptrdiff_t WriteSome(int descriptor, const char* bytes, std::size_t size) {
  return Persistently(descriptor, POLLOUT, [&] { return write(descriptor, bytes, size); });
}

int OpenFile(const std::string& path, FileUse use) {
  const char* const name = path.c_str();
  if (use == FileUse::Read) return open(name, O_RDONLY | O_CLOEXEC);
  constexpr int kWritten = O_RDWR | O_CREAT | O_CLOEXEC;
  if (use == FileUse::Create) return open(name, kWritten | O_EXCL, kNewFileMode);
  return RegularFile(open(name, kWritten, kNewFileMode));
}

void CloseFile(int descriptor) { close(descriptor); }

bool CutFile(int descriptor, std::int64_t size) {
  return ftruncate(descriptor, size) == 0 && lseek(descriptor, size, SEEK_SET) >= 0;
}

bool IsTerminal(int descriptor) { return isatty(descriptor) == 1; }

std::vector<std::string> CommandLineWords(int count, const char* const* words) {
  if (count < 1) return {};
  return {words + 1, words + count};
}

}  // namespace vandpublic
