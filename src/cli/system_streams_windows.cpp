// Streams and command line on Windows.
#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>
#include <windows.h>
// After windows.h, which it builds on.
#include <shellapi.h>

#include <algorithm>
#include <cstdio>
#include <memory>

#include "cli/system_streams.h"
#include "runtime/utf8.h"

namespace vandpublic {
namespace {

// What one call reads or writes at most.
constexpr std::size_t kMostBytes = std::size_t{1} << 20;

unsigned CallSize(std::size_t size) { return static_cast<unsigned>(std::min(size, kMostBytes)); }

struct LocalDeleter {
  void operator()(LPWSTR* words) const noexcept { LocalFree(words); }
};

}  // namespace

ByteStreams::ByteStreams() : previous_(GetConsoleOutputCP()) {
  for (const int descriptor : {kStandardInput, kStandardOutput, kStandardError})
    _setmode(descriptor, _O_BINARY);
  if (previous_ != 0) SetConsoleOutputCP(CP_UTF8);
}

ByteStreams::~ByteStreams() {
  if (previous_ != 0) SetConsoleOutputCP(previous_);
}

std::ptrdiff_t ReadSome(int descriptor, char* bytes, std::size_t size) {
  return _read(descriptor, bytes, CallSize(size));
}

std::ptrdiff_t WriteSome(int descriptor, const char* bytes, std::size_t size) {
  return _write(descriptor, bytes, CallSize(size));
}

int OpenFile(const std::string& path, FileUse use) {
  const std::u16string units = FromUtf8(path);
  const std::wstring wide(units.begin(), units.end());
  constexpr int kAlways = _O_BINARY | _O_NOINHERIT;
  constexpr int kNewFileMode = _S_IREAD | _S_IWRITE;
  switch (use) {
    case FileUse::Read:
      return _wopen(wide.c_str(), kAlways | _O_RDONLY);
    case FileUse::Create:
      return _wopen(wide.c_str(), kAlways | _O_RDWR | _O_CREAT | _O_EXCL, kNewFileMode);
    case FileUse::GoOn:
      return _wopen(wide.c_str(), kAlways | _O_RDWR | _O_CREAT, kNewFileMode);
  }
  return -1;
}

void CloseFile(int descriptor) { _close(descriptor); }

bool CutFile(int descriptor, std::int64_t size) {
  return _chsize_s(descriptor, size) == 0 && _lseeki64(descriptor, size, SEEK_SET) >= 0;
}

// A console; the null device, which the C library takes for a terminal as well, is none.
bool IsTerminal(int descriptor) {
  DWORD mode = 0;
  const auto handle = reinterpret_cast<HANDLE>(_get_osfhandle(descriptor));
  return GetConsoleMode(handle, &mode) != 0;
}

// What main() gets is in the ANSI page, in which not every word can be said.
std::vector<std::string> CommandLineWords(int, const char* const*) {
  int count = 0;
  const std::unique_ptr<LPWSTR[], LocalDeleter> words(
      CommandLineToArgvW(GetCommandLineW(), &count));
  std::vector<std::string> texts;
  for (int i = 1; words != nullptr && i < count; ++i) {
    const std::wstring word = words[static_cast<std::size_t>(i)];
    texts.push_back(ToUtf8(std::u16string(word.begin(), word.end())));
  }
  return texts;
}

}  // namespace vandpublic
