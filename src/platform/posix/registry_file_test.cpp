#include "platform/posix/registry_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <thread>
#include <utility>

#include "platform/code_page.h"
#include "platform/posix/failing_calls.h"
#include "platform/posix/test_folder.h"

namespace vandpublic {
namespace {

using std::string_literals::operator""s;

std::string FileWith(std::string_view value) {
  return "REGEDIT4\n[HKEY_LOCAL_MACHINE\\Software\\K\xE4]\n\"V\xF6\"=\"" + std::string(value) +
         "\"\n@=dword:1\n";
}

class RegistryFileTest : public testing::Test {
 protected:
  std::optional<std::string> Value() { return registry_.Read("Software\\K\xE4", "V\xF6"); }

  TestFolder folder_;
  std::shared_ptr<FailingCalls> calls_ = std::make_shared<FailingCalls>();
  RegistryFile registry_{FindCodePage(1252), folder_.File("r.reg"), calls_};
};

TEST_F(RegistryFileTest, values_are_found_by_names_of_the_ANSI_page) {
  folder_.Put("r.reg", FileWith("v"));
  EXPECT_EQ(registry_.Read("Software\\K\xE4", "V\xF6"), "v\0"s);
  EXPECT_EQ(registry_.Read("SOFTWARE\\k\xC4\\", "v\xD6"), "v\0"s);
  EXPECT_EQ(registry_.Read("Software\\K\xE4", ""), "\1\0\0\0"s);
  EXPECT_EQ(registry_.Read("Software\\K\xE4\0x"s, "V\xF6\0x"s), "v\0"s);
  EXPECT_EQ(registry_.Read("Software\\K\xE4", "W"), std::nullopt);
  EXPECT_EQ(registry_.Read("Software", "V\xF6"), std::nullopt);
  EXPECT_EQ(registry_.Read("", ""), std::nullopt);
}

TEST_F(RegistryFileTest, the_default_path_is_machine_wide) {
  EXPECT_STREQ(kRegistryFilePath, "/etc/vandpublic/registry.reg");
}

TEST_F(RegistryFileTest, a_missing_file_holds_nothing_until_it_comes) {
  EXPECT_EQ(Value(), std::nullopt);
  folder_.Put("r.reg", FileWith("v"));
  EXPECT_EQ(Value(), "v\0"s);
  std::filesystem::remove(folder_.File("r.reg"));
  EXPECT_EQ(Value(), std::nullopt);
}

TEST_F(RegistryFileTest, what_is_no_file_holds_nothing) {
  std::filesystem::create_directory(folder_.File("r.reg"));
  EXPECT_EQ(Value(), std::nullopt);
  std::filesystem::remove(folder_.File("r.reg"));
  ASSERT_EQ(mkfifo(folder_.File("r.reg").c_str(), 0600), 0);
  EXPECT_EQ(Value(), std::nullopt);
}

TEST_F(RegistryFileTest, a_file_above_the_limit_holds_nothing) {
  folder_.Put("r.reg", FileWith("v"));
  std::filesystem::resize_file(folder_.File("r.reg"), kRegistryFileLimit + 1);
  EXPECT_EQ(Value(), std::nullopt);
}

// Same size, same file, and often the same tick of the clock.
TEST_F(RegistryFileTest, every_change_shows_at_once) {
  for (int i = 0; i < 100; ++i) {
    const std::string value(1, static_cast<char>('a' + i % 26));
    folder_.Put("r.reg", FileWith(value));
    ASSERT_EQ(Value(), value + '\0') << i;
  }
}

// Shows every file as it was changed ten seconds earlier.
class OldFileCalls : public FailingCalls {
 public:
  int Status(int file, struct stat& status) override {
    const int result = FailingCalls::Status(file, status);
    status.st_ctim.tv_sec -= 10;
    return result;
  }
  int FollowedStatus(const char* path, struct stat& status) override {
    const int result = FailingCalls::FollowedStatus(path, status);
    status.st_ctim.tv_sec -= 10;
    return result;
  }
};

TEST_F(RegistryFileTest, a_settled_file_is_read_once) {
  const auto calls = std::make_shared<OldFileCalls>();
  RegistryFile registry(FindCodePage(1252), folder_.Put("r.reg", FileWith("v")), calls);
  EXPECT_EQ(registry.Read("Software\\K\xE4", "V\xF6"), "v\0"s);
  EXPECT_GT(std::exchange(calls->calls, 0), 1);
  EXPECT_EQ(registry.Read("Software\\K\xE4", "V\xF6"), "v\0"s);
  EXPECT_EQ(calls->calls, 1) << "one look at its state";

  folder_.Put("r.reg", FileWith("another"));
  EXPECT_EQ(registry.Read("Software\\K\xE4", "V\xF6"), "another\0"s) << "a change after that";
}

TEST_F(RegistryFileTest, a_failing_call_reads_as_an_empty_store) {
  folder_.Put("r.reg", FileWith("v"));
  EXPECT_EQ(Value(), "v\0"s);
  calls_->fail_from = 0;
  EXPECT_EQ(Value(), std::nullopt);
  calls_->fail_to = 0;
  EXPECT_EQ(Value(), "v\0"s);
}

TEST_F(RegistryFileTest, threads_may_share_it) {
  folder_.Put("r.reg", FileWith("v"));
  RegistryFile shared(FindCodePage(1252), folder_.File("r.reg"));
  const auto read_often = [&] {
    for (int i = 0; i < 200; ++i)
      EXPECT_EQ(shared.Read("Software\\K\xE4", "V\xF6"), "v\0"s);
  };
  std::thread first(read_often);
  std::thread second(read_often);
  first.join();
  second.join();
}

}  // namespace
}  // namespace vandpublic
