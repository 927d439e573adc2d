// The port for the local date and time.
#ifndef VANDPUBLIC_PLATFORM_CLOCK_H
#define VANDPUBLIC_PLATFORM_CLOCK_H

namespace vandpublic {

struct LocalTime {
  int year;    // 2024
  int month;   // 1 to 12
  int day;     // 1 to 31
  int hour;    // 0 to 23
  int minute;  // 0 to 59
  int second;  // 0 to 60
};

class Clock {
 public:
  virtual ~Clock() = default;
  virtual LocalTime Now() = 0;
};

}  // namespace vandpublic

#endif
