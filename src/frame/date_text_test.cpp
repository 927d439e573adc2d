#include "frame/date_text.h"

#include <gtest/gtest.h>

namespace vandpublic {
namespace {

TEST(DateText, Every_field_is_padded_with_zeros) {
  EXPECT_EQ(DateText({.year = 2024, .month = 3, .day = 5, .hour = 4, .minute = 7, .second = 9}),
            u"2024-03-05 04:07:09");
  EXPECT_EQ(DateText({.year = 987, .month = 12, .day = 31, .hour = 23, .minute = 59, .second = 60}),
            u"0987-12-31 23:59:60");
}

TEST(DateText, Fields_that_no_clock_shows_are_written_whole) {
  constexpr int kHuge = -2147483647;
  EXPECT_EQ(DateText({.year = kHuge,
                      .month = kHuge,
                      .day = kHuge,
                      .hour = kHuge,
                      .minute = kHuge,
                      .second = kHuge}),
            u"-2147483647--2147483647--2147483647 -2147483647:-2147483647:-2147483647");
}

}  // namespace
}  // namespace vandpublic
