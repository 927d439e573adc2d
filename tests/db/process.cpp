// Children of the test program.
#include "db/process.h"

#include <fcntl.h>
#include <glob.h>
#include <grp.h>
#include <netinet/in.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <stdexcept>

namespace vandpublic::db_tests {
namespace {

constexpr uid_t kOrdinaryUser = 65534;  // nobody
constexpr int kCannotRun = 127;

// In the child: becomes the program. The child ends with this one, however this one ends.
[[noreturn]] void Become(const Arguments& arguments, int input, int output) {
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (geteuid() == 0) {
    if (setgroups(0, nullptr) != 0 || setgid(kOrdinaryUser) != 0 || setuid(kOrdinaryUser) != 0) {
      _exit(kCannotRun);
    }
    prctl(PR_SET_PDEATHSIG, SIGKILL);  // changing the user has cleared it
  }
  // A server whose files reach a limit of theirs sees a full disk; without this it would be killed.
  signal(SIGXFSZ, SIG_IGN);
  // Messages that tests read are in English, whatever the test program runs in.
  setenv("LC_ALL", "C.UTF-8", 1);
  dup2(input, STDIN_FILENO);
  dup2(output, STDOUT_FILENO);
  dup2(output, STDERR_FILENO);
  std::vector<char*> words;
  for (const std::string& argument : arguments)
    words.push_back(const_cast<char*>(argument.c_str()));
  words.push_back(nullptr);
  execvp(words.front(), words.data());
  _exit(kCannotRun);
}

pid_t Start(const Arguments& arguments, int input, int output) {
  const pid_t pid = fork();
  if (pid < 0) throw std::runtime_error("cannot fork");
  if (pid == 0) Become(arguments, input, output);
  return pid;
}

// A file without a name, for input and output of short runs.
class ScratchFile {
 public:
  ScratchFile() : file_(std::tmpfile()) {
    if (file_ == nullptr) throw std::runtime_error("no temporary file");
  }
  ScratchFile(const ScratchFile&) = delete;
  ScratchFile& operator=(const ScratchFile&) = delete;
  ~ScratchFile() { std::fclose(file_); }

  int descriptor() const { return fileno(file_); }
  void Write(const std::string& text) {
    std::fwrite(text.data(), 1, text.size(), file_);
    std::fflush(file_);
    lseek(descriptor(), 0, SEEK_SET);
  }
  std::string Read() {
    std::string text;
    char buffer[65536];
    lseek(descriptor(), 0, SEEK_SET);
    for (ssize_t count; (count = read(descriptor(), buffer, sizeof buffer)) > 0;)
      text.append(buffer, static_cast<std::size_t>(count));
    return text;
  }

 private:
  std::FILE* file_;
};

}  // namespace

Process::Process(const Arguments& arguments, const std::filesystem::path& log) {
  const int output = open(log.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0644);
  const int input = open("/dev/null", O_RDONLY | O_CLOEXEC);
  pid_ = Start(arguments, input, output);
  close(output);
  close(input);
}

Process::~Process() {
  if (pid_ > 0) End(SIGKILL);
}

void Process::End(int signal) {
  if (pid_ <= 0) return;
  kill(pid_, signal);
  waitpid(pid_, nullptr, 0);
  pid_ = -1;
}

std::string RunProgram(const Arguments& arguments, const std::string& input) {
  ScratchFile in;
  ScratchFile out;
  in.Write(input);
  const pid_t pid = Start(arguments, in.descriptor(), out.descriptor());
  int status = 0;
  waitpid(pid, &status, 0);
  std::string text = out.Read();
  if (status != 0) throw std::runtime_error(arguments.front() + " failed: " + text);
  if (text.ends_with('\n')) text.pop_back();
  return text;
}

void GiveToOrdinaryUser(const std::filesystem::path& folder) {
  if (geteuid() != 0) return;
  if (chown(folder.c_str(), kOrdinaryUser, kOrdinaryUser) != 0) {
    throw std::runtime_error("cannot give the folder away");
  }
}

int FreePort() {
  const int listener = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t size = sizeof address;
  auto* const any_address = reinterpret_cast<sockaddr*>(&address);
  const bool found =
      bind(listener, any_address, size) == 0 && getsockname(listener, any_address, &size) == 0;
  close(listener);
  if (!found) throw std::runtime_error("no free port");
  return ntohs(address.sin_port);
}

std::string FindFile(const std::vector<std::string>& patterns) {
  for (const std::string& pattern : patterns) {
    glob_t found{};
    const bool any = glob(pattern.c_str(), 0, nullptr, &found) == 0;
    const std::string file = any ? found.gl_pathv[found.gl_pathc - 1] : "";
    globfree(&found);
    if (!file.empty()) return file;
  }
  return {};
}

}  // namespace vandpublic::db_tests
