#include "runtime/wipe.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>

#include "support/test_component.h"

namespace vandpublic {
namespace {

TEST(Wipe, Memory_is_zero_afterwards) {
  std::array<Byte, 5> bytes = {1, 2, 3, 4, 5};
  WipeMemory(bytes.data() + 1, 3);
  EXPECT_EQ(bytes, (std::array<Byte, 5>{1, 0, 0, 0, 5}));
  WipeMemory(nullptr, 0);
}

TEST(Wipe, A_container_is_overwritten_on_the_way_out) {
  std::array<std::uint32_t, 3> numbers = {1, 2, 3};
  { const WipeOnExit wipe(numbers); }
  EXPECT_EQ(numbers, (std::array<std::uint32_t, 3>{}));
  numbers = {1, 2, 3};
  EXPECT_EQ(RaisedBy([&] {
              const WipeOnExit wipe(numbers);
              RaiseFault(FaultNumber::Overflow);
            }),
            PlainFault(FaultNumber::Overflow));
  EXPECT_EQ(numbers, (std::array<std::uint32_t, 3>{}));
}

TEST(Wipe, Redimensioning_keeps_what_the_array_would_keep) {
  WipedByteArray array(Counting(4, 2, 0x10));
  array.RedimensionPreserving(7);
  EXPECT_EQ((*array).Bound(), (ArrayBound{2, 6}));
  EXPECT_EQ(Hex(*array), "10 11 12 13 00 00");
  array.RedimensionPreserving(3);
  EXPECT_EQ(Hex(*array), "10 11");
  array.Redimension(1, 3);
  EXPECT_EQ((*array).Bound(), (ArrayBound{1, 3}));
  EXPECT_EQ(Hex(*array), "00 00 00");
}

TEST(Wipe, A_failed_redimensioning_leaves_the_array_as_it_was) {
  WipedByteArray array(Counting(4));
  EXPECT_EQ(RaisedBy([&] { array.Redimension(0, -1); }),
            PlainFault(FaultNumber::SubscriptOutOfRange));
  EXPECT_EQ(RaisedBy([&] { array.RedimensionPreserving(-1); }),
            PlainFault(FaultNumber::SubscriptOutOfRange));
  EXPECT_EQ(Hex(*array), "00 01 02 03");
}

TEST(Wipe, An_array_without_storage_is_redimensioned_from_0) {
  WipedByteArray array;
  array.RedimensionPreserving(1);
  EXPECT_EQ(Hex(*array), "00 00");
}

TEST(Wipe, The_text_inside_can_be_used) {
  WipedString text(String("abc"));
  EXPECT_EQ((*text).ToUtf8(), "abc");
}

}  // namespace
}  // namespace vandpublic
