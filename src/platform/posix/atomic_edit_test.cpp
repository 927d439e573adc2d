#include "platform/posix/atomic_edit.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <functional>

#include "platform/posix/descriptor.h"
#include "platform/posix/failing_calls.h"
#include "platform/posix/test_child.h"
#include "platform/posix/test_folder.h"

namespace vandpublic {
namespace {

constexpr std::size_t kLimit = 100000;

bool Append(FileCalls& calls, const std::string& path, std::string_view bytes) {
  return EditFile(calls, path, kLimit,
                  [&](std::string_view old) { return std::string(old) + std::string(bytes); });
}

bool Append(const std::string& path, std::string_view bytes) {
  FileCalls calls;
  return Append(calls, path, bytes);
}

struct stat StatusOf(const std::string& path) {
  struct stat status {};
  EXPECT_EQ(lstat(path.c_str(), &status), 0) << path;
  return status;
}

void SetMode(const std::string& path, mode_t mode) { ASSERT_EQ(chmod(path.c_str(), mode), 0); }

TEST(AtomicEdit, a_missing_file_is_created_as_the_mask_says) {
  const TestFolder folder;
  const mode_t mask = umask(027);
  EXPECT_TRUE(Append(folder.File("f"), "new"));
  umask(mask);
  EXPECT_EQ(folder.Get("f"), "new");
  EXPECT_EQ(StatusOf(folder.File("f")).st_mode, mode_t{S_IFREG | 0640});
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"f"});
}

TEST(AtomicEdit, a_missing_file_is_created_even_when_empty) {
  const TestFolder folder;
  EXPECT_TRUE(Append(folder.File("f"), ""));
  EXPECT_EQ(folder.Get("f"), "");
}

TEST(AtomicEdit, the_file_is_replaced_and_not_changed) {
  const TestFolder folder;
  const std::string path = folder.Put("f", "old");
  const Descriptor reader(open(path.c_str(), O_RDONLY));
  EXPECT_TRUE(Append(path, "+new"));
  EXPECT_EQ(folder.Get("f"), "old+new");
  char bytes[10];
  EXPECT_EQ(read(reader.get(), bytes, sizeof bytes), 3) << "a reader has the old file to its end";
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"f"});
}

TEST(AtomicEdit, equal_bytes_are_not_written) {
  const TestFolder folder;
  const std::string path = folder.Put("f", "old");
  const ino_t before = StatusOf(path).st_ino;
  EXPECT_TRUE(Append(path, ""));
  EXPECT_EQ(StatusOf(path).st_ino, before);
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"f"});
}

TEST(AtomicEdit, a_name_without_a_folder_means_the_current_one) {
  const TestFolder folder;
  EXPECT_TRUE(Succeeded(InChild([&] {
    return chdir(folder.path().c_str()) == 0 && Append("f", "1") && Append("./f", "2");
  })));
  EXPECT_EQ(folder.Get("f"), "12");
}

TEST(AtomicEdit, what_is_no_file_is_refused) {
  const TestFolder folder;
  folder.Put("plain", "x");
  std::filesystem::create_directory(folder.File("sub"));
  ASSERT_EQ(mkfifo(folder.File("pipe").c_str(), 0600), 0);
  std::filesystem::create_symlink("loop", folder.File("loop"));
  const auto before = folder.Names();
  for (const char* const name : {"missing/f", "plain/f", "sub", "sub/", "pipe", "loop", "."}) {
    EXPECT_FALSE(Append(folder.File(name), "x")) << name;
  }
  EXPECT_FALSE(Append("", "x"));
  EXPECT_FALSE(Append("/dev/null", "x"));
  EXPECT_EQ(folder.Names(), before);
}

TEST(AtomicEdit, a_file_without_write_permission_is_refused_to_the_superuser_too) {
  const TestFolder folder;
  const std::string path = folder.Put("f", "old");
  SetMode(path, 0444);
  EXPECT_FALSE(Append(path, "x"));
  EXPECT_EQ(folder.Get("f"), "old");
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"f"});
}

