// Stops a match that would take too long.
#ifndef VANDPUBLIC_PLATFORM_POSIX_REGEXP_WATCH_H
#define VANDPUBLIC_PLATFORM_POSIX_REGEXP_WATCH_H

#include <chrono>
#include <cstddef>

namespace vandpublic {

// Counts the processor time of the calling thread, not the time of day: a match must not fail
// because the machine was busy or asleep. Asking costs next to nothing, so it can be asked at every
// step: the clock is read at every eighth call, and the exact one once in a tick of the coarse one
// (1 to 10 ms).
class RegExpWatch {
 public:
  // One second, and one more for each million units of the subject.
  explicit RegExpWatch(std::size_t subject_units) noexcept;

  // Whether the time is used up. The first calls start the watch, a few ticks late at most.
  bool IsOver() noexcept { return ++calls_ % 8 == 0 && ReadClocks(); }

 private:
  bool ReadClocks() noexcept;

  unsigned calls_ = 0;
  std::chrono::nanoseconds allowance_;
  std::chrono::nanoseconds last_tick_{0};
  std::chrono::nanoseconds started_{0};
};

}  // namespace vandpublic

#endif
