#include "platform/posix/message_box_desktop.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <unistd.h>

#include <filesystem>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "support/temp_folder.h"

namespace vandpublic {
namespace {

// Fake dialog programs on a PATH of their own. Each one writes its arguments, one in a line, to a
// file named after it.
class MessageBoxOnDesktop : public ::testing::Test {
 protected:
  MessageBoxOnDesktop() : old_input_(dup(STDIN_FILENO)) {
    // Never a terminal, so that a box that nobody shows does not ask whoever runs the tests.
    const int null = open("/dev/null", O_RDONLY);
    dup2(null, STDIN_FILENO);
    close(null);
  }
  ~MessageBoxOnDesktop() override {
    dup2(old_input_, STDIN_FILENO);
    close(old_input_);
  }

  void AddProgram(const std::string& name, const std::string& end) {
    folder_.WriteScript(name, "printf '%s\\n' \"$@\" > " + folder_.path().string() + "/" + name +
                                  ".args\n" + "env > " + folder_.path().string() + "/" + name +
                                  ".env\n" + end);
  }
  std::string Arguments(const std::string& name) const { return folder_.Read(name + ".args"); }
  bool Ran(const std::string& name) const { return folder_.Read(name + ".env") != "<none>"; }
  bool GotVariable(const std::string& name, const std::string& variable) const {
    std::istringstream lines(folder_.Read(name + ".env"));
    for (std::string line; std::getline(lines, line);) {
      if (line == variable) return true;
    }
    return false;
  }

  int Show(std::u16string_view text, std::u16string_view title, int style) {
    return DesktopMessageBoxes(environment_).Show(text, title, style);
  }
  int ShowOk() { return Show(u"text", u"title", kBoxOkExclamation); }
  int Ask() { return Show(u"text", u"title", kBoxYesNoQuestionDefaultNo); }

  TempFolder folder_;
  Environment environment_ = {"PATH=" + folder_.path().string(), "DISPLAY=:0", "LANG=C.UTF-8"};

