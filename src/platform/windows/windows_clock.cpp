// Local time from the system.
#include "platform/windows/windows_clock.h"

#include <windows.h>

namespace vandpublic {

LocalTime WindowsClock::Now() {
  SYSTEMTIME now{};
  GetLocalTime(&now);
  return {.year = now.wYear,
          .month = now.wMonth,
          .day = now.wDay,
          .hour = now.wHour,
          .minute = now.wMinute,
          .second = now.wSecond};
}

}  // namespace vandpublic
