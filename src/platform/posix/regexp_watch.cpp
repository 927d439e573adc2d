// The watch over a match, on two clocks: a cheap coarse one that tells when to read the exact one.
#include "platform/posix/regexp_watch.h"

#include <ctime>

namespace vandpublic {
namespace {

std::chrono::nanoseconds ReadClock(clockid_t clock) noexcept {
  timespec now{};
  clock_gettime(clock, &now);
  return std::chrono::seconds(now.tv_sec) + std::chrono::nanoseconds(now.tv_nsec);
}

}  // namespace

RegExpWatch::RegExpWatch(std::size_t subject_units) noexcept
    : allowance_(std::chrono::seconds(1) + std::chrono::microseconds(subject_units)) {}

bool RegExpWatch::ReadClocks() noexcept {
  const std::chrono::nanoseconds tick = ReadClock(CLOCK_MONOTONIC_COARSE);
  if (tick == last_tick_) return false;
  const bool first_call = last_tick_.count() == 0;
  last_tick_ = tick;
  if (first_call) return false;
  const std::chrono::nanoseconds spent = ReadClock(CLOCK_THREAD_CPUTIME_ID);
  if (started_.count() == 0) started_ = spent;
  return spent - started_ > allowance_;
}

}  // namespace vandpublic
