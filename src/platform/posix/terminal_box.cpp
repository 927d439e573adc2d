// Asks the user on the controlling terminal.
#include "platform/posix/terminal_box.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <string_view>

#include "platform/posix/descriptor.h"

namespace vandpublic {
namespace {

constexpr std::size_t kLongestAnswer = 16;  // "yes" and some blanks; the rest of a line is ignored

class Terminal {
 public:
  Terminal() : descriptor_(open("/dev/tty", O_RDWR | O_NOCTTY | O_CLOEXEC)) {}

  bool HasUser() const noexcept {
    return descriptor_.get() >= 0 && isatty(STDIN_FILENO) == 1 &&
           tcgetpgrp(descriptor_.get()) == getpgrp();
  }

  void Write(std::string_view text) const noexcept {
    while (!text.empty()) {
      const ssize_t count = write(descriptor_.get(), text.data(), text.size());
      if (count < 0 && errno == EINTR) continue;
      if (count <= 0) return;
      text.remove_prefix(static_cast<std::size_t>(count));
    }
  }

  // Up to and without the line end, which is CR where the host has the terminal in raw mode.
  std::string ReadLine() const {
    std::string line;
    for (;;) {
      char c = '\0';
      const ssize_t count = read(descriptor_.get(), &c, 1);
      if (count < 0 && errno == EINTR) continue;
      if (count <= 0) return {};
      if (c == '\n' || c == '\r') return line;
      if (line.size() < kLongestAnswer) line.push_back(c);
    }
  }

 private:
  Descriptor descriptor_;
};

bool SaysYes(std::string_view line) noexcept {
  const std::size_t first = line.find_first_not_of(" \t");
  if (first == std::string_view::npos) return false;
  line = line.substr(first, line.find_last_not_of(" \t") - first + 1);
  const auto is = [line](std::string_view lower, std::string_view upper) {
    if (line.size() != lower.size()) return false;
    for (std::size_t i = 0; i < line.size(); ++i) {
      if (line[i] != lower[i] && line[i] != upper[i]) return false;
    }
    return true;
  };
  return is("y", "Y") || is("yes", "YES");
}

}  // namespace

std::optional<bool> AskOnTerminal(const BoxRequest& box) {
  const Terminal terminal;
  if (!terminal.HasUser()) return std::nullopt;
  const char* const prompt = box.is_question ? " [y/N] " : "\nPress Enter to continue. ";
  terminal.Write("\n" + box.title + "\n" + box.text + prompt);
  const std::string line = terminal.ReadLine();
  return !box.is_question || SaysYes(line);
}

}  // namespace vandpublic
