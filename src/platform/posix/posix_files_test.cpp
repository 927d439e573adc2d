#include "platform/posix/posix_files.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <csignal>
#include <cstring>
#include <fstream>

#include "support/temp_folder.h"
#include "support/test_component.h"

namespace vandpublic {
namespace {

namespace fs = std::filesystem;

// Both modes, for what they have in common.
constexpr OpenMode kModes[] = {OpenMode::Output, OpenMode::Append};

class PosixFilesTest : public testing::Test {
 protected:
  Raised Write(std::u16string_view path, OpenMode mode, std::string_view bytes = "new") {
    return RaisedBy([&] { WriteFile(files_, path, mode, bytes); });
  }
  // The fault that opening the path in this mode raises; the file is not written.
  Raised Open(std::u16string_view path, OpenMode mode) {
    return RaisedBy([&] { files_.Open(path, mode); });
  }

  PosixFiles files_;
  TempFolder folder_;
};

int OpenDescriptors() {
  int count = 0;
  for ([[maybe_unused]] const auto& entry : fs::directory_iterator("/proc/self/fd"))
    ++count;
  return count;
}

TEST_F(PosixFilesTest, Output_creates_or_empties_and_append_creates_or_adds) {
  EXPECT_EQ(Write(folder_.Inside("o"), OpenMode::Output), kNothingRaised);
  EXPECT_EQ(Write(folder_.Inside("a"), OpenMode::Append), kNothingRaised);
  EXPECT_EQ(folder_.Read("o"), "new");
  EXPECT_EQ(folder_.Read("a"), "new");
  EXPECT_EQ(Write(folder_.Inside("o"), OpenMode::Output, "x"), kNothingRaised);
  EXPECT_EQ(Write(folder_.Inside("a"), OpenMode::Append, "x"), kNothingRaised);
  EXPECT_EQ(folder_.Read("o"), "x");
  EXPECT_EQ(folder_.Read("a"), "newx");
}

TEST_F(PosixFilesTest, All_bytes_arrive) {
  std::string bytes(3'000'000, 'x');
  bytes[1] = '\0';
  bytes[2] = '\xFF';
  EXPECT_EQ(Write(folder_.Inside("big"), OpenMode::Output, bytes), kNothingRaised);
  EXPECT_EQ(folder_.Read("big"), bytes);
}

TEST_F(PosixFilesTest, Opening_for_output_empties_the_file_at_once) {
  folder_.Write("f", "old");
  const auto file = files_.Open(folder_.Inside("f"), OpenMode::Output);
  EXPECT_EQ(folder_.Read("f"), "");
}

TEST_F(PosixFilesTest, Writes_of_two_appenders_do_not_overwrite_each_other) {
  const auto first = files_.Open(folder_.Inside("f"), OpenMode::Append);
  const auto second = files_.Open(folder_.Inside("f"), OpenMode::Append);
  first->Write("1");
  second->Write("2");
  first->Write("3");
  first->Close();
  second->Close();
  EXPECT_EQ(folder_.Read("f"), "123");
}

TEST_F(PosixFilesTest, A_backslash_separates_folders) {
  fs::create_directory(folder_.path() / "sub");
  EXPECT_EQ(Write(folder_.Inside("sub\\f"), OpenMode::Output), kNothingRaised);
  EXPECT_EQ(folder_.Read("sub/f"), "new");
  EXPECT_EQ(Write(folder_.Inside("sub\\\\f"), OpenMode::Append), kNothingRaised);
  EXPECT_EQ(folder_.Read("sub/f"), "newnew");
}

TEST_F(PosixFilesTest, Names_are_UTF8_on_disk) {
  EXPECT_EQ(Write(folder_.Inside("\xC3\xA9\xE4\xB8\xAD"), OpenMode::Output), kNothingRaised);
  EXPECT_TRUE(fs::exists(folder_.path() / "\xC3\xA9\xE4\xB8\xAD"));
}

TEST_F(PosixFilesTest, A_missing_folder_is_fault_76_and_is_not_created) {
  for (const OpenMode mode : kModes) {
    EXPECT_EQ(Open(folder_.Inside("LOG\\ERROR.log"), mode), PlainFault(FaultNumber::PathNotFound));
    EXPECT_EQ(Open(folder_.Inside("f/g/h"), mode), PlainFault(FaultNumber::PathNotFound));
  }
  EXPECT_TRUE(fs::is_empty(folder_.path()));
}

TEST_F(PosixFilesTest, A_file_where_a_folder_is_named_is_fault_76) {
  folder_.Write("f", "old");
  for (const OpenMode mode : kModes) {
    EXPECT_EQ(Open(folder_.Inside("f/g"), mode), PlainFault(FaultNumber::PathNotFound));
    EXPECT_EQ(Open(folder_.Inside("f/"), mode), PlainFault(FaultNumber::PathNotFound));
  }
  EXPECT_EQ(folder_.Read("f"), "old");
}

TEST_F(PosixFilesTest, A_folder_is_fault_75) {
  fs::create_directory(folder_.path() / "sub");
  for (const OpenMode mode : kModes) {
    for (const char* name : {"sub", "sub/", "sub\\", ".", ".."}) {
      EXPECT_EQ(Open(folder_.Inside(name), mode), PlainFault(FaultNumber::PathFileAccessError))
          << name;
    }
  }
}

TEST_F(PosixFilesTest, A_new_name_with_a_final_slash_is_refused) {
  for (const OpenMode mode : kModes) {
    EXPECT_EQ(Open(folder_.Inside("fresh\\"), mode), PlainFault(FaultNumber::PathFileAccessError));
  }
  EXPECT_TRUE(fs::is_empty(folder_.path()));
}

TEST_F(PosixFilesTest, An_empty_name_is_fault_75) {
  for (const OpenMode mode : kModes)
    EXPECT_EQ(Open(u"", mode), PlainFault(FaultNumber::PathFileAccessError));
}

TEST_F(PosixFilesTest, A_read_only_file_is_fault_75_for_the_superuser_too) {
  folder_.Write("f", "old");
  ASSERT_EQ(chmod((folder_.path() / "f").c_str(), 0444), 0);
  for (const OpenMode mode : kModes) {
    EXPECT_EQ(Open(folder_.Inside("f"), mode), PlainFault(FaultNumber::PathFileAccessError));
  }
  EXPECT_EQ(folder_.Read("f"), "old");
}

TEST_F(PosixFilesTest, A_folder_without_write_permission_is_fault_75) {
  constexpr uid_t kNobody = 65534;
  const uid_t self = geteuid();
  ASSERT_EQ(chmod(folder_.path().c_str(), 0555), 0);
  // The superuser may write everywhere.
  ASSERT_EQ(seteuid(self == 0 ? kNobody : self), 0);
  const Raised output = Open(folder_.Inside("f"), OpenMode::Output);
  const Raised append = Open(folder_.Inside("f"), OpenMode::Append);
  ASSERT_EQ(seteuid(self), 0);
  ASSERT_EQ(chmod(folder_.path().c_str(), 0755), 0);
  EXPECT_EQ(output, PlainFault(FaultNumber::PathFileAccessError));
  EXPECT_EQ(append, PlainFault(FaultNumber::PathFileAccessError));
}

TEST_F(PosixFilesTest, An_existing_hidden_file_is_not_emptied_but_may_grow) {
  folder_.Write(".hidden", "old");
  EXPECT_EQ(Open(folder_.Inside(".hidden"), OpenMode::Output),
            PlainFault(FaultNumber::PathFileAccessError));
  EXPECT_EQ(folder_.Read(".hidden"), "old");
  EXPECT_EQ(Write(folder_.Inside(".hidden"), OpenMode::Append), kNothingRaised);
  EXPECT_EQ(folder_.Read(".hidden"), "oldnew");
}

TEST_F(PosixFilesTest, A_hidden_file_that_is_not_there_is_created) {
  EXPECT_EQ(Write(folder_.Inside(".fresh"), OpenMode::Output), kNothingRaised);
  EXPECT_EQ(folder_.Read(".fresh"), "new");
}

TEST_F(PosixFilesTest, A_file_in_a_hidden_folder_is_not_hidden) {
  fs::create_directory(folder_.path() / ".sub");
  folder_.Write(".sub/f", "old");
  EXPECT_EQ(Write(folder_.Inside(".sub/f"), OpenMode::Output), kNothingRaised);
  EXPECT_EQ(folder_.Read(".sub/f"), "new");
}

TEST_F(PosixFilesTest, Names_that_cannot_be_are_fault_52) {
  const std::u16string cases[] = {
      folder_.Inside("*"),
      folder_.Inside("a?b"),
      folder_.Inside("a") + u'\0' + u"b",
      folder_.Inside(std::string(300, 'x')),
      folder_.Inside("f") + std::u16string(5000, u'/'),
  };
  for (const OpenMode mode : kModes) {
    for (const std::u16string& path : cases)
      EXPECT_EQ(Open(path, mode), PlainFault(FaultNumber::BadFileName));
  }
  EXPECT_TRUE(fs::is_empty(folder_.path()));
}

TEST_F(PosixFilesTest, A_full_device_is_fault_61) {
  if (!fs::exists("/dev/full")) GTEST_SKIP() << "there is no /dev/full here";
  for (const OpenMode mode : kModes)
    EXPECT_EQ(Write(u"/dev/full", mode), PlainFault(FaultNumber::DiskFull));
}

TEST_F(PosixFilesTest, A_device_can_be_written) {
  for (const OpenMode mode : kModes)
    EXPECT_EQ(Write(u"\\dev\\null", mode), kNothingRaised);
}

TEST_F(PosixFilesTest, A_pipe_is_refused_without_waiting_for_a_reader) {
  const std::string pipe = folder_.path() / "pipe";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  for (const OpenMode mode : kModes) {
    EXPECT_EQ(Open(folder_.Inside("pipe"), mode), PlainFault(FaultNumber::PathFileAccessError));
  }
}

TEST_F(PosixFilesTest, A_pipe_with_a_reader_is_refused_too) {
  const std::string pipe = folder_.path() / "pipe";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  // Opened for both ways a pipe waits for nobody.
  const std::fstream both(pipe, std::ios::in | std::ios::out);
  ASSERT_TRUE(both.is_open());
  EXPECT_EQ(Open(folder_.Inside("pipe"), OpenMode::Append),
            PlainFault(FaultNumber::PathFileAccessError));
}

TEST_F(PosixFilesTest, A_socket_is_refused) {
  const std::string path = folder_.path() / "socket";
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  ASSERT_LT(path.size(), sizeof address.sun_path);
  std::memcpy(address.sun_path, path.c_str(), path.size() + 1);
  const int descriptor = socket(AF_UNIX, SOCK_STREAM, 0);
  ASSERT_GE(descriptor, 0);
  ASSERT_EQ(bind(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
  EXPECT_EQ(Open(folder_.Inside("socket"), OpenMode::Append),
            PlainFault(FaultNumber::PathFileAccessError));
  close(descriptor);
}

TEST_F(PosixFilesTest, A_link_is_followed) {
  folder_.Write("target", "old");
  fs::create_symlink("target", folder_.path() / "link");
  EXPECT_EQ(Write(folder_.Inside("link"), OpenMode::Output), kNothingRaised);
  EXPECT_EQ(folder_.Read("target"), "new");
}

TEST_F(PosixFilesTest, A_link_to_nothing_creates_what_it_names) {
  fs::create_symlink("target", folder_.path() / "link");
  EXPECT_EQ(Write(folder_.Inside("link"), OpenMode::Output), kNothingRaised);
  EXPECT_EQ(folder_.Read("target"), "new");
}

TEST_F(PosixFilesTest, A_link_in_a_circle_is_fault_57) {
  fs::create_symlink("link", folder_.path() / "link");
  EXPECT_EQ(Open(folder_.Inside("link"), OpenMode::Append), PlainFault(FaultNumber::DeviceIoError));
}

TEST_F(PosixFilesTest, No_handle_left_is_fault_67) {
  rlimit limit{};
  ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &limit), 0);
  const rlim_t before = limit.rlim_cur;
  limit.rlim_cur = 0;
  ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &limit), 0);
  const Raised raised = Open(u"/dev/null", OpenMode::Append);
  limit.rlim_cur = before;
  ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &limit), 0);
  EXPECT_EQ(raised, PlainFault(FaultNumber::TooManyFiles));
}

