// Crashes, locks and writers that meet.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <algorithm>
#include <chrono>
#include <new>
#include <thread>

#include "platform/posix/atomic_edit.h"
#include "platform/posix/descriptor.h"
#include "platform/posix/failing_calls.h"
#include "platform/posix/test_child.h"
#include "platform/posix/test_folder.h"

namespace vandpublic {
namespace {

constexpr std::size_t kLimit = 100000;
const std::string kScratch = ".f.vandpublic";

bool Append(FileCalls& calls, const std::string& path, std::string_view bytes) {
  return EditFile(calls, path, kLimit,
                  [&](std::string_view old) { return std::string(old) + std::string(bytes); });
}

bool Append(const std::string& path, std::string_view bytes) {
  FileCalls calls;
  return Append(calls, path, bytes);
}

TEST(AtomicEditLock, an_exception_of_the_edit_leaves_no_lock) {
  const TestFolder folder;
  const std::string path = folder.Put("f", "old");
  FileCalls calls;
  const auto raise = [](std::string_view) -> std::string { throw std::bad_alloc(); };
  EXPECT_THROW(EditFile(calls, path, kLimit, raise), std::bad_alloc);
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"f"});
  EXPECT_TRUE(Append(path, "+new"));
}

TEST(AtomicEditLock, what_a_crash_has_left_is_removed) {
  const TestFolder folder;
  const std::string path = folder.Put("f", "old");
  folder.Put(kScratch, "half of a new te");
  EXPECT_TRUE(Append(path, "+new"));
  EXPECT_EQ(folder.Get("f"), "old+new");
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"f"});
}

TEST(AtomicEditLock, what_a_crash_has_left_does_not_give_its_permissions) {
  const TestFolder folder;
  ASSERT_EQ(chmod(folder.Put(kScratch, "").c_str(), 0600), 0);
  const mode_t mask = umask(022);
  EXPECT_TRUE(Append(folder.File("f"), "new"));
  umask(mask);
  struct stat status {};
  ASSERT_EQ(stat(folder.File("f").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777, mode_t{0644});
}

TEST(AtomicEditLock, a_link_or_folder_in_the_place_of_the_scratch_file_is_left_alone) {
  const TestFolder folder;
  folder.Put("f", "old");
  folder.Put("other", "other's");
  std::filesystem::create_symlink("other", folder.File(kScratch));
  EXPECT_FALSE(Append(folder.File("f"), "x"));
  std::filesystem::remove(folder.File(kScratch));
  std::filesystem::create_directory(folder.File(kScratch));
  EXPECT_FALSE(Append(folder.File("f"), "x"));
  EXPECT_EQ(folder.Get("f"), "old");
  EXPECT_EQ(folder.Get("other"), "other's");
}

TEST(AtomicEditLock, a_crash_at_any_point_leaves_the_old_or_the_new_file) {
  bool done = false;
  int crashes_with_new_file = 0;
  for (int call = 1; !done; ++call) {
    const TestFolder folder;
    const std::string path = folder.Put("f", "old");
    const pid_t child = InChild([&] {
      FailingCalls calls;
      calls.fail_from = call;
      calls.at_failure = [] { raise(SIGKILL); };
      return Append(calls, path, "+new");
    });
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    done = !WIFSIGNALED(status);
    const std::string left = folder.Get("f");
    EXPECT_TRUE(left == "old" || left == "old+new") << call << ' ' << left;
    crashes_with_new_file += !done && left == "old+new" ? 1 : 0;
    EXPECT_TRUE(Append(path, "+next")) << "a dead process holds no lock";
    EXPECT_EQ(folder.Get("f"), left + "+next");
    EXPECT_EQ(folder.Names(), std::vector<std::string>{"f"});
  }
  EXPECT_EQ(crashes_with_new_file, 3)
      << "before the folder is opened, brought to the disk, unlocked";
}

TEST(AtomicEditLock, a_locked_file_is_waited_for) {
  const TestFolder folder;
  const std::string path = folder.Put("f", "old");
  folder.Put(kScratch, "");
  Descriptor holder(open(folder.File(kScratch).c_str(), O_RDWR | O_CLOEXEC));
  ASSERT_EQ(flock(holder.get(), LOCK_EX), 0);
  std::thread release([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_EQ(folder.Get("f"), "old");
    holder = Descriptor();
  });
  EXPECT_TRUE(Append(path, "+new"));
  release.join();
  EXPECT_EQ(folder.Get("f"), "old+new");
}

TEST(AtomicEditLock, the_wait_for_a_lock_ends) {
  const TestFolder folder;
  const std::string path = folder.Put("f", "old");
  folder.Put(kScratch, "");
  const Descriptor holder(open(folder.File(kScratch).c_str(), O_RDWR | O_CLOEXEC));
  ASSERT_EQ(flock(holder.get(), LOCK_EX), 0);
  FailingCalls calls;  // whose pauses take no time
  EXPECT_FALSE(Append(calls, path, "+new"));
  EXPECT_EQ(calls.pauses, 10000);
  EXPECT_EQ(folder.Get("f"), "old");
}

TEST(AtomicEditLock, a_pause_is_short) {
  const auto start = std::chrono::steady_clock::now();
  FileCalls().Pause();
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));
}

