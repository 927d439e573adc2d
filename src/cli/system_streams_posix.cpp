// Streams and command line on Linux.
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

#include "cli/system_streams.h"

namespace vandpublic {
namespace {

// Repeats a call that a signal has broken off, and waits where it would block.
template <class Call>
std::ptrdiff_t Persistently(int descriptor, short events, Call call) {
  for (;;) {
    const ssize_t count = call();
    if (count >= 0) return count;
    if (errno == EAGAIN || errno == EWOULDBLOCK) {
      pollfd wanted{descriptor, events, 0};
      poll(&wanted, 1, -1);
    } else if (errno != EINTR) {
      return -1;
    }
  }
}

}  // namespace

ByteStreams::ByteStreams() : previous_(0) { std::signal(SIGPIPE, SIG_IGN); }

// The tool ends right after it; nobody needs the signal back.
ByteStreams::~ByteStreams() = default;

std::ptrdiff_t ReadSome(int descriptor, char* bytes, std::size_t size) {
  return Persistently(descriptor, POLLIN, [&] { return read(descriptor, bytes, size); });
}

std::ptrdiff_t WriteSome(int descriptor, const char* bytes, std::size_t size) {
  return Persistently(descriptor, POLLOUT, [&] { return write(descriptor, bytes, size); });
}

int OpenFile(const std::string& path, FileUse use) {
  constexpr mode_t kNewFileMode = 0666;
  switch (use) {
    case FileUse::Read:
      return open(path.c_str(), O_RDONLY | O_CLOEXEC);
    case FileUse::Create:
      return open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_EXCL, kNewFileMode);
    case FileUse::GoOn:
      return open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, kNewFileMode);
  }
  return -1;
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
