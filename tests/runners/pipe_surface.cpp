// The component behind the tool's pipe, in a process of its own.
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <stdexcept>
#include <vector>

#include "cli/pipe.h"
#include "platform/host_settings.h"
#include "runners/surface.h"

extern char** environ;

namespace vandpublic {
namespace {

// A reply takes milliseconds; a program that needs this long hangs.
constexpr int kPatienceMilliseconds = 120000;

class Descriptor {
 public:
  Descriptor() = default;
  explicit Descriptor(int value) : value_(value) {}
  Descriptor(Descriptor&& other) noexcept : value_(other.value_) { other.value_ = -1; }
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(value_, other.value_);
    return *this;
  }
  ~Descriptor() { Close(); }

  int get() const { return value_; }
  void Close() {
    if (value_ >= 0) close(value_);
    value_ = -1;
  }

 private:
  int value_ = -1;
};

struct Ends {
  Descriptor read;
  Descriptor write;
};

Ends MakePipe() {
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  return {Descriptor(ends[0]), Descriptor(ends[1])};
}

class SpawnActions {
 public:
  SpawnActions() { posix_spawn_file_actions_init(&actions_); }
  SpawnActions(const SpawnActions&) = delete;
  SpawnActions& operator=(const SpawnActions&) = delete;
  ~SpawnActions() { posix_spawn_file_actions_destroy(&actions_); }

  void Redirect(const Descriptor& from, int to) {
    posix_spawn_file_actions_adddup2(&actions_, from.get(), to);
  }
  const posix_spawn_file_actions_t* get() const { return &actions_; }

 private:
  posix_spawn_file_actions_t actions_;
};

class PipeSurface final : public Surface {
 public:
  PipeSurface(std::string tool, const Surroundings& surroundings)
      : tool_(std::move(tool)),
        from_tool_(MakePipe()),
        to_tool_(MakePipe()),
        replies_(from_tool_.read.get()) {
    std::vector<std::string> arguments = {tool_, "pipe", "--codepage",
                                          std::to_string(surroundings.code_page)};
    if (!surroundings.registry_file.empty()) {
      arguments.push_back("--registry=" + surroundings.registry_file);
    }
    Spawn(std::move(arguments));
    to_tool_.read.Close();
    from_tool_.write.Close();
  }
  PipeSurface(const PipeSurface&) = delete;
  PipeSurface& operator=(const PipeSurface&) = delete;
  ~PipeSurface() override { Finish(); }

  Json Ask(const Json& request) override {
    if (!WriteAll(to_tool_.write.get(), request.dump() + "\n")) {
      throw std::runtime_error("the tool takes no requests");
    }
    pollfd wanted{from_tool_.read.get(), POLLIN, 0};
    if (poll(&wanted, 1, kPatienceMilliseconds) == 0) {
      kill(process_, SIGKILL);
      throw std::runtime_error("the tool gives no reply");
    }
    std::string_view line;
    if (replies_.Next(line) != LineReader::Outcome::Line) {
      throw std::runtime_error("the tool has ended");
    }
    return Json::parse(line);
  }

  std::string ComponentFolder() const override {
    return std::filesystem::canonical(tool_).parent_path().string();
  }

  std::string Finish() override {
    if (process_ == 0) return {};
    to_tool_.write.Close();
    int status = 0;
    waitpid(process_, &status, 0);
    process_ = 0;
    if (WIFEXITED(status) && WEXITSTATUS(status) == 0) return {};
    return "the tool ended with wait status " + std::to_string(status);
  }

 private:
  void Spawn(std::vector<std::string> arguments) {
    SpawnActions actions;
    actions.Redirect(to_tool_.read, STDIN_FILENO);
    actions.Redirect(from_tool_.write, STDOUT_FILENO);
    std::vector<char*> pointers;
    for (std::string& argument : arguments)
      pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    const int error =
        posix_spawn(&process_, tool_.c_str(), actions.get(), nullptr, pointers.data(), environ);
    if (error != 0) process_ = 0;
    if (error != 0) throw std::runtime_error(tool_ + " cannot be started");
  }

  std::string tool_;
  Ends from_tool_;
  Ends to_tool_;
  LineReader replies_;
  pid_t process_ = 0;
};

}  // namespace

void UseSurroundings(const Surroundings& surroundings) {
  if (!SelectCodePage(surroundings.code_page)) throw std::runtime_error("no such code page");
  if (!surroundings.registry_file.empty()) SelectRegistryFile(surroundings.registry_file);
}

std::unique_ptr<Surface> MakeSystemSurface(const std::string& name, const std::string& argument,
                                           const Surroundings& surroundings) {
  if (name != "pipe" || argument.empty()) return nullptr;
  std::signal(SIGPIPE, SIG_IGN);  // a tool that ends early is a failing case
  return std::make_unique<PipeSurface>(argument, surroundings);
}

}  // namespace vandpublic
