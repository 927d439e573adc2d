// What the tool needs of the system besides the component: its command line, the standard streams
// and files, all in bytes. One source per system implements it.
#ifndef VANDPUBLIC_CLI_SYSTEM_STREAMS_H
#define VANDPUBLIC_CLI_SYSTEM_STREAMS_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace vandpublic {

// Descriptors of the standard streams.
inline constexpr int kStandardInput = 0;
inline constexpr int kStandardOutput = 1;
inline constexpr int kStandardError = 2;

// While one lives, the three streams carry bytes as they are, a console shows them as UTF-8, a
// reader that goes away is an error of the write and not the end of this process, and no other file
// takes the place of a stream that the caller closed.
class ByteStreams {
 public:
  ByteStreams();
  ~ByteStreams();
  ByteStreams(const ByteStreams&) = delete;
  ByteStreams& operator=(const ByteStreams&) = delete;

 private:
  [[maybe_unused]] unsigned previous_;  // the console's code page, on Windows
};

// Reads what a descriptor has, up to `size` bytes, and waits where it has nothing yet, also where
// it is set not to block. 0 at the end, -1 with errno on an error.
std::ptrdiff_t ReadSome(int descriptor, char* bytes, std::size_t size);

// Writes some of the bytes, at least one; -1 with errno on an error.
std::ptrdiff_t WriteSome(int descriptor, const char* bytes, std::size_t size);

enum class FileUse {
  Read,    // a file that is there
  Create,  // for writing; none of that name may be there
  GoOn,    // for reading and writing, made where it is not there; EINVAL for what is no file
};

// A descriptor for the file, whose name is in UTF-8; -1 with errno on an error.
int OpenFile(const std::string& path, FileUse use);
void CloseFile(int descriptor);

// An open descriptor, closed at the end unless it is one of the standard streams.
class Stream {
 public:
  explicit Stream(int descriptor) noexcept : descriptor_(descriptor) {}
  Stream(const Stream&) = delete;
  Stream& operator=(const Stream&) = delete;
  ~Stream() {
    if (descriptor_ > kStandardError) CloseFile(descriptor_);
  }
  int get() const noexcept { return descriptor_; }

 private:
  int descriptor_;
};

// Ends the file there and goes on at its end; false with errno on an error.
bool CutFile(int descriptor, std::int64_t size);

bool IsTerminal(int descriptor);

// The words of the command line behind the program's name, in UTF-8; main() hands over what it got.
std::vector<std::string> CommandLineWords(int count, const char* const* words);

}  // namespace vandpublic

#endif
