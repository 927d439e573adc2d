// Streams and files of the system, also where they cannot be used.
#include "cli/system_streams.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <pthread.h>
#include <sys/mman.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <thread>

#include "support/temp_folder.h"

namespace vandpublic {
namespace {

std::string ReadText(int descriptor) {
  char bytes[64];
  const std::ptrdiff_t count = ReadSome(descriptor, bytes, sizeof bytes);
  return count < 0 ? "failed" : std::string(bytes, static_cast<std::size_t>(count));
}

TEST(SystemStreams, Files_are_opened_for_what_they_are_used_for) {
  const TempFolder folder;
  EXPECT_EQ(OpenFile(folder.File("x"), FileUse::Read), -1);
  EXPECT_EQ(errno, ENOENT);
  {
    const Stream file(OpenFile(folder.File("x"), FileUse::Create));
    EXPECT_EQ(WriteSome(file.get(), "abc", 3), 3);
  }
  EXPECT_EQ(OpenFile(folder.File("x"), FileUse::Create), -1);
  EXPECT_EQ(errno, EEXIST);
  const Stream again(OpenFile(folder.File("x"), FileUse::GoOn));
  EXPECT_EQ(ReadText(again.get()), "abc");
  ASSERT_TRUE(CutFile(again.get(), 1));
  EXPECT_EQ(WriteSome(again.get(), "z", 1), 1);
  EXPECT_EQ(folder.Read("x"), "az");
  const Stream fresh(OpenFile(folder.File("y"), FileUse::GoOn));
  EXPECT_EQ(ReadText(fresh.get()), "");
}

TEST(SystemStreams, Only_a_regular_file_can_be_gone_on_with) {
  const TempFolder folder;
  ASSERT_EQ(mkfifo(folder.File("pipe").c_str(), 0600), 0);
  for (const std::string& path : {folder.File("pipe"), std::string("/dev/null")}) {
    EXPECT_EQ(OpenFile(path, FileUse::GoOn), -1) << path;
    EXPECT_EQ(errno, EINVAL) << path;
  }
  EXPECT_EQ(OpenFile(folder.path().string(), FileUse::GoOn), -1);
  EXPECT_EQ(errno, EISDIR);
}

TEST(SystemStreams, A_file_that_may_not_shrink_cannot_be_cut) {
  const Stream file(memfd_create("sealed", MFD_CLOEXEC | MFD_ALLOW_SEALING));
  ASSERT_EQ(WriteSome(file.get(), "abc", 3), 3);
  ASSERT_EQ(fcntl(file.get(), F_ADD_SEALS, F_SEAL_SHRINK), 0);
  EXPECT_FALSE(CutFile(file.get(), 1));
  EXPECT_EQ(errno, EPERM);
}

TEST(SystemStreams, A_terminal_is_told_from_other_streams) {
  const Stream terminal(posix_openpt(O_RDWR | O_NOCTTY));
  if (terminal.get() < 0) GTEST_SKIP() << "the system gives no terminal";
  EXPECT_TRUE(IsTerminal(terminal.get()));
  const Stream device(OpenFile("/dev/null", FileUse::Read));
  EXPECT_FALSE(IsTerminal(device.get()));
  EXPECT_FALSE(IsTerminal(-1));
}

TEST(SystemStreams, The_words_are_those_behind_the_name) {
  const char* const words[] = {"vandpublic", "call", ""};
  EXPECT_EQ(CommandLineWords(3, words), (std::vector<std::string>{"call", ""}));
  EXPECT_TRUE(CommandLineWords(1, words).empty());
  EXPECT_TRUE(CommandLineWords(0, words).empty()) << "a program may be started without a name";
}

std::atomic<int> signals_taken = 0;

// A signal whose handler asks for no restart breaks a read off that waits.
TEST(SystemStreams, A_read_that_a_signal_breaks_off_goes_on) {
  struct sigaction action {};
  struct sigaction before {};
  action.sa_handler = [](int) { ++signals_taken; };
  ASSERT_EQ(sigaction(SIGUSR1, &action, &before), 0);
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  const Stream input(ends[0]);
  std::string text;
  std::thread reader([&] { text = ReadText(input.get()); });
  for (int i = 0; i < 20; ++i) {
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
    pthread_kill(reader.native_handle(), SIGUSR1);
  }
  {
    const Stream output(ends[1]);
    EXPECT_EQ(WriteSome(output.get(), "abc", 3), 3);
  }
  reader.join();
  EXPECT_EQ(text, "abc");
  EXPECT_GT(signals_taken, 0);
  sigaction(SIGUSR1, &before, nullptr);
}

}  // namespace
}  // namespace vandpublic
