// DiversifyKey.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/reference_des.h"
#include "support/test_component.h"

namespace vandpublic {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kMasterKeySize = "Invalid master key size. ";
constexpr const char* kDataSize = "Length of Div data bytes must be multiple of 8.";
constexpr const char* kReceiverSize = "DivKey size is less than 16 bytes.";

ByteArray First8(const ByteArray& bytes) {
  return ByteArray(std::vector<Byte>(bytes.Elements().begin(), bytes.Elements().begin() + 8));
}

ByteArray Complement(ByteArray bytes) {
  for (Byte& byte : bytes.Elements())
    byte = static_cast<Byte>(~byte);
  return bytes;
}

std::string Expected(const ByteArray& master_key, const ByteArray& data) {
  return Hex(ReferenceEncipher(master_key, First8(data))) + " " +
         Hex(ReferenceEncipher(master_key, Complement(First8(data))));
}

class DiversifyKeyTest : public testing::Test {
 protected:
  Raised Call(ByteArray& master_key, ByteArray& data, ByteArray& receiver) {
    String description = "old";
    const Raised raised = RaisedBy([&] {
      EXPECT_TRUE(component_.object.DiversifyKey(master_key, data, receiver, description));
    });
    EXPECT_EQ(description.ToUtf8(), "old") << "never written";
    return raised;
  }

