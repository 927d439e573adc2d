#include "platform/posix/terminal_box.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
#include <signal.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <functional>

#include "platform/posix/message_box_desktop.h"

namespace vandpublic {
namespace {

constexpr int kTimeoutMs = 20'000;

// A process with a terminal of its own; the test is the user who sits at it.
class TerminalSession {
 public:
  // The action's result, at most 127, becomes the exit status.
  explicit TerminalSession(const std::function<int()>& action) {
    std::fflush(nullptr);
    child_ = forkpty(&terminal_, nullptr, nullptr, nullptr);
    if (child_ == 0) std::exit(action());
  }
  ~TerminalSession() {
    if (terminal_ >= 0) close(terminal_);
  }
  TerminalSession(const TerminalSession&) = delete;
  TerminalSession& operator=(const TerminalSession&) = delete;

  // What stands on the screen, as soon as it ends as given.
  std::string ReadUntil(const std::string& end) {
    while (!screen_.ends_with(end)) {
      pollfd waiting = {terminal_, POLLIN, 0};
      char bytes[256];
      if (poll(&waiting, 1, kTimeoutMs) <= 0) return screen_ + "<timeout>";
      const ssize_t count = read(terminal_, bytes, sizeof bytes);
      if (count <= 0) return screen_ + "<end>";
      screen_.append(bytes, static_cast<std::size_t>(count));
    }
    return screen_;
  }

  void Type(const std::string& keys) {
    ASSERT_EQ(write(terminal_, keys.data(), keys.size()), static_cast<ssize_t>(keys.size()));
  }

