#include <gtest/gtest.h>

#include <ctime>

#include "platform/platform.h"
#include "platform/posix/posix_clock.h"

namespace vandpublic {
namespace {

TEST(PosixPlatform, Every_service_is_there_and_the_table_is_made_once) {
  const auto platform = SystemPlatform();
  EXPECT_NE(platform->clock, nullptr);
  EXPECT_NE(platform->code_page, nullptr);
  EXPECT_NE(platform->files, nullptr);
  EXPECT_NE(platform->message_boxes, nullptr);
  EXPECT_FALSE(platform->component_folder.empty());
  EXPECT_EQ(SystemPlatform(), platform);
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
