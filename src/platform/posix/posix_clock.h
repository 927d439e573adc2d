// The system's clock in the local time zone.
#ifndef VANDPUBLIC_PLATFORM_POSIX_POSIX_CLOCK_H
#define VANDPUBLIC_PLATFORM_POSIX_POSIX_CLOCK_H

#include "platform/clock.h"

namespace vandpublic {

class PosixClock final : public Clock {
 public:
  LocalTime Now() override;
};

}  // namespace vandpublic

#endif
