// EnableTimer and DispTimerEsp: the object's stopwatch slots.
#include "frame/class_state.h"
#include "frame/date_text.h"
#include "runtime/errors.h"

namespace vandpublic {
namespace {

std::size_t SlotPosition(Integer slot) {
  return ArrayBound{0, static_cast<Long>(kTimerSlotCount)}.Position(slot);
}

}  // namespace

void clsPublic::EnableTimer(OptionalRef<Integer> iint_TimerNnum) {
  String& slot = state_->timers[SlotPosition(*iint_TimerNnum)];
  slot = DateText(platform().clock->Now());
}

void clsPublic::DispTimerEsp(OptionalRef<Integer> iint_TimerNum) {
  // The elapsed time is neither shown nor returned, on purpose: what is left to see of the member
  // is the fault for a slot that does not exist.
  SlotPosition(*iint_TimerNum);
}

}  // namespace vandpublic