  TestComponent component_;
  ByteArray master_key_ = FromHex("0123456789ABCDEF FEDCBA9876543210");
  ByteArray data_ = FromHex("1122334455667788");
  ByteArray receiver_ = ByteArray::WithBounds(0, 15);
};

TEST_F(DiversifyKeyTest, The_halves_are_the_data_and_its_complement_enciphered) {
  EXPECT_EQ(Call(master_key_, data_, receiver_), kNothingRaised);
  EXPECT_EQ(Hex(receiver_), Expected(master_key_, data_));
  EXPECT_EQ(Hex(data_), "11 22 33 44 55 66 77 88");
  EXPECT_EQ(component_.Log(), "");
}

TEST_F(DiversifyKeyTest, Only_8_bytes_of_longer_data_take_part) {
  ByteArray longer = FromHex("1122334455667788 99AABBCCDDEEFF00 0102030405060708");
  EXPECT_EQ(Call(master_key_, longer, receiver_), kNothingRaised);
  EXPECT_EQ(Hex(receiver_), Expected(master_key_, data_));
}

TEST_F(DiversifyKeyTest, A_longer_receiver_keeps_its_other_bytes) {
  ByteArray receiver = Counting(20, 0, 0xC0);
  EXPECT_EQ(Call(master_key_, data_, receiver), kNothingRaised);
  EXPECT_EQ(Hex(receiver), Expected(master_key_, data_) + " D0 D1 D2 D3");
}

TEST_F(DiversifyKeyTest, The_first_failing_check_decides) {
  struct Case {
    std::size_t master_key;
    std::size_t data;
    std::size_t receiver;
    const char* description;
  };
  constexpr Case kCases[] = {
      {15, 12, 8, kMasterKeySize}, {17, 8, 16, kMasterKeySize}, {24, 8, 16, kMasterKeySize},
      {0, 8, 16, kMasterKeySize},  {16, 12, 8, kDataSize},      {16, 7, 16, kDataSize},
      {16, 8, 15, kReceiverSize},  {16, 8, 0, kReceiverSize},   {16, 0, 15, kReceiverSize},
  };
  for (const Case& one : kCases) {
    component_.services.files->contents.clear();
    ByteArray master_key = Counting(one.master_key);
    ByteArray data = Counting(one.data);
    ByteArray receiver = Counting(one.receiver, 0, 0xC0);
    EXPECT_EQ(Call(master_key, data, receiver), MemberError(0x17, "DiversifyKey", one.description));
    EXPECT_EQ(receiver, Counting(one.receiver, 0, 0xC0));
    EXPECT_THAT(component_.LoggedNames(), ElementsAre("DiversifyKey"));
  }
}

TEST_F(DiversifyKeyTest, A_message_keeps_its_final_blank_when_raised_and_loses_it_in_the_log) {
  ByteArray short_key = Counting(15);
  EXPECT_EQ(Call(short_key, data_, receiver_).description.size(), 25u);
  EXPECT_EQ(component_.LogLines()[1], std::string(20, ' ') + "Invalid master key size.");
}

TEST_F(DiversifyKeyTest, What_the_cipher_raises_passes_through) {
  ByteArray empty;
  const std::string inner = "clsCommon.DES (-2147221464) - Source byte array size not enough.";
  EXPECT_EQ(Call(master_key_, empty, receiver_), MemberError(0x2A, "DES3", inner));
  EXPECT_THAT(component_.LoggedNames(), ElementsAre("DES", "DES3"));
}

TEST_F(DiversifyKeyTest, Data_that_starts_at_1_fails_after_the_left_half) {
  for (const Long lower : {1, 5, -1}) {
    ByteArray data = Counting(8, lower, 0x11);
    ByteArray receiver = ByteArray::WithBounds(0, 15);
    EXPECT_EQ(Call(master_key_, data, receiver), PlainFault(FaultNumber::SubscriptOutOfRange))
        << lower;
    EXPECT_EQ(Hex(receiver), Hex(ReferenceEncipher(master_key_, Counting(8, 0, 0x11))) +
                                 " 00 00 00 00 00 00 00 00");
  }
  EXPECT_EQ(component_.Log(), "");
}

TEST_F(DiversifyKeyTest, Data_that_covers_subscripts_0_to_7_is_read_there) {
  ByteArray data = Counting(16, -8, 0x11);
  EXPECT_EQ(Call(master_key_, data, receiver_), kNothingRaised);
  EXPECT_EQ(Hex(receiver_), Expected(master_key_, Counting(8, 0, 0x19)));
}

TEST_F(DiversifyKeyTest, A_receiver_that_starts_at_1_fails_in_the_cipher) {
  ByteArray receiver = Counting(16, 1, 0xC0);
  EXPECT_EQ(
      Call(master_key_, data_, receiver),
      MemberError(0x2A, "DES3",
                  "clsCommon.DES (-2147221464) - " + Composed(FaultNumber::SubscriptOutOfRange)));
  EXPECT_THAT(component_.LoggedNames(), ElementsAre("DES", "DES3"));
}

TEST_F(DiversifyKeyTest, A_master_key_that_starts_at_1_fails_in_the_copy) {
  ByteArray master_key = Counting(16, 1);
  EXPECT_EQ(Call(master_key, data_, receiver_),
            MemberError(0x2A, "DES3", Composed(FaultNumber::SubscriptOutOfRange)));
  EXPECT_THAT(component_.LoggedNames(), ElementsAre("DES3"));
}

TEST_F(DiversifyKeyTest, A_receiver_that_is_the_data_changes_what_is_complemented) {
  ByteArray both = Counting(16, 0, 0x11);
  const ByteArray left = ReferenceEncipher(master_key_, Counting(8, 0, 0x11));
  EXPECT_EQ(Call(master_key_, both, both), kNothingRaised);
  EXPECT_EQ(Hex(both), Hex(left) + " " + Hex(ReferenceEncipher(master_key_, Complement(left))));
}

TEST_F(DiversifyKeyTest, A_receiver_that_is_the_master_key_changes_the_key_of_the_right_half) {
  ByteArray both = master_key_;
  const ByteArray left = ReferenceEncipher(master_key_, data_);
  ByteArray changed_key = master_key_;
  for (Long i = 0; i < 8; ++i)
    changed_key.At(i) = left.At(i);
  EXPECT_EQ(Call(both, data_, both), kNothingRaised);
  EXPECT_EQ(Hex(both), Hex(left) + " " + Hex(ReferenceEncipher(changed_key, Complement(data_))));
}

}  // namespace
}  // namespace vandpublic
