#include "platform/posix/ini_files.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>

#include "platform/code_page.h"
#include "platform/posix/failing_calls.h"
#include "platform/posix/test_child.h"
#include "platform/posix/test_folder.h"

namespace vandpublic {
namespace {

using std::string_literals::operator""s;

class IniFilesTest : public testing::Test {
 protected:
  TestFolder folder_;
  PosixIniFiles ini_{FindCodePage(1252)};
};

TEST_F(IniFilesTest, Write_creates_the_file_and_Read_finds_the_value) {
  const std::string file = folder_.File("a.ini");
  EXPECT_TRUE(ini_.Write(file, "S", "K", "v"));
  EXPECT_EQ(ini_.Read(file, "s", "k", "d"), "v");
  EXPECT_EQ(folder_.Get("a.ini"), "[S]\r\nK=v\r\n");
  EXPECT_EQ(folder_.Names(), std::vector<std::string>{"a.ini"});
}

TEST_F(IniFilesTest, Read_of_a_missing_file_gives_the_default) {
  EXPECT_EQ(ini_.Read(folder_.File("a.ini"), "S", "K", "d  "), "d");
  EXPECT_EQ(ini_.Read(folder_.File("x/a.ini"), "S", "K", "d"), "d");
  EXPECT_EQ(ini_.Read("", "S", "K", "d"), "d");
}

TEST_F(IniFilesTest, Write_does_not_create_a_folder) {
  EXPECT_FALSE(ini_.Write(folder_.File("x/a.ini"), "S", "K", "v"));
  EXPECT_FALSE(ini_.Write("", "S", "K", "v"));
  EXPECT_FALSE(ini_.Write(folder_.path(), "S", "K", "v"));
  EXPECT_EQ(folder_.Names(), std::vector<std::string>{});
}

TEST_F(IniFilesTest, a_backslash_separates_folders) {
  std::filesystem::create_directory(folder_.File("sub"));
  EXPECT_TRUE(ini_.Write(folder_.path() + "\\sub\\a.ini", "S", "K", "v"));
  EXPECT_EQ(folder_.Get("sub/a.ini"), "[S]\r\nK=v\r\n");
  EXPECT_EQ(ini_.Read(folder_.path() + "\\sub/a.ini", "S", "K", "d"), "v");
}

TEST_F(IniFilesTest, the_second_half_of_a_character_is_no_backslash) {
  PosixIniFiles ini(FindCodePage(932));
  EXPECT_TRUE(ini.Write(folder_.path() + "/\x83\x5C.ini", "S", "K", "v"));
  EXPECT_EQ(folder_.Names(), std::vector<std::string>{"\xE3\x82\xBD.ini"});
}

TEST_F(IniFilesTest, file_names_are_UTF_8_on_the_disk) {
  EXPECT_TRUE(ini_.Write(folder_.File("\xE4.ini"), "S", "K", "v"));
  EXPECT_EQ(folder_.Names(), std::vector<std::string>{"\xC3\xA4.ini"});
  EXPECT_EQ(ini_.Read(folder_.File("\xE4.ini"), "S", "K", "d"), "v");
}

TEST_F(IniFilesTest, blanks_and_case_of_a_file_name_count) {
  EXPECT_TRUE(ini_.Write(folder_.File("A.ini "), "S", "K", "v"));
  EXPECT_EQ(ini_.Read(folder_.File("A.ini"), "S", "K", "d"), "d");
  EXPECT_EQ(ini_.Read(folder_.File("a.ini "), "S", "K", "d"), "d");
  EXPECT_EQ(ini_.Read(folder_.File("A.ini "), "S", "K", "d"), "v");
}

TEST_F(IniFilesTest, wildcards_name_no_file) {
  folder_.Put("*.ini", "[S]\nK=v");
  folder_.Put("?.ini", "[S]\nK=v");
  for (const char* const name : {"*.ini", "?.ini"}) {
    EXPECT_EQ(ini_.Read(folder_.File(name), "S", "K", "d"), "d") << name;
    EXPECT_FALSE(ini_.Write(folder_.File(name), "S", "K", "w")) << name;
  }
  EXPECT_EQ(folder_.Get("*.ini"), "[S]\nK=v");
}

TEST_F(IniFilesTest, a_name_without_a_folder_means_the_current_one) {
  EXPECT_TRUE(Succeeded(InChild([&] {
    return chdir(folder_.path().c_str()) == 0 && ini_.Write("a.ini", "S", "K", "v") &&
           ini_.Read("a.ini", "S", "K", "d") == "v";
  })));
  EXPECT_EQ(folder_.Get("a.ini"), "[S]\r\nK=v\r\n");
}

TEST_F(IniFilesTest, every_text_ends_at_its_first_zero_byte) {
  const std::string file = folder_.File("a.ini");
  EXPECT_TRUE(ini_.Write(file + "\0x"s, "S\0x"s, "K\0x"s, "v\0x"s));
  EXPECT_EQ(folder_.Get("a.ini"), "[S]\r\nK=v\r\n");
  EXPECT_EQ(ini_.Read(file + "\0x"s, "S\0x"s, "K\0x"s, "d"), "v");
  EXPECT_EQ(ini_.Read(file, "S", "L", "d  \0x"s), "d");
}

TEST_F(IniFilesTest, a_read_only_file_stays_as_it_is) {
  const std::string file = folder_.Put("a.ini", "[S]\nK=1\n");
  ASSERT_EQ(chmod(file.c_str(), 0444), 0);
  EXPECT_FALSE(ini_.Write(file, "S", "K", "2"));
  EXPECT_FALSE(ini_.Write(file, "S", "K", "1"));
  EXPECT_EQ(folder_.Get("a.ini"), "[S]\nK=1\n");
  EXPECT_EQ(ini_.Read(file, "S", "K", "d"), "1");
}

TEST_F(IniFilesTest, pipes_and_folders_read_as_missing_without_waiting) {
  ASSERT_EQ(mkfifo(folder_.File("pipe").c_str(), 0600), 0);
  EXPECT_EQ(ini_.Read(folder_.File("pipe"), "S", "K", "d"), "d");
  EXPECT_EQ(ini_.Read(folder_.path(), "S", "K", "d"), "d");
  EXPECT_FALSE(ini_.Write(folder_.File("pipe"), "S", "K", "v"));
}

TEST_F(IniFilesTest, a_huge_file_reads_as_missing_and_is_not_written) {
  const std::string file = folder_.Put("a.ini", "[S]\nK=1\n");
  std::filesystem::resize_file(file, kIniFileLimit + 1);
  EXPECT_EQ(ini_.Read(file, "S", "K", "d"), "d");
  EXPECT_FALSE(ini_.Write(file, "S", "K", "2"));
  EXPECT_EQ(std::filesystem::file_size(file), kIniFileLimit + 1);
}

TEST_F(IniFilesTest, a_failing_call_reads_as_missing_and_refuses_the_write) {
  const auto calls = std::make_shared<FailingCalls>();
  PosixIniFiles ini(FindCodePage(1252), calls);
  const std::string file = folder_.Put("a.ini", "[S]\nK=1\n");
  EXPECT_EQ(ini.Read(file, "S", "K", "d"), "1");
  calls->fail_from = 0;
  EXPECT_EQ(ini.Read(file, "S", "K", "d"), "d");
  EXPECT_FALSE(ini.Write(file, "S", "K", "2"));
  EXPECT_EQ(folder_.Get("a.ini"), "[S]\nK=1\n");
}

TEST_F(IniFilesTest, a_UTF_16_file_stays_one) {
  const std::string file = folder_.Put("a.ini", "\xFF\xFE[\0S\0]\0\n\0"s);
  EXPECT_TRUE(ini_.Write(file, "S", "K", "\xE4"));
  EXPECT_EQ(folder_.Get("a.ini"), "\xFF\xFE[\0S\0]\0\n\0K\0=\0\xE4\0\r\0\n\0"s);
  EXPECT_EQ(ini_.Read(file, "S", "K", "d"), "\xE4");
}

// Nothing is kept between calls, so a change shows even where no time stamp tells it.
TEST_F(IniFilesTest, a_change_from_outside_shows_at_once) {
  for (int i = 0; i < 100; ++i) {
    const std::string value(1, static_cast<char>('a' + i % 26));
    const std::string file = folder_.Put("a.ini", "[S]\nK=" + value + "\n");
    ASSERT_EQ(ini_.Read(file, "S", "K", "d"), value) << i;
  }
}

TEST_F(IniFilesTest, two_processes_that_save_a_thousand_keys_each_lose_none) {
  constexpr int kKeys = 1000;
  const std::string file = folder_.File("a.ini");
  const auto save_all = [&](const std::string& prefix) {
    for (int i = 0; i < kKeys; ++i) {
      const std::string number = std::to_string(i);
      if (!ini_.Write(file, "S" + std::to_string(i % 3), prefix + number, number)) return false;
    }
    return true;
  };
  const pid_t child = InChild([&] { return save_all("child"); });
  EXPECT_TRUE(save_all("parent"));
  EXPECT_TRUE(Succeeded(child));
  for (const char* const prefix : {"child", "parent"}) {
    for (int i = 0; i < kKeys; ++i) {
      const std::string number = std::to_string(i);
      ASSERT_EQ(ini_.Read(file, "S" + std::to_string(i % 3), prefix + number, "d"), number);
    }
  }
  EXPECT_EQ(folder_.Names(), std::vector<std::string>{"a.ini"});
}

TEST_F(IniFilesTest, ten_megabytes_are_read_and_written_at_once) {
  std::string text = "[S]\r\n";
  for (int i = 0; text.size() < std::size_t{10} << 20; ++i) {
    text += "Key number " + std::to_string(i) + "=and its value\r\n";
  }
  const std::string file = folder_.Put("a.ini", text + "Last=1\r\n");
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(ini_.Read(file, "S", "Last", "d"), "1");
  EXPECT_TRUE(ini_.Write(file, "S", "Last", "2"));
  EXPECT_EQ(ini_.Read(file, "S", "Last", "d"), "2");
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}

}  // namespace
}  // namespace vandpublic
