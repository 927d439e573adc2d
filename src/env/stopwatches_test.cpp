// EnableTimer and DispTimerEsp.
#include <gtest/gtest.h>

#include "support/test_component.h"

namespace vandpublic {
namespace {

TEST(Stopwatches, There_are_17_slots) {
  TestComponent component;
  for (Integer slot = 0; slot <= 16; ++slot) {
    EXPECT_EQ(RaisedBy([&] { component.object.DispTimerEsp(slot); }), kNothingRaised);
    EXPECT_EQ(RaisedBy([&] { component.object.EnableTimer(slot); }), kNothingRaised);
    EXPECT_EQ(RaisedBy([&] { component.object.DispTimerEsp(slot); }), kNothingRaised);
    EXPECT_EQ(RaisedBy([&] { component.object.EnableTimer(slot); }), kNothingRaised);
  }
  const Raised fault = PlainFault(FaultNumber::SubscriptOutOfRange);
  for (const int outside : {-1, 17, 32767, -32768}) {
    auto slot = static_cast<Integer>(outside);
    EXPECT_EQ(RaisedBy([&] { component.object.EnableTimer(slot); }), fault);
    EXPECT_EQ(RaisedBy([&] { component.object.DispTimerEsp(slot); }), fault);
    EXPECT_EQ(slot, outside);
  }
  EXPECT_EQ(component.Log(), "");
}

TEST(Stopwatches, Slot_0_is_the_default) {
  TestComponent component;
  EXPECT_EQ(RaisedBy([&] { component.object.EnableTimer(); }), kNothingRaised);
  EXPECT_EQ(RaisedBy([&] { component.object.DispTimerEsp(); }), kNothingRaised);
}

}  // namespace
}  // namespace vandpublic
