// Runs another program and waits for it.
#ifndef VANDPUBLIC_PLATFORM_POSIX_CHILD_PROCESS_H
#define VANDPUBLIC_PLATFORM_POSIX_CHILD_PROCESS_H

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vandpublic {

// "NAME=value" each.
using Environment = std::vector<std::string>;

// A copy of the calling process's own.
Environment ProcessEnvironment();

// The value of a variable; empty when it is not set.
std::string_view Variable(const Environment& environment, std::string_view name) noexcept;

// Sets a variable, in place of its old value if it has one.
void SetVariable(Environment& environment, std::string_view name, std::string_view value);

// The first executable file of that name in the absolute folders of the environment's PATH. Empty
// when there is none. Relative folders are left out: the current folder is the user's data.
std::string FindProgram(const Environment& environment, std::string_view name);

struct ProgramEnd {
  enum class Kind {
    kNotStarted,  // no such program, arguments too long, no descriptor left
    kExited,
    kKilled,   // by a signal
    kUnknown,  // it ran and ended, but the host lets the system discard what became of it
  };
  Kind kind;
  int status;          // the exit status, when kind is kExited
  std::string output;  // the first bytes that it wrote to standard output, at most 64
};

// Starts the program with these arguments (the first one is its own name) and waits until it has
// ended. No shell takes part. The program reads nothing, its messages go nowhere, it inherits no
// descriptors and the default signal actions. Raises nothing but std::bad_alloc.
ProgramEnd RunProgram(const std::string& path, const std::vector<std::string>& arguments,
                      const Environment& environment);

}  // namespace vandpublic

#endif
