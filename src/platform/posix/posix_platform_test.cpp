// The services on Linux, and the clock.
#include <gtest/gtest.h>

#include <ctime>
#include <filesystem>
#include <string>

#include "platform/host_settings.h"
#include "platform/platform.h"
#include "platform/posix/posix_clock.h"
#include "platform/posix/test_folder.h"

namespace vandpublic {
namespace {

TEST(PosixPlatform, Every_service_is_there_and_the_table_is_made_once) {
  const auto platform = SystemPlatform();
  EXPECT_NE(platform->clock, nullptr);
  EXPECT_NE(platform->code_page, nullptr);
  EXPECT_NE(platform->files, nullptr);
  EXPECT_NE(platform->message_boxes, nullptr);
  EXPECT_NE(platform->regexp, nullptr);
  EXPECT_NE(platform->ini_files, nullptr);
  EXPECT_NE(platform->registry, nullptr);
  EXPECT_NE(platform->system_names, nullptr);
  EXPECT_EQ(platform->component_folder,
            std::filesystem::canonical("/proc/self/exe").parent_path().u16string());
  EXPECT_EQ(SystemPlatform(), platform);
}

TEST(PosixPlatform, A_selected_code_page_counts_for_the_settings_too) {
  const int before = SystemPlatform()->code_page->number();
  const TestFolder folder;
  const std::string ini = folder.Put("a.ini", "\xEF\xBB\xBF[S]\nK=\xE4\xB8\xAD\n");
  const std::string registry = folder.Put(
      "a.reg", "\xEF\xBB\xBFREGEDIT4\n[HKEY_LOCAL_MACHINE\\S]\n\"K\"=\"\xE4\xB8\xAD\"\n");
  ASSERT_TRUE(SelectCodePage(936));
  SelectRegistryFile(registry);
  EXPECT_EQ(SystemPlatform()->ini_files->Read(ini, "S", "K", ""), "\xD6\xD0");
  EXPECT_EQ(SystemPlatform()->registry->Read("S", "K"), std::string("\xD6\xD0", 3));
  ASSERT_TRUE(SelectCodePage(before));
  EXPECT_EQ(SystemPlatform()->ini_files->Read(ini, "S", "K", ""),
            SystemPlatform()->code_page->Encode(u"\u4e2d"));
}

// Seconds since the epoch of a local time.
std::time_t Seconds(const LocalTime& time) {
  std::tm fields{};
  fields.tm_year = time.year - 1900;
  fields.tm_mon = time.month - 1;
  fields.tm_mday = time.day;
  fields.tm_hour = time.hour;
  fields.tm_min = time.minute;
  fields.tm_sec = time.second;
  fields.tm_isdst = -1;
  return std::mktime(&fields);
}

TEST(PosixClock, It_tells_the_local_time) {
  const std::time_t before = std::time(nullptr);
  const LocalTime now = PosixClock().Now();
  const std::time_t after = std::time(nullptr);
  EXPECT_GE(Seconds(now), before);
  EXPECT_LE(Seconds(now), after);
  EXPECT_GE(now.month, 1);
  EXPECT_LE(now.month, 12);
}

}  // namespace
}  // namespace vandpublic
