// Local time from the C library.
#include "platform/posix/posix_clock.h"

#include <ctime>

namespace vandpublic {

LocalTime PosixClock::Now() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return {.year = local.tm_year + 1900,
          .month = local.tm_mon + 1,
          .day = local.tm_mday,
          .hour = local.tm_hour,
          .minute = local.tm_min,
          .second = local.tm_sec};
}

}  // namespace vandpublic
