// Starts programs by posix_spawn, which neither copies the host's memory nor runs its fork
// handlers, and waits for them without touching the host's signal handling.
#include "platform/posix/child_process.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>

#include "platform/posix/descriptor.h"

namespace vandpublic {
namespace {

constexpr std::size_t kLongestOutput = 64;

class SpawnActions {
 public:
  SpawnActions() { posix_spawn_file_actions_init(&actions_); }
  ~SpawnActions() { posix_spawn_file_actions_destroy(&actions_); }
  SpawnActions(const SpawnActions&) = delete;
  SpawnActions& operator=(const SpawnActions&) = delete;

  // Standard output goes to `output`, everything else nowhere.
  const posix_spawn_file_actions_t* Redirect(int output) {
    // Output first: where the host has closed its own standard streams, `output` is one of them.
    posix_spawn_file_actions_adddup2(&actions_, output, STDOUT_FILENO);
    posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDWR, 0);
    posix_spawn_file_actions_adddup2(&actions_, STDIN_FILENO, STDERR_FILENO);
    posix_spawn_file_actions_addclosefrom_np(&actions_, STDERR_FILENO + 1);
    return &actions_;
  }

 private:
  posix_spawn_file_actions_t actions_;
};

class SpawnAttributes {
 public:
  SpawnAttributes() { posix_spawnattr_init(&attributes_); }
  ~SpawnAttributes() { posix_spawnattr_destroy(&attributes_); }
  SpawnAttributes(const SpawnAttributes&) = delete;
  SpawnAttributes& operator=(const SpawnAttributes&) = delete;

  // A host that ignores or blocks signals must not make the program do so too.
  const posix_spawnattr_t* DefaultSignals() {
    sigset_t signals;
    sigemptyset(&signals);
    posix_spawnattr_setsigmask(&attributes_, &signals);
    for (const int signal : {SIGCHLD, SIGHUP, SIGINT, SIGPIPE, SIGQUIT, SIGTERM}) {
      sigaddset(&signals, signal);
    }
    posix_spawnattr_setsigdefault(&attributes_, &signals);
    posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
    return &attributes_;
  }

 private:
  posix_spawnattr_t attributes_;
};

std::string ReadStart(int file) {
  std::array<char, kLongestOutput> bytes{};
  const ssize_t count = pread(file, bytes.data(), bytes.size(), 0);
  return std::string(bytes.data(), static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
}

// The form that the system takes: pointers to writable strings, then null.
std::vector<char*> Pointers(std::vector<std::string>& strings) {
  std::vector<char*> pointers;
  pointers.reserve(strings.size() + 1);
  for (std::string& string : strings)
    pointers.push_back(string.data());
  pointers.push_back(nullptr);
  return pointers;
}

bool IsExecutableFile(const std::string& path) {
  struct stat status {};
  return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
         access(path.c_str(), X_OK) == 0;
}

std::optional<pid_t> Spawn(const std::string& path, std::vector<std::string> arguments,
                           Environment environment, int output) {
  SpawnActions actions;
  SpawnAttributes attributes;
  pid_t child = 0;
  const int error =
      posix_spawn(&child, path.c_str(), actions.Redirect(output), attributes.DefaultSignals(),
                  Pointers(arguments).data(), Pointers(environment).data());
  if (error != 0) return std::nullopt;
  return child;
}

ProgramEnd WaitFor(pid_t child) {
  int status = 0;
  while (waitpid(child, &status, 0) < 0) {
    // ECHILD: the host ignores SIGCHLD, so the system waited for the end and forgot the status, or
    // a handler of the host's collected it.
    if (errno != EINTR) return {ProgramEnd::Kind::kUnknown, 0, {}};
  }
  if (!WIFEXITED(status)) return {ProgramEnd::Kind::kKilled, 0, {}};
  return {ProgramEnd::Kind::kExited, WEXITSTATUS(status), {}};
}

auto FindVariable(const Environment& environment, std::string_view name) noexcept {
  return std::find_if(environment.begin(), environment.end(), [name](std::string_view entry) {
    return entry.size() > name.size() && entry[name.size()] == '=' && entry.starts_with(name);
  });
}

}  // namespace

Environment ProcessEnvironment() {
  Environment environment;
  for (char** entry = environ; entry != nullptr && *entry != nullptr; ++entry) {
    environment.emplace_back(*entry);
  }
  return environment;
}

std::string_view Variable(const Environment& environment, std::string_view name) noexcept {
  const auto found = FindVariable(environment, name);
  if (found == environment.end()) return {};
  return std::string_view(*found).substr(name.size() + 1);
}

void SetVariable(Environment& environment, std::string_view name, std::string_view value) {
  const auto found = FindVariable(environment, name);
  if (found != environment.end()) environment.erase(found);
  environment.push_back(std::string(name) + "=" + std::string(value));
}

std::string FindProgram(const Environment& environment, std::string_view name) {
  std::string_view folders = Variable(environment, "PATH");
  while (!folders.empty()) {
    const std::size_t length = std::min(folders.find(':'), folders.size());
    const std::string_view folder = folders.substr(0, length);
    folders.remove_prefix(std::min(length + 1, folders.size()));
    if (!folder.starts_with('/')) continue;
    std::string path = std::string(folder) + "/" + std::string(name);
    if (IsExecutableFile(path)) return path;
  }
  return {};
}

ProgramEnd RunProgram(const std::string& path, const std::vector<std::string>& arguments,
                      const Environment& environment) {
  // A file in memory takes the output, so that nobody has to empty a pipe meanwhile.
  const Descriptor output(memfd_create("output", MFD_CLOEXEC));
  if (output.get() < 0) return {ProgramEnd::Kind::kNotStarted, 0, {}};
  const auto child = Spawn(path, arguments, environment, output.get());
  if (!child) return {ProgramEnd::Kind::kNotStarted, 0, {}};
  ProgramEnd end = WaitFor(*child);
  end.output = ReadStart(output.get());
  return end;
}

}  // namespace vandpublic
