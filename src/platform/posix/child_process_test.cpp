#include "platform/posix/child_process.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "support/temp_folder.h"

namespace vandpublic {
namespace {

using Kind = ProgramEnd::Kind;

class ChildProcess : public ::testing::Test {
 protected:
  ProgramEnd RunScript(const std::string& script) {
    return RunProgram(folder_.WriteScript("program", script), {"program"}, {"GREETING=hello"});
  }

  TempFolder folder_;
};

TEST_F(ChildProcess, tells_status_and_output) {
  const ProgramEnd end = RunScript("echo $GREETING; exit 42");
  EXPECT_EQ(end.kind, Kind::kExited);
  EXPECT_EQ(end.status, 42);
  EXPECT_EQ(end.output, "hello\n");
}

TEST_F(ChildProcess, passes_arguments_as_they_are) {
  const std::string path = folder_.WriteScript("program", "printf '%s|' \"$@\"");
  const ProgramEnd end = RunProgram(path, {"program", "", "-a b", "$HOME `id`", "\"'\\\n*"}, {});
  EXPECT_EQ(end.output, "|-a b|$HOME `id`|\"'\\\n*|");
}

TEST_F(ChildProcess, keeps_the_first_64_bytes_of_output) {
  const ProgramEnd end =
      RunScript("i=0; while [ $i -lt 100000 ]; do echo 0123456; i=$((i+1)); done");
  EXPECT_EQ(end.kind, Kind::kExited);
  EXPECT_EQ(end.output, "0123456\n0123456\n0123456\n0123456\n0123456\n0123456\n0123456\n0123456\n");
}

TEST_F(ChildProcess, tells_a_program_that_was_killed) {
  EXPECT_EQ(RunScript("kill -9 $$").kind, Kind::kKilled);
}

TEST_F(ChildProcess, tells_a_program_that_does_not_start) {
  EXPECT_EQ(RunProgram(folder_.path().string() + "/missing", {"missing"}, {}).kind,
            Kind::kNotStarted);
  const std::string path = folder_.WriteScript("program", "exit 0");
  EXPECT_EQ(RunProgram(path, {"program", std::string(10'000'000, 'x')}, {}).kind,
            Kind::kNotStarted);
}

TEST_F(ChildProcess, does_not_start_when_no_descriptor_is_left) {
  const std::string path = folder_.WriteScript("program", "exit 0");
  rlimit old{};
  ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &old), 0);
  const rlimit none = {0, old.rlim_max};
  ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &none), 0);
  const ProgramEnd end = RunProgram(path, {"program"}, {});
  ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &old), 0);
  EXPECT_EQ(end.kind, Kind::kNotStarted);
}

TEST_F(ChildProcess, gives_the_program_no_input_and_none_of_our_descriptors) {
  constexpr int kOurs = 77;
  ASSERT_EQ(dup2(STDOUT_FILENO, kOurs), kOurs);
  const ProgramEnd end = RunScript(
      "read line && echo input; [ -e /proc/$$/fd/77 ] && echo leak; echo done; echo x >&2");
  close(kOurs);
  EXPECT_EQ(end.output, "done\n");
}

