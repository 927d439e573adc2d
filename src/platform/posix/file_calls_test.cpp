#include "platform/posix/file_calls.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <pthread.h>
#include <signal.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <thread>

#include "platform/posix/descriptor.h"

namespace vandpublic {
namespace {

// The thread that reads from an empty pipe gets signals that would end the read, then a byte.
TEST(FileCalls, an_interrupted_call_is_repeated) {
  struct sigaction action {};
  struct sigaction before {};
  action.sa_handler = [](int) {};  // and no SA_RESTART
  ASSERT_EQ(sigaction(SIGUSR1, &action, &before), 0);
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  const Descriptor out(ends[0]);
  const Descriptor in(ends[1]);
  const pthread_t reader = pthread_self();
  std::thread sender([&] {
    for (int i = 0; i < 20; ++i) {
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
      pthread_kill(reader, SIGUSR1);
    }
    EXPECT_EQ(write(in.get(), "x", 1), 1);
  });
  char byte = 0;
  EXPECT_EQ(FileCalls().Read(out.get(), &byte, 1), 1);
  EXPECT_EQ(byte, 'x');
  sender.join();
  sigaction(SIGUSR1, &before, nullptr);
}

TEST(FileCalls, a_failure_shows_in_result_and_errno) {
  FileCalls calls;
  EXPECT_EQ(calls.Open(AT_FDCWD, "", O_RDONLY, 0), -1);
  EXPECT_EQ(errno, ENOENT);
  EXPECT_EQ(calls.Read(-1, nullptr, 0), -1);
  EXPECT_EQ(errno, EBADF);
  EXPECT_EQ(calls.TryLock(-1), -1);
  EXPECT_EQ(errno, EBADF);
}

}  // namespace
}  // namespace vandpublic