TEST_F(PosixFilesTest, A_file_larger_than_allowed_is_fault_61) {
  rlimit limit{};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &limit), 0);
  const rlim_t before = limit.rlim_cur;
  const auto old_handler = std::signal(SIGXFSZ, SIG_IGN);
  limit.rlim_cur = 4;
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
  const Raised raised = Write(folder_.Inside("f"), OpenMode::Output, "12345678");
  limit.rlim_cur = before;
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
  std::signal(SIGXFSZ, old_handler);
  EXPECT_EQ(raised, PlainFault(FaultNumber::DiskFull));
  EXPECT_EQ(folder_.Read("f"), "1234") << "what fits is written";
}

TEST_F(PosixFilesTest, Closing_and_forgetting_a_file_give_the_handle_back) {
  const int before = OpenDescriptors();
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(Write(folder_.Inside("f"), OpenMode::Append), kNothingRaised);
    EXPECT_EQ(Open(folder_.Inside("f"), OpenMode::Append), kNothingRaised) << "closed unasked";
    EXPECT_NE(Open(folder_.Inside("."), OpenMode::Append), kNothingRaised);
  }
  ASSERT_EQ(mkfifo((folder_.path() / "pipe").c_str(), 0600), 0);
  const std::fstream both(folder_.path() / "pipe", std::ios::in | std::ios::out);
  EXPECT_NE(Open(folder_.Inside("pipe"), OpenMode::Append), kNothingRaised);
  EXPECT_EQ(OpenDescriptors(), before + 1) << "the test's own pipe";
}

TEST_F(PosixFilesTest, A_file_that_is_given_up_stays_open) {
  const int before = OpenDescriptors();
  {
    const auto file = files_.Open(folder_.Inside("f"), OpenMode::Output);
    file->Write("x");
    file->GiveUp();
  }
  EXPECT_EQ(OpenDescriptors(), before + 1);
  EXPECT_EQ(folder_.Read("f"), "x");
}

TEST_F(PosixFilesTest, A_file_closed_twice_is_an_error_and_not_a_danger) {
  const auto file = files_.Open(folder_.Inside("f"), OpenMode::Output);
  file->Close();
  EXPECT_EQ(RaisedBy([&] { file->Close(); }), PlainFault(FaultNumber::DeviceIoError));
}

}  // namespace
}  // namespace vandpublic