 private:
  int old_input_;
};

TEST_F(MessageBoxOnDesktop, zenity_gets_text_and_title_as_they_are) {
  AddProgram("zenity", "exit 101");
  EXPECT_EQ(Show(u"-C:\\new <b>&amp; caf\u00e9", u"-Title", kBoxOkExclamation), kBoxAnswerOk);
  EXPECT_EQ(Arguments("zenity"),
            "--no-markup\n--title=-Title\n--text=-C:\\new <b>&amp; caf\xC3\xA9\n--warning\n");
  EXPECT_EQ(Ask(), kBoxAnswerYes);
  EXPECT_EQ(Arguments("zenity"),
            "--no-markup\n--title=title\n--text=text\n--question\n--default-cancel\n");
}

TEST_F(MessageBoxOnDesktop, zenity_answers_by_statuses_of_our_own) {
  AddProgram("zenity", "exit $ZENITY_OK");
  EXPECT_EQ(Ask(), kBoxAnswerYes);
  EXPECT_EQ(ShowOk(), kBoxAnswerOk);
  for (const char* const variable : {"$ZENITY_CANCEL", "$ZENITY_ESC"}) {
    AddProgram("zenity", std::string("exit ") + variable);
    AddProgram("kdialog", "echo 101");
    EXPECT_EQ(Ask(), kBoxAnswerNo) << variable;
    EXPECT_EQ(ShowOk(), kBoxAnswerOk) << variable;
    EXPECT_FALSE(Ran("kdialog")) << variable;
  }
}

TEST_F(MessageBoxOnDesktop, kdialog_gets_the_text_escaped) {
  AddProgram("kdialog", "echo 102");
  const std::string start = "<qt><p style=\"white-space:pre-wrap\">";
  EXPECT_EQ(Show(u"-C:\\new <b>& x", u"-Title", kBoxOkExclamation), kBoxAnswerOk);
  EXPECT_EQ(Arguments("kdialog"),
            "--title=-Title\n--sorry=" + start + "-C:\\\\new &lt;b&gt;&amp; x</p>\n");
  EXPECT_EQ(Ask(), kBoxAnswerNo);
  EXPECT_EQ(Arguments("kdialog"),
            "--title=title\n--default=No\n--menu=" + start + "text</p>\n102\nNo\n101\nYes\n");
}

TEST_F(MessageBoxOnDesktop, kdialog_says_yes_only_in_writing) {
  struct Answer {
    const char* end;
    int expected;
  };
  for (const Answer& answer : {Answer{"echo 101", kBoxAnswerYes}, Answer{"echo 102", kBoxAnswerNo},
                               Answer{"exit 0", kBoxAnswerNo}, Answer{"exit 1", kBoxAnswerNo},
                               Answer{"echo 101; exit 1", kBoxAnswerNo}}) {
    AddProgram("kdialog", answer.end);
    EXPECT_EQ(Ask(), answer.expected) << answer.end;
  }
}

TEST_F(MessageBoxOnDesktop, kdialog_box_may_be_closed) {
  AddProgram("xmessage", "exit 101");
  for (const char* const end : {"exit 0", "exit 2"}) {
    AddProgram("kdialog", end);
    EXPECT_EQ(ShowOk(), kBoxAnswerOk);
    EXPECT_FALSE(Ran("xmessage")) << end;
  }
  AddProgram("kdialog", "exit 1");
  EXPECT_EQ(ShowOk(), kBoxAnswerOk);
  EXPECT_TRUE(Ran("xmessage"));
}

TEST_F(MessageBoxOnDesktop, xmessage_gets_buttons_with_statuses) {
  AddProgram("xmessage", "exit 101");
  const std::string start = "-center\n-title\ntitle\n-xrm\n*international: true\n";
  EXPECT_EQ(ShowOk(), kBoxAnswerOk);
  EXPECT_EQ(Arguments("xmessage"), start + "-buttons\nOK:101\n-default\nOK\ntext\n");
  EXPECT_EQ(Ask(), kBoxAnswerYes);
  EXPECT_EQ(Arguments("xmessage"), start + "-buttons\nYes:101,No:102\n-default\nNo\ntext\n");
  AddProgram("xmessage", "exit 102");
  EXPECT_EQ(Ask(), kBoxAnswerNo);
}

TEST_F(MessageBoxOnDesktop, xmessage_never_takes_the_text_for_an_option) {
  AddProgram("xmessage", "exit 101");
  struct Text {
    const char16_t* text;
    const char* argument;
  };
  for (const Text& text : {Text{u"-file", " -file"}, Text{u"+rv", " +rv"}, Text{u"-", " -"},
                           Text{u"a -file", "a -file"}, Text{u"", ""}}) {
    Show(text.text, u"title", kBoxOkExclamation);
    EXPECT_TRUE(
        Arguments("xmessage").ends_with(std::string("\nOK\n").append(text.argument).append("\n")))
        << Arguments("xmessage");
  }
}

TEST_F(MessageBoxOnDesktop, the_first_program_that_works_shows_the_box) {
  AddProgram("xmessage", "exit 101");
  EXPECT_EQ(Ask(), kBoxAnswerYes) << "the only one";
  AddProgram("kdialog", "echo 102");
  EXPECT_EQ(Ask(), kBoxAnswerNo) << "kdialog goes before xmessage";
  AddProgram("zenity", "exit 101");
  EXPECT_EQ(Ask(), kBoxAnswerYes) << "zenity goes before kdialog";
}

TEST_F(MessageBoxOnDesktop, a_program_that_fails_is_followed_by_the_next_one) {
  AddProgram("xmessage", "exit 101");
  for (const char* const failure : {"exit 1", "exit 0", "exit 255", "kill -6 $$", "kill -9 $$"}) {
    AddProgram("zenity", failure);
    EXPECT_EQ(Ask(), kBoxAnswerYes) << failure;
    EXPECT_EQ(ShowOk(), kBoxAnswerOk) << failure;
  }
  AddProgram("kdialog", "exit 254");
  EXPECT_EQ(Ask(), kBoxAnswerYes);
  EXPECT_TRUE(Ran("kdialog"));
}

TEST_F(MessageBoxOnDesktop, without_an_answer_the_default_button_counts) {
  EXPECT_EQ(Ask(), kBoxAnswerNo) << "no program at all";
  EXPECT_EQ(ShowOk(), kBoxAnswerOk);
  for (const char* const name : {"zenity", "xmessage"})
    AddProgram(name, "exit 1");
  AddProgram("kdialog", "kill -6 $$");
  EXPECT_EQ(Ask(), kBoxAnswerNo) << "every program fails";
  EXPECT_EQ(ShowOk(), kBoxAnswerOk);
}

TEST_F(MessageBoxOnDesktop, without_a_display_no_program_runs) {
  AddProgram("zenity", "exit 101");
  for (const Environment& none :
       {Environment{}, Environment{"DISPLAY="}, Environment{"WAYLAND_DISPLAY=", "DISPLAY="}}) {
    environment_ = none;
    environment_.push_back("PATH=" + folder_.path().string());
    EXPECT_EQ(Ask(), kBoxAnswerNo);
    EXPECT_EQ(ShowOk(), kBoxAnswerOk);
  }
  EXPECT_FALSE(Ran("zenity"));
  environment_.emplace_back("WAYLAND_DISPLAY=wayland-0");
  EXPECT_EQ(Ask(), kBoxAnswerNo) << "the empty one goes first";
  environment_ = {"PATH=" + folder_.path().string(), "WAYLAND_DISPLAY=wayland-0"};
  EXPECT_EQ(Ask(), kBoxAnswerYes);
}

TEST_F(MessageBoxOnDesktop, programs_read_utf8_whatever_the_locale) {
  AddProgram("zenity", "exit 101");
  struct Locale {
    Environment variables;
    const char* expected;
  };
  for (const Locale& locale :
       {Locale{{"LANG=C.UTF-8"}, "LANG=C.UTF-8"},
        Locale{{"LC_ALL=C", "LANG=C.UTF-8"}, "LC_ALL=C.UTF-8"},
        Locale{{"LC_CTYPE=POSIX"}, "LC_ALL=C.UTF-8"},
        Locale{{"LANG=xx_XX.missing"}, "LC_ALL=C.UTF-8"}, Locale{{}, "LC_ALL=C.UTF-8"}}) {
    environment_ = locale.variables;
    environment_.insert(environment_.end(), {"PATH=" + folder_.path().string(), "DISPLAY=:7"});
    Ask();
    EXPECT_TRUE(GotVariable("zenity", locale.expected)) << folder_.Read("zenity.env");
    EXPECT_TRUE(GotVariable("zenity", "DISPLAY=:7"));
  }
  environment_ = {"PATH=" + folder_.path().string(), "DISPLAY=:7", "LANG=C.UTF-8"};
  Ask();
  EXPECT_FALSE(GotVariable("zenity", "LC_ALL=C.UTF-8")) << "a good locale stays as it is";
}

TEST_F(MessageBoxOnDesktop, a_host_that_ignores_its_children_gets_the_default_button) {
  AddProgram("zenity", "exit 101");
  AddProgram("kdialog", "echo 101");
  const auto old = signal(SIGCHLD, SIG_IGN);
  const int answer = Ask();
  const int ok = ShowOk();
  signal(SIGCHLD, old);
  EXPECT_EQ(answer, kBoxAnswerNo);
  EXPECT_EQ(ok, kBoxAnswerOk);
  EXPECT_TRUE(Ran("zenity"));
  EXPECT_FALSE(Ran("kdialog")) << "the box was shown once";
}

TEST_F(MessageBoxOnDesktop, the_call_returns_only_after_the_answer) {
  AddProgram("zenity", "sleep 0.2; touch " + folder_.path().string() + "/answered; exit 101");
  EXPECT_EQ(Ask(), kBoxAnswerYes);
  EXPECT_TRUE(std::filesystem::exists(folder_.path().string() + "/answered"));
}

TEST_F(MessageBoxOnDesktop, several_threads_get_their_own_answers) {
  folder_.WriteScript("zenity", "case \"$*\" in *yes*) exit 101;; *) exit 102;; esac");
  DesktopMessageBoxes boxes(environment_);
  std::vector<int> answers(8);
  std::vector<std::thread> threads;
  for (std::size_t i = 0; i < answers.size(); ++i) {
    threads.emplace_back([&boxes, &answers, i] {
      answers[i] = boxes.Show(i % 2 == 0 ? u"yes" : u"no", u"", kBoxYesNoQuestionDefaultNo);
    });
  }
  for (std::thread& thread : threads)
    thread.join();
  for (std::size_t i = 0; i < answers.size(); ++i) {
    EXPECT_EQ(answers[i], i % 2 == 0 ? kBoxAnswerYes : kBoxAnswerNo);
  }
}

TEST_F(MessageBoxOnDesktop, a_huge_text_is_shown_cut) {
  AddProgram("zenity", "exit 101");
  const std::u16string huge(5'000'000, u'\u4e2d');
  EXPECT_EQ(Show(huge, huge, kBoxYesNoQuestionDefaultNo), kBoxAnswerYes);
}

}  // namespace
}  // namespace vandpublic