TEST(AtomicEdit, sizes_above_the_limit_are_refused) {
  const TestFolder folder;
  const std::string path = folder.Put("f", std::string(kLimit, 'x'));
  EXPECT_FALSE(Append(path, "y")) << "after the edit";
  folder.Put("f", std::string(kLimit + 1, 'x'));
  FileCalls calls;
  EXPECT_FALSE(EditFile(calls, path, kLimit, [](std::string_view) { return "small"; })) << "before";
  EXPECT_EQ(folder.Get("f").size(), kLimit + 1);
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"f"});
}

TEST(AtomicEdit, a_name_too_long_for_the_scratch_file_is_refused) {
  const TestFolder folder;
  EXPECT_TRUE(Append(folder.File(std::string(243, 'n')), "x"));
  EXPECT_FALSE(Append(folder.File(std::string(244, 'n')), "x"));
}

TEST(AtomicEdit, permissions_and_owner_are_kept) {
  const TestFolder folder;
  const std::string path = folder.Put("f", "old");
  if (geteuid() == 0) {
    ASSERT_EQ(chown(path.c_str(), 1234, 2345), 0);
  }
  SetMode(path, 0604);
  const struct stat before = StatusOf(path);
  EXPECT_TRUE(Append(path, "x"));
  const struct stat after = StatusOf(path);
  EXPECT_EQ(after.st_mode, before.st_mode);
  EXPECT_EQ(after.st_uid, before.st_uid);
  EXPECT_EQ(after.st_gid, before.st_gid);
}

TEST(AtomicEdit, an_owner_that_cannot_be_kept_gives_nobody_more_rights) {
  if (geteuid() != 0) GTEST_SKIP() << "only the superuser can make another's file";
  class NoOwnerCalls : public FileCalls {
    int ChangeOwner(int, uid_t, gid_t) override { return -1; }
  } calls;
  const TestFolder folder;
  const std::string path = folder.Put("f", "old");
  ASSERT_EQ(chown(path.c_str(), 1234, 2345), 0);
  SetMode(path, 0664);
  EXPECT_TRUE(Append(calls, path, "x"));
  EXPECT_EQ(StatusOf(path).st_mode, mode_t{S_IFREG | 0644}) << "the group is another";
  EXPECT_EQ(StatusOf(path).st_gid, getegid());
}

TEST(AtomicEdit, links_are_followed_and_kept) {
  const TestFolder folder;
  std::filesystem::create_directory(folder.File("sub"));
  folder.Put("sub/f", "old");
  std::filesystem::create_symlink("sub/f", folder.File("relative"));
  std::filesystem::create_symlink(folder.File("relative"), folder.File("absolute"));
  std::filesystem::create_symlink("sub/new", folder.File("dangling"));
  EXPECT_TRUE(Append(folder.File("absolute"), "+1"));
  EXPECT_TRUE(Append(folder.File("dangling"), "made"));
  EXPECT_EQ(folder.Get("sub/f"), "old+1");
  EXPECT_EQ(folder.Get("sub/new"), "made");
  for (const char* const link : {"relative", "absolute", "dangling"}) {
    EXPECT_TRUE(std::filesystem::is_symlink(folder.File(link))) << link;
  }
}

TEST(AtomicEdit, a_link_into_a_missing_folder_is_refused) {
  const TestFolder folder;
  std::filesystem::create_symlink("missing/f", folder.File("link"));
  EXPECT_FALSE(Append(folder.File("link"), "x"));
}

