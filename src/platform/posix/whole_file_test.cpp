#include "platform/posix/whole_file.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "platform/posix/descriptor.h"
#include "platform/posix/failing_calls.h"
#include "platform/posix/test_folder.h"

namespace vandpublic {
namespace {

constexpr std::size_t kLimit = 1000;

TEST(WholeFile, ReadFile_gives_all_bytes) {
  const TestFolder folder;
  FileCalls calls;
  for (const std::size_t size : {0U, 1U, 999U, 1000U}) {
    const std::string bytes(size, '\x80');
    const auto file = ReadFile(calls, folder.Put("f", bytes), kLimit);
    ASSERT_TRUE(file) << size;
    EXPECT_EQ(file->bytes, bytes);
    EXPECT_EQ(StateOfFile(calls, folder.File("f")), file->state);
  }
}

TEST(WholeFile, ReadFile_gives_nothing_past_the_limit) {
  const TestFolder folder;
  FileCalls calls;
  EXPECT_FALSE(ReadFile(calls, folder.Put("f", std::string(1001, 'x')), kLimit));
}

TEST(WholeFile, ReadFile_follows_links) {
  const TestFolder folder;
  FileCalls calls;
  folder.Put("f", "bytes");
  std::filesystem::create_symlink("f", folder.File("link"));
  const auto file = ReadFile(calls, folder.File("link"), kLimit);
  ASSERT_TRUE(file);
  EXPECT_EQ(file->bytes, "bytes");
}

TEST(WholeFile, ReadFile_gives_nothing_and_does_not_wait_where_there_is_no_regular_file) {
  const TestFolder folder;
  FileCalls calls;
  ASSERT_EQ(mkfifo(folder.File("pipe").c_str(), 0600), 0);
  std::filesystem::create_symlink("loop", folder.File("loop"));
  for (const std::string& path :
       {folder.File("missing"), folder.File("missing/f"), folder.path(), folder.File("pipe"),
        folder.File("loop"), std::string("/dev/zero"), std::string()}) {
    EXPECT_FALSE(ReadFile(calls, path, kLimit)) << path;
    EXPECT_FALSE(StateOfFile(calls, path)) << path;
  }
}

TEST(WholeFile, ReadFile_survives_any_failing_call) {
  const TestFolder folder;
  const std::string path = folder.Put("f", "bytes");
  FailingCalls calls;
  calls.fail_from = 0;
  bool done = false;
  while (!done) {
    ++calls.fail_from;
    calls.fail_to = calls.fail_from;
    calls.calls = 0;
    const auto file = ReadFile(calls, path, kLimit);
    done = calls.calls < calls.fail_from;
    EXPECT_EQ(file.has_value(), done) << "call " << calls.fail_from;
  }
  EXPECT_GT(calls.fail_from, 5);
}

TEST(WholeFile, ReadFile_joins_what_comes_in_pieces) {
  const TestFolder folder;
  FailingCalls calls;
  calls.most_bytes = 7;
  const auto file = ReadFile(calls, folder.Put("f", std::string(100, 'x') + 'y'), kLimit);
  ASSERT_TRUE(file);
  EXPECT_EQ(file->bytes, std::string(100, 'x') + 'y');
}

// Stands for a file that grows, or another that takes its name, between two calls.
class ChangingCalls : public FileCalls {
 public:
  off_t hidden_bytes = 0;
  mode_t opened_type = S_IFREG;

  int Status(int file, struct stat& status) override {
    const int result = FileCalls::Status(file, status);
    status.st_size -= hidden_bytes;
    status.st_mode = (status.st_mode & ~mode_t{S_IFMT}) | opened_type;
    return result;
  }
};

TEST(WholeFile, ReadFile_reads_a_file_that_has_grown_up_to_the_limit) {
  const TestFolder folder;
  ChangingCalls calls;
  for (const std::size_t size : {2U, 300U, 999U, 1000U}) {
    const std::string bytes(size, 'x');
    calls.hidden_bytes = static_cast<off_t>(size);
    const auto file = ReadFile(calls, folder.Put("f", bytes), kLimit);
    ASSERT_TRUE(file) << size;
    EXPECT_EQ(file->bytes, bytes);
  }
  calls.hidden_bytes = 500;
  EXPECT_FALSE(ReadFile(calls, folder.Put("f", std::string(1001, 'x')), kLimit));
}

TEST(WholeFile, ReadFile_looks_again_at_what_it_has_opened) {
  const TestFolder folder;
  ChangingCalls calls;
  calls.opened_type = S_IFIFO;
  EXPECT_FALSE(ReadFile(calls, folder.Put("f", "x"), kLimit));
}

TEST(WholeFile, the_state_shows_every_change) {
  struct stat status {};
  status.st_dev = 1;
  status.st_ino = 2;
  status.st_size = 3;
  status.st_mtim = {4, 5};
  status.st_ctim = {6, 7};
  const FileState state(status);
  EXPECT_EQ(state, FileState(status));
  const auto changed = [&](auto change) {
    struct stat other = status;
    change(other);
    return FileState(other);
  };
  EXPECT_NE(state, changed([](struct stat& s) { s.st_dev = 0; }));
  EXPECT_NE(state, changed([](struct stat& s) { s.st_ino = 0; }));
  EXPECT_NE(state, changed([](struct stat& s) { s.st_size = 0; }));
  EXPECT_NE(state, changed([](struct stat& s) { s.st_mtim.tv_sec = 0; }));
  EXPECT_NE(state, changed([](struct stat& s) { s.st_mtim.tv_nsec = 0; }));
  EXPECT_NE(state, changed([](struct stat& s) { s.st_ctim.tv_sec = 0; }));
  EXPECT_NE(state, changed([](struct stat& s) { s.st_ctim.tv_nsec = 0; }));
  EXPECT_EQ(state, changed([](struct stat& s) { s.st_atim.tv_sec = 9; })) << "reading is no change";
}

TEST(WholeFile, a_state_settles_after_two_seconds) {
  struct stat status {};
  status.st_ctim = {100, 0};
  const FileState state(status);
  EXPECT_FALSE(state.IsSettled(99)) << "a clock that went back";
  EXPECT_FALSE(state.IsSettled(102));
  EXPECT_TRUE(state.IsSettled(103));
}

}  // namespace
}  // namespace vandpublic