TEST_F(ChildProcess, writes_nothing_to_our_streams) {
  ::testing::internal::CaptureStdout();
  ::testing::internal::CaptureStderr();
  RunScript("echo out; echo err >&2");
  EXPECT_EQ(::testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

TEST_F(ChildProcess, gives_the_program_default_signals) {
  const auto old = signal(SIGPIPE, SIG_IGN);
  sigset_t blocked;
  sigset_t old_mask;
  sigemptyset(&blocked);
  sigaddset(&blocked, SIGTERM);
  sigprocmask(SIG_BLOCK, &blocked, &old_mask);
  const ProgramEnd end = RunScript("sed -n 's/^Sig\\(Blk\\|Ign\\):\\t*//p' /proc/self/status");
  sigprocmask(SIG_SETMASK, &old_mask, nullptr);
  signal(SIGPIPE, old);
  std::istringstream masks(end.output);
  unsigned long long blocked_there = 1;
  unsigned long long ignored_there = ~0ULL;
  masks >> std::hex >> blocked_there >> ignored_there;
  EXPECT_EQ(blocked_there, 0U) << end.output;
  EXPECT_EQ(ignored_there & (1ULL << (SIGPIPE - 1)), 0U) << end.output;
}

std::atomic<int> alarms = 0;

TEST_F(ChildProcess, waits_through_signals_that_the_host_handles) {
  alarms = 0;
  struct sigaction action {};
  action.sa_handler = [](int) { ++alarms; };  // without SA_RESTART: waiting is interrupted
  struct sigaction old {};
  ASSERT_EQ(sigaction(SIGALRM, &action, &old), 0);
  const itimerval every_10_ms = {{0, 10'000}, {0, 10'000}};
  ASSERT_EQ(setitimer(ITIMER_REAL, &every_10_ms, nullptr), 0);
  const ProgramEnd end = RunScript("sleep 0.2; exit 5");
  const itimerval never{};
  setitimer(ITIMER_REAL, &never, nullptr);
  sigaction(SIGALRM, &old, nullptr);
  EXPECT_EQ(end.kind, Kind::kExited);
  EXPECT_EQ(end.status, 5);
  EXPECT_GT(alarms, 2);
}

TEST_F(ChildProcess, waits_for_the_end_even_where_the_host_ignores_its_children) {
  const auto old = signal(SIGCHLD, SIG_IGN);
  const ProgramEnd end = RunScript("sleep 0.1; echo late; exit 3");
  signal(SIGCHLD, old);
  EXPECT_EQ(end.kind, Kind::kUnknown);
  EXPECT_EQ(end.output, "late\n");
}

TEST_F(ChildProcess, leaves_other_children_of_the_host_alone) {
  const pid_t other = fork();
  if (other == 0) _exit(9);
  EXPECT_EQ(RunScript("exit 1").status, 1);
  int status = 0;
  EXPECT_EQ(waitpid(other, &status, 0), other);
  EXPECT_EQ(WEXITSTATUS(status), 9);
}

TEST_F(ChildProcess, FindProgram_takes_the_first_executable_file_on_the_path) {
  TempFolder second;
  const std::string first_path = "PATH=" + folder_.path().string() + ":" + second.path().string();
  EXPECT_EQ(FindProgram({first_path}, "tool"), "");
  const std::string in_second = second.WriteScript("tool", "exit 0");
  EXPECT_EQ(FindProgram({first_path}, "tool"), in_second);
  std::filesystem::create_directory(folder_.path().string() + "/tool");
  EXPECT_EQ(FindProgram({first_path}, "tool"), in_second) << "a folder is no program";
  std::filesystem::remove(folder_.path().string() + "/tool");
  std::ofstream(folder_.path().string() + "/tool") << "not executable";
  EXPECT_EQ(FindProgram({first_path}, "tool"), in_second) << "nor is a file without the right";
  const std::string in_first = folder_.WriteScript("tool", "exit 0");
  EXPECT_EQ(FindProgram({first_path}, "tool"), in_first);
}

TEST_F(ChildProcess, FindProgram_looks_in_no_relative_folder) {
  folder_.WriteScript("tool", "exit 0");
  const std::filesystem::path old = std::filesystem::current_path();
  std::filesystem::current_path(folder_.path().string());
  EXPECT_EQ(FindProgram({"PATH=:.::"}, "tool"), "");
  EXPECT_EQ(FindProgram({"PATH="}, "tool"), "");
  EXPECT_EQ(FindProgram({}, "tool"), "");
  std::filesystem::current_path(old);
}

TEST(Environment, variables_are_found_by_their_whole_name) {
  Environment environment = {"PATHS=1", "PATH=2", "PAT=3", "EMPTY="};
  EXPECT_EQ(Variable(environment, "PATH"), "2");
  EXPECT_EQ(Variable(environment, "PAT"), "3");
  EXPECT_EQ(Variable(environment, "EMPTY"), "");
  EXPECT_EQ(Variable(environment, "OTHER"), "");
  SetVariable(environment, "PATH", "new");
  SetVariable(environment, "OTHER", "a=b");
  EXPECT_EQ(Variable(environment, "PATH"), "new");
  EXPECT_EQ(Variable(environment, "OTHER"), "a=b");
  EXPECT_EQ(environment.size(), 5U);
}

TEST(Environment, of_the_process_is_a_copy) {
  setenv("VANDPUBLIC_TEST_VARIABLE", "here", 1);
  const Environment environment = ProcessEnvironment();
  unsetenv("VANDPUBLIC_TEST_VARIABLE");
  EXPECT_EQ(Variable(environment, "VANDPUBLIC_TEST_VARIABLE"), "here");
}

}  // namespace
}  // namespace vandpublic