TEST(AtomicEdit, another_user_may_edit_only_what_he_may_write) {
  if (geteuid() != 0) GTEST_SKIP() << "only the superuser can become another user";
  const TestFolder folder;
  SetMode(folder.path(), 0777);
  const auto as_another_user = [&](const std::function<bool()>& work) {
    return Succeeded(InChild([&] { return setgid(2345) == 0 && setuid(1234) == 0 && work(); }));
  };
  SetMode(folder.Put("f", "old"), 0644);
  EXPECT_FALSE(as_another_user([&] { return Append(folder.File("f"), "x"); }));
  EXPECT_EQ(folder.Get("f"), "old");
  SetMode(folder.File("f"), 0666);
  EXPECT_TRUE(as_another_user([&] { return Append(folder.File("f"), "+x"); }));
  EXPECT_EQ(folder.Get("f"), "old+x");
  SetMode(folder.path(), 0755);
  EXPECT_FALSE(as_another_user([&] { return Append(folder.File("f"), "+y"); })) << "folder";
  SetMode(folder.path(), 0733);
  EXPECT_TRUE(as_another_user([&] { return Append(folder.File("f"), "+z"); }))
      << "a folder need not be readable";
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"f"});
}

// Every call fails in turn, once alone and once with all calls after it: the file is old and the
// result false, or it is new and the result true.
TEST(AtomicEdit, any_failing_call_leaves_the_old_or_the_new_file) {
  for (const bool all_later : {false, true}) {
    for (const bool exists : {true, false}) {
      bool done = false;
      int failed_edits = 0;
      for (int call = 1; !done; ++call) {
        const TestFolder folder;
        if (exists) folder.Put("f", "old");
        FailingCalls calls;
        calls.error = ENOSPC;
        calls.fail_from = call;
        if (!all_later) calls.fail_to = call;
        const bool result = Append(calls, folder.File("f"), "+new");
        done = calls.calls < call;
        failed_edits += result ? 0 : 1;
        const std::string old_text = exists ? "old" : "(missing)";
        const std::string new_text = exists ? "old+new" : "+new";
        EXPECT_EQ(folder.Get("f"), result ? new_text : old_text)
            << call << ' ' << all_later << exists;
        EXPECT_TRUE(Append(folder.File("f"), "")) << "the next edit is not hindered";
        EXPECT_EQ(folder.Names(), std::vector<std::string>{"f"}) << "nothing stays behind";
      }
      EXPECT_GT(failed_edits, 6);
    }
  }
}

TEST(AtomicEdit, a_failing_call_leaves_a_links_target_alone) {
  bool done = false;
  for (int call = 1; !done; ++call) {
    const TestFolder folder;
    folder.Put("f", "old");
    std::filesystem::create_symlink("f", folder.File("link"));
    FailingCalls calls;
    calls.fail_from = calls.fail_to = call;
    const bool result = Append(calls, folder.File("link"), "+new");
    done = calls.calls < call;
    EXPECT_EQ(folder.Get("f"), result ? "old+new" : "old") << call;
    EXPECT_TRUE(std::filesystem::is_symlink(folder.File("link"))) << call;
  }
}

TEST(AtomicEdit, short_writes_are_continued) {
  const TestFolder folder;
  FailingCalls calls;
  calls.most_bytes = 3;
  EXPECT_TRUE(Append(calls, folder.Put("f", "old text"), " and new text"));
  EXPECT_EQ(folder.Get("f"), "old text and new text");
}

TEST(AtomicEdit, a_full_disk_leaves_the_old_file) {
  const TestFolder folder;
  const std::string path = folder.Put("f", std::string(5000, 'x'));
  EXPECT_TRUE(Succeeded(InChild([&] {
    const rlimit limit{8192, 8192};
    signal(SIGXFSZ, SIG_IGN);
    if (setrlimit(RLIMIT_FSIZE, &limit) != 0) return false;
    return !Append(path, std::string(5000, 'y')) && Append(path, "z");
  })));
  EXPECT_EQ(folder.Get("f"), std::string(5000, 'x') + 'z');
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"f"});
}

}  // namespace
}  // namespace vandpublic