  // Sends a signal and gives it time to arrive where the process waits.
  void Interrupt(int signal) {
    usleep(50'000);
    kill(child_, signal);
    usleep(50'000);
  }

  void HangUp() {
    close(terminal_);
    terminal_ = -1;
  }

  int Status() {
    int status = 0;
    waitpid(child_, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  }

 private:
  pid_t child_ = 0;
  int terminal_ = -1;
  std::string screen_;
};

int ShowWithoutDesktop(std::u16string_view text, std::u16string_view title, int style) {
  return DesktopMessageBoxes(Environment{}).Show(text, title, style);
}
int Ask() { return ShowWithoutDesktop(u"Really?", u"Title", kBoxYesNoQuestionDefaultNo); }
int ShowOk() { return ShowWithoutDesktop(u"Done.", u"Title", kBoxOkExclamation); }

class TerminalBox : public testing::Test {
 protected:
  void SetUp() override {
    int terminal = -1;
    int other_end = -1;
    if (openpty(&terminal, &other_end, nullptr, nullptr, nullptr) != 0) {
      GTEST_SKIP() << "the system gives no terminal";
    }
    close(terminal);
    close(other_end);
  }
};

TEST_F(TerminalBox, asks_with_title_text_and_choices) {
  TerminalSession session(Ask);
  EXPECT_EQ(session.ReadUntil("[y/N] "), "\r\nTitle\r\nReally? [y/N] ");
  session.Type("y\n");
  EXPECT_EQ(session.Status(), kBoxAnswerYes);
}

TEST_F(TerminalBox, takes_only_yes_for_yes) {
  struct Answer {
    const char* typed;
    int expected;
  };
  for (const Answer& answer :
       {Answer{"y\n", kBoxAnswerYes}, Answer{"Y\n", kBoxAnswerYes}, Answer{"yes\n", kBoxAnswerYes},
        Answer{" YeS \t\n", kBoxAnswerYes}, Answer{"\n", kBoxAnswerNo}, Answer{"n\n", kBoxAnswerNo},
        Answer{"  \n", kBoxAnswerNo}, Answer{"ye\n", kBoxAnswerNo}, Answer{"yess\n", kBoxAnswerNo},
        Answer{"y y\n", kBoxAnswerNo}, Answer{"yes, a long answer that goes on\n", kBoxAnswerNo},
        Answer{"\x04", kBoxAnswerNo}}) {
    TerminalSession session(Ask);
    session.ReadUntil("[y/N] ");
    session.Type(answer.typed);
    EXPECT_EQ(session.Status(), answer.expected) << answer.typed;
  }
}

TEST_F(TerminalBox, an_ok_box_waits_for_a_line) {
  TerminalSession session(ShowOk);
  EXPECT_EQ(session.ReadUntil("continue. "), "\r\nTitle\r\nDone.\r\nPress Enter to continue. ");
  session.Type("n\n");
  EXPECT_EQ(session.Status(), kBoxAnswerOk);
}

TEST_F(TerminalBox, a_line_may_end_in_carriage_return) {
  TerminalSession session([] {
    termios mode{};
    tcgetattr(STDIN_FILENO, &mode);
    cfmakeraw(&mode);
    tcsetattr(STDIN_FILENO, TCSANOW, &mode);
    return Ask();
  });
  session.ReadUntil("[y/N] ");
  session.Type("y\r");
  EXPECT_EQ(session.Status(), kBoxAnswerYes);
}

TEST_F(TerminalBox, a_terminal_that_goes_away_answers_no) {
  TerminalSession session([] {
    signal(SIGHUP, SIG_IGN);
    return Ask();
  });
  session.ReadUntil("[y/N] ");
  session.HangUp();
  EXPECT_EQ(session.Status(), kBoxAnswerNo);
}

TEST_F(TerminalBox, waits_through_signals_that_the_host_handles) {
  TerminalSession session([] {
    struct sigaction action {};
    action.sa_handler = [](int) {};
    sigaction(SIGWINCH, &action, nullptr);
    return Ask();
  });
  session.ReadUntil("[y/N] ");
  session.Interrupt(SIGWINCH);
  session.Type("y\n");
  EXPECT_EQ(session.Status(), kBoxAnswerYes);
}

TEST_F(TerminalBox, asks_nobody_when_input_is_no_terminal) {
  TerminalSession session([] {
    close(STDIN_FILENO);
    if (open("/dev/null", O_RDONLY) != STDIN_FILENO) return 1;
    return Ask() == kBoxAnswerNo && ShowOk() == kBoxAnswerOk ? 0 : 1;
  });
  EXPECT_EQ(session.ReadUntil("never"), "<end>");
  EXPECT_EQ(session.Status(), 0);
}

TEST_F(TerminalBox, asks_nobody_when_there_is_no_terminal) {
  TerminalSession session([] {
    // A session of its own has no controlling terminal; standard input still is one.
    const pid_t child = fork();
    if (child == 0) {
      setsid();
      std::exit(Ask() == kBoxAnswerNo && ShowOk() == kBoxAnswerOk ? 0 : 1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WEXITSTATUS(status);
  });
  EXPECT_EQ(session.ReadUntil("never"), "<end>");
  EXPECT_EQ(session.Status(), 0);
}

TEST_F(TerminalBox, a_process_in_the_background_asks_nobody_and_is_not_stopped) {
  TerminalSession session([] {
    const pid_t child = fork();
    if (child == 0) {
      setpgid(0, 0);
      std::exit(Ask() == kBoxAnswerNo && ShowOk() == kBoxAnswerOk ? 0 : 1);
    }
    int status = 0;
    waitpid(child, &status, WUNTRACED);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 1;
  });
  EXPECT_EQ(session.ReadUntil("never"), "<end>");
  EXPECT_EQ(session.Status(), 0);
}

TEST_F(TerminalBox, is_the_way_when_no_dialog_program_works) {
  TerminalSession session([] {
    const Environment nothing_there = {"DISPLAY=:0", "PATH=/nonexistent"};
    return DesktopMessageBoxes(nothing_there).Show(u"Q", u"T", kBoxYesNoQuestionDefaultNo);
  });
  EXPECT_EQ(session.ReadUntil("[y/N] "), "\r\nT\r\nQ [y/N] ");
  session.Type("y\n");
  EXPECT_EQ(session.Status(), kBoxAnswerYes);
}

TEST_F(TerminalBox, standard_output_stays_clean) {
  TerminalSession session([] {
    int pipe_ends[2];
    if (pipe(pipe_ends) != 0) return 1;
    dup2(pipe_ends[1], STDOUT_FILENO);
    dup2(pipe_ends[1], STDERR_FILENO);
    const int answer = Ask();
    pollfd waiting = {pipe_ends[0], POLLIN, 0};
    return poll(&waiting, 1, 0) == 0 ? answer : 1;
  });
  session.ReadUntil("[y/N] ");
  session.Type("y\n");
  EXPECT_EQ(session.Status(), kBoxAnswerYes);
}

}  // namespace
}  // namespace vandpublic
