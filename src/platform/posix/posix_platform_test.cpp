#include <gtest/gtest.h>

#include <ctime>

#include "frame/clsPublic.h"
#include "platform/host_settings.h"
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

TEST(PosixPlatform, A_selected_code_page_is_that_of_later_objects) {
  const int page = SystemPlatform()->code_page->number();
  const clsPublic earlier;
  EXPECT_TRUE(SelectCodePage(936));
  const clsPublic later;
  EXPECT_EQ(earlier.platform().code_page->number(), page);
  EXPECT_EQ(later.platform().code_page->number(), 936);
  EXPECT_EQ(earlier.platform().files, later.platform().files) << "everything else is shared";
  for (const int number : {0, -1, 437, 65001, 1259})
    EXPECT_FALSE(SelectCodePage(number)) << number;
  EXPECT_EQ(SystemPlatform()->code_page->number(), 936);
  EXPECT_TRUE(SelectCodePage(page));
}

TEST(PosixPlatform, SeedRandom_starts_the_sequence_that_all_objects_draw_from) {
  const clsPublic object;
  SeedRandom(5);
  const double first = object.platform().random->Next();
  const double second = SystemPlatform()->random->Next();
  EXPECT_NE(first, second);
  SeedRandom(5);
  EXPECT_EQ(SystemPlatform()->random->Next(), first);
  EXPECT_EQ(object.platform().random->Next(), second);
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
