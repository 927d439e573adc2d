// For tests: work in a child process.
#ifndef VANDPUBLIC_PLATFORM_POSIX_TEST_CHILD_H
#define VANDPUBLIC_PLATFORM_POSIX_TEST_CHILD_H

#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>

namespace vandpublic {

// The child ends with the work, which says whether it went well.
inline pid_t InChild(const std::function<bool()>& work) {
  const pid_t child = fork();
  if (child == 0) _exit(work() ? 0 : 1);
  return child;
}

// Waits for the child's end.
inline bool Succeeded(pid_t child) {
  int status = 0;
  return waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

}  // namespace vandpublic

#endif