// The lock comes too late: its holder has renamed the file to the target in the meantime.
TEST(AtomicEditLock, a_lock_on_a_file_that_has_become_the_target_is_no_lock) {
  class LateCalls : public FileCalls {
   public:
    std::string folder;
    int TryLock(int file) override {
      if (!folder.empty()) {
        std::filesystem::rename(folder + "/" + kScratch, folder + "/f");
        folder.clear();
      }
      return FileCalls::TryLock(file);
    }
  } calls;
  const TestFolder folder;
  folder.Put(kScratch, "of the other writer");
  calls.folder = folder.path();
  EXPECT_TRUE(Append(calls, folder.File("f"), "+new"));
  EXPECT_EQ(folder.Get("f"), "of the other writer+new");
}

TEST(AtomicEditLock, threads_and_processes_lose_no_edit) {
  constexpr int kEdits = 50;
  const TestFolder folder;
  const std::string path = folder.File("f");
  const auto edit_often = [&](char letter) {
    int failures = 0;
    for (int i = 0; i < kEdits; ++i)
      failures += Append(path, std::string(1, letter)) ? 0 : 1;
    return failures == 0;
  };
  const pid_t first = InChild([&] { return edit_often('a'); });
  const pid_t second = InChild([&] { return edit_often('b'); });
  std::thread third([&] { EXPECT_TRUE(edit_often('c')); });
  std::thread fourth([&] { EXPECT_TRUE(edit_often('d')); });
  third.join();
  fourth.join();
  EXPECT_TRUE(Succeeded(first));
  EXPECT_TRUE(Succeeded(second));
  const std::string text = folder.Get("f");
  for (const char letter : {'a', 'b', 'c', 'd'}) {
    EXPECT_EQ(std::count(text.begin(), text.end(), letter), kEdits) << letter;
  }
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"f"});
}

TEST(AtomicEditLock, readers_never_see_half_an_edit) {
  const TestFolder folder;
  const std::string path = folder.Put("f", std::string(50000, 'a'));
  FileCalls calls;
  const pid_t writer = InChild([&] {
    for (int i = 0; i < 100; ++i) {
      const char letter = i % 2 == 0 ? 'b' : 'a';
      if (!EditFile(calls, path, kLimit, [&](std::string_view) {
            return std::string(static_cast<std::size_t>(50000 - i), letter);
          })) {
        return false;
      }
    }
    return true;
  });
  int status = 0;
  int reads = 0;
  for (; waitpid(writer, &status, WNOHANG) == 0; ++reads) {
    const std::string text = folder.Get("f");
    ASSERT_GE(text.size(), 49900U);
    ASSERT_EQ(text.find_first_not_of(text[0]), std::string::npos);
  }
  EXPECT_EQ(status, 0);
  EXPECT_GT(reads, 0);
}

}  // namespace
}  // namespace vandpublic
