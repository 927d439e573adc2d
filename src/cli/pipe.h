// The loop behind `vandpublic pipe`: lines in, lines out.
#ifndef VANDPUBLIC_CLI_PIPE_H
#define VANDPUBLIC_CLI_PIPE_H

#include <cstddef>
#include <string>
#include <string_view>

#include "cli/pipe_session.h"

namespace vandpublic {

inline constexpr std::size_t kLongestLine = std::size_t{64} * 1024 * 1024;

// Cuts what a file descriptor delivers into lines.
class LineReader {
 public:
  enum class Outcome { Line, TooLong, End, Failed };

  explicit LineReader(int descriptor, std::size_t longest_line = kLongestLine)
      : descriptor_(descriptor), longest_line_(longest_line) {}

  // The next line without its LF; it stands until the next call. The last line needs no LF. Of a
  // line that is too long nothing is kept. After Failed, errno tells why.
  Outcome Next(std::string_view& line);

 private:
  enum class Fill { Some, End, Failed };
  Fill ReadMore();
  Outcome DiscardLine();

  int descriptor_;
  std::size_t longest_line_;
  std::string buffer_;
  std::size_t start_ = 0;  // of the line that Next will return
  std::size_t end_ = 0;    // of what was read
};

// Replies to every line of `input` until its end, each reply written out before the next line is
// read. Returns 0 at the end of input, 2 when reading or writing fails, with the reason in errno.
int RunPipe(PipeSession& session, int input, int output);

// Writes everything, also to a descriptor that does not block; false with errno when it cannot.
bool WriteAll(int descriptor, std::string_view bytes);

}  // namespace vandpublic

#endif
