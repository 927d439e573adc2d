// The local time on Windows.
#ifndef VANDPUBLIC_PLATFORM_WINDOWS_WINDOWS_CLOCK_H
#define VANDPUBLIC_PLATFORM_WINDOWS_WINDOWS_CLOCK_H

#include "platform/clock.h"

namespace vandpublic {

class WindowsClock final : public Clock {
 public:
  LocalTime Now() override;
};

}  // namespace vandpublic

#endif
