// GenOrigalityKey.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/reference_des.h"
#include "support/test_component.h"

namespace vandpublic {
namespace {

using testing::ElementsAre;

ByteArray Half(const ByteArray& bytes, Long start) {
  ByteArray half = ByteArray::WithBounds(0, 7);
  for (Long i = 0; i < 8; ++i)
    half.At(i) = bytes.At(start + i);
  return half;
}

ByteArray Xor(ByteArray a, const ByteArray& b) {
  for (Long i = 0; i < a.Count(); ++i)
    a.At(i) ^= b.At(i);
  return a;
}

// The series written down a second time, on the second implementation.
class ReferenceSeries {
 public:
  explicit ReferenceSeries(const ByteArray& seed)
      : right_(Half(seed, 8)), mixed_(Xor(Half(seed, 0), right_)) {
    const ByteArray t = ReferenceDecipher(ByteArray::WithBounds(0, 7), mixed_);
    key_ = ReferenceDecipher(ReferenceEncipher(t, right_), Half(seed, 0));
  }

  // The digits of the next key.
  std::string Next() {
    const ByteArray p1 = Xor(key_, Step(key_));
    const ByteArray p2 = Step(p1);
    const ByteArray p3 = Step(p2);
    key_ = Step(p3);
    return Hex(Xor(p1, p3)) + " " + Hex(Xor(p2, key_));
  }

 private:
  ByteArray Step(const ByteArray& key) const {
    const ByteArray t = ReferenceDecipher(key, mixed_);
    const ByteArray u = ReferenceEncipher(t, right_);
    return ReferenceDecipher(u, u);
  }

  ByteArray right_;
  ByteArray mixed_;
  ByteArray key_;
};

std::string Row(const ByteTable& table, Long row) {
  std::vector<Byte> bytes;
  for (Long c = 0; c < table.Columns().count; ++c)
    bytes.push_back(table.At(row, table.Columns().lower + c));
  return Hex(ByteArray(std::move(bytes)));
}

class OriginalityKeysTest : public testing::Test {
 protected:
  Raised Call(ByteArray seed, int count, ByteTable& keys) {
    auto number = static_cast<Integer>(count);
    String description = "old";
    const Raised raised = RaisedBy(
        [&] { EXPECT_TRUE(component_.object.GenOrigalityKey(seed, number, keys, description)); });
    EXPECT_EQ(description.ToUtf8(), "old") << "never written";
    EXPECT_EQ(number, count);
    return raised;
  }

  TestComponent component_;
};

const Raised kFault = MemberError(0x2F, "GenOrigalityKey", "");

TEST_F(OriginalityKeysTest, Each_key_is_the_next_of_one_series) {
  for (const ByteArray& seed : {Counting(16), FromHex("0123456789ABCDEFFEDCBA9876543210"),
                                ByteArray::WithBounds(0, 15), Counting(16, 0, 0xF0)}) {
    ByteTable keys({0, 20}, {0, 16});
    EXPECT_EQ(Call(seed, 20, keys), kNothingRaised);
    ReferenceSeries series(seed);
    for (Long row = 0; row < 20; ++row)
      EXPECT_EQ(Row(keys, row), series.Next()) << row;
  }
  EXPECT_EQ(component_.Log(), "");
}

TEST_F(OriginalityKeysTest, Fewer_keys_are_the_first_of_more) {
  ByteTable one({0, 1}, {0, 16});
  ByteTable three({0, 3}, {0, 16});
  Call(Counting(16), 1, one);
  Call(Counting(16), 3, three);
  EXPECT_EQ(Row(one, 0), Row(three, 0));
  EXPECT_NE(Row(three, 0), Row(three, 1));
}

TEST_F(OriginalityKeysTest, A_count_of_0_or_less_needs_no_table) {
  for (const int count : {0, -1, -32768}) {
    ByteTable nothing;
    EXPECT_EQ(Call(Counting(16), count, nothing), kNothingRaised);
    EXPECT_FALSE(nothing.IsDimensioned());
  }
}

TEST_F(OriginalityKeysTest, The_seed_has_16_bytes) {
  for (const std::size_t size : {0u, 15u, 17u, 24u}) {
    component_.services.files->contents.clear();
    ByteTable keys({0, 1}, {0, 16});
    EXPECT_EQ(Call(Counting(size), 0, keys),
              MemberError(0x2F, "GenOrigalityKey", "Invalid seed size."));
    EXPECT_THAT(component_.LogLines(),
                ElementsAre("2024-03-05 14:07:09 VandPublic.clsCommon.GenOrigalityKey",
                            std::string(20, ' ') + "Invalid seed size."));
  }
}

TEST_F(OriginalityKeysTest, A_seed_that_starts_at_1_is_a_fault) {
  ByteTable keys({0, 1}, {0, 16});
  EXPECT_EQ(Call(Counting(16, 1), 0, keys), kFault);
  EXPECT_THAT(component_.LogLines()[1],
              testing::EndsWith(Composed(FaultNumber::SubscriptOutOfRange)));
}

TEST_F(OriginalityKeysTest, A_table_without_room_fails_after_the_keys_that_fit) {
  ByteTable two({0, 2}, {0, 16});
  EXPECT_EQ(Call(Counting(16), 3, two), kFault);
  ReferenceSeries series(Counting(16));
  EXPECT_EQ(Row(two, 0), series.Next());
  EXPECT_EQ(Row(two, 1), series.Next());

  ByteTable narrow({0, 1}, {0, 8});
  EXPECT_EQ(Call(Counting(16), 1, narrow), kFault);
  ReferenceSeries again(Counting(16));
  EXPECT_EQ(Row(narrow, 0), again.Next().substr(0, 23));

  ByteTable nothing;
  EXPECT_EQ(Call(Counting(16), 1, nothing), kFault);
  EXPECT_THAT(component_.LoggedNames(),
              ElementsAre("GenOrigalityKey", "GenOrigalityKey", "GenOrigalityKey"));
}

TEST_F(OriginalityKeysTest, Subscripts_of_the_table_are_absolute) {
  ByteTable wide({-1, 3}, {-2, 20});
  EXPECT_EQ(Call(Counting(16), 2, wide), kNothingRaised);
  ReferenceSeries series(Counting(16));
  EXPECT_EQ(Row(wide, -1), Hex(ByteArray::WithBounds(0, 19)));
  EXPECT_EQ(Row(wide, 0), "00 00 " + series.Next() + " 00 00");

  ByteTable from_1({1, 2}, {0, 16});
  EXPECT_EQ(Call(Counting(16), 1, from_1), kFault);
}

}  // namespace
}  // namespace vandpublic
