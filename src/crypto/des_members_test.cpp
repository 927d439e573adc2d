// DES, UDES, DES3 and UDES3: checks, partial output, subscripts and the log.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/reference_des.h"
#include "support/test_component.h"

namespace vandpublic {
namespace {

using testing::ElementsAre;

constexpr const char* kKeySize = "Invalid key size provided.";
constexpr const char* kLength = "Invalid source data length.";
constexpr const char* kMultiple = "Length of source bytes must be multiple of 8.";
constexpr const char* kSource = "Source byte array size not enough.";
constexpr const char* kResult = "Result byte array size not enough.";

using Cipher = bool (clsPublic::*)(ByteArray&, ByteArray&, Integer&, ByteArray&,
                                   OptionalRef<String>);

struct CipherMember {
  const char* name;
  Cipher call;
  int code;
  Long key_size;
};

constexpr CipherMember kDes = {"DES", &clsPublic::DES, 0x28, 8};
constexpr CipherMember kUdes = {"UDES", &clsPublic::UDES, 0x29, 8};
constexpr CipherMember kDes3 = {"DES3", &clsPublic::DES3, 0x2A, 16};
constexpr CipherMember kUdes3 = {"UDES3", &clsPublic::UDES3, 0x2B, 16};
constexpr CipherMember kAll[] = {kDes, kUdes, kDes3, kUdes3};
constexpr CipherMember kSingle[] = {kDes, kUdes};

class DesMembersTest : public testing::Test {
 protected:
  Raised Call(const CipherMember& member, ByteArray key, const ByteArray& source, int length,
              ByteArray& result) {
    return CallOn(member, key, ByteArray(source), length, result);
  }
  Raised CallOn(const CipherMember& member, ByteArray& key, ByteArray source, int length,
                ByteArray& result) {
    auto count = static_cast<Integer>(length);
    String description = "old";
    const Raised raised = RaisedBy([&] {
      EXPECT_TRUE((component_.object.*member.call)(key, source, count, result, description));
    });
    EXPECT_EQ(description.ToUtf8(), "old") << "never written";
    EXPECT_EQ(count, length);
    return raised;
  }

  TestComponent component_;
  ByteArray result_ = ByteArray::WithBounds(0, 15);
};

Raised Refused(const CipherMember& member, const std::string& description) {
  return MemberError(member.code, member.name, description);
}

TEST_F(DesMembersTest, The_first_failing_check_decides) {
  struct Case {
    std::size_t key;
    int length;
    std::size_t source;
    std::size_t result;
    const char* description;
  };
  constexpr Case kCases[] = {
      {7, 5, 0, 0, kKeySize},        {0, 8, 8, 8, kKeySize},   {8, 4, 0, 0, kLength},
      {8, 0, 8, 8, kLength},         {8, -8, 8, 8, kLength},   {8, -32768, 8, 8, kLength},
      {8, 7, 8, 8, kLength},         {8, 12, 0, 0, kMultiple}, {8, 9, 8, 8, kMultiple},
      {8, 32767, 8, 8, kMultiple},   {8, 8, 7, 0, kSource},    {8, 16, 0, 16, kSource},
      {8, 8, 8, 7, kResult},         {8, 16, 8, 15, kResult},  {8, 16, 16, 8, kResult},
      {8, 32760, 8, 32759, kResult},
  };
  for (const CipherMember& member : kSingle) {
    for (const Case& one : kCases) {
      component_.services.files->contents.clear();
      const ByteArray before = Counting(one.result, 0, 0x50);
      ByteArray result = before;
      EXPECT_EQ(Call(member, Counting(one.key), Counting(one.source), one.length, result),
                Refused(member, one.description))
          << one.key << " " << one.length << " " << one.source << " " << one.result;
      EXPECT_EQ(result, before);
      EXPECT_THAT(component_.LoggedNames(), ElementsAre(member.name));
    }
  }
}

TEST_F(DesMembersTest, An_array_without_storage_counts_as_empty) {
  ByteArray nothing;
  EXPECT_EQ(Call(kDes, ByteArray(), Counting(8), 8, result_), Refused(kDes, kKeySize));
  EXPECT_EQ(Call(kDes, Counting(8), ByteArray(), 8, result_), Refused(kDes, kSource));
  EXPECT_EQ(Call(kDes, Counting(8), Counting(8), 8, nothing), Refused(kDes, kResult));
  EXPECT_FALSE(nothing.IsDimensioned()) << "never redimensioned";
}

TEST_F(DesMembersTest, Longer_keys_are_cut) {
  for (const CipherMember& member : kAll) {
    ByteArray plain = ByteArray::WithBounds(0, 7);
    EXPECT_EQ(
        Call(member, Counting(static_cast<std::size_t>(member.key_size)), Counting(8), 8, plain),
        kNothingRaised);
    for (const std::size_t more : {1u, 8u, 100u}) {
      ByteArray result = ByteArray::WithBounds(0, 7);
      ByteArray key = Counting(static_cast<std::size_t>(member.key_size) + more);
      EXPECT_EQ(CallOn(member, key, Counting(8), 8, result), kNothingRaised);
      EXPECT_EQ(result, plain);
    }
  }
}

TEST_F(DesMembersTest, Bytes_behind_the_length_are_left_alone) {
  for (const CipherMember& member : kAll) {
    ByteArray result = Counting(20, 0, 0xC0);
    EXPECT_EQ(Call(member, Counting(16), Counting(16), 8, result), kNothingRaised);
    EXPECT_EQ(Hex(result).substr(24), "C8 C9 CA CB CC CD CE CF D0 D1 D2 D3");
  }
}

TEST_F(DesMembersTest, Equal_blocks_give_equal_blocks) {
  for (const CipherMember& member : kAll) {
    EXPECT_EQ(Call(member, Counting(16), FromHex("1122334455667788 1122334455667788"), 16, result_),
              kNothingRaised);
    EXPECT_EQ(Hex(result_).substr(0, 23), Hex(result_).substr(24));
  }
}

TEST_F(DesMembersTest, A_source_shorter_than_the_length_fails_after_its_blocks) {
  const ByteArray key = Counting(8, 0, 0x11);
  ByteArray result = Counting(16, 0, 0xC0);
  EXPECT_EQ(Call(kDes, key, Counting(8), 16, result),
            Refused(kDes, Composed(FaultNumber::SubscriptOutOfRange)));
  EXPECT_EQ(Hex(result), Hex(ReferenceEncipher(key, Counting(8))) + " C8 C9 CA CB CC CD CE CF");
  EXPECT_THAT(component_.LogLines(),
              ElementsAre("2024-03-05 14:07:09 VandPublic.clsCommon.DES",
                          std::string(20, ' ') + "Public_Module (9) - Subscript out of range"));
}

TEST_F(DesMembersTest, A_partial_block_is_not_written) {
  ByteArray result = Counting(16, 0, 0xC0);
  EXPECT_EQ(Call(kUdes, Counting(8), Counting(12), 16, result),
            Refused(kUdes, Composed(FaultNumber::SubscriptOutOfRange)));
  EXPECT_EQ(Hex(result).substr(24), "C8 C9 CA CB CC CD CE CF");
}

TEST_F(DesMembersTest, A_triple_cipher_fails_in_its_first_step_and_writes_nothing) {
  ByteArray result = Counting(16, 0, 0xC0);
  EXPECT_EQ(Call(kDes3, Counting(16), Counting(8), 16, result),
            Refused(kDes3,
                    "clsCommon.DES (-2147221464) - " + Composed(FaultNumber::SubscriptOutOfRange)));
  EXPECT_EQ(result, Counting(16, 0, 0xC0));
  EXPECT_THAT(component_.LoggedNames(), ElementsAre("DES", "DES3"));
}

TEST_F(DesMembersTest, Subscripts_are_absolute) {
  const std::string fault = Composed(FaultNumber::SubscriptOutOfRange);
  EXPECT_EQ(Call(kDes, Counting(8, 1), Counting(8), 8, result_), Refused(kDes, fault));
  EXPECT_EQ(Call(kDes, Counting(8), Counting(8, 1), 8, result_), Refused(kDes, fault));
  ByteArray one_based = Counting(8, 1);
  EXPECT_EQ(Call(kDes, Counting(8), Counting(8), 8, one_based), Refused(kDes, fault));
  EXPECT_EQ(one_based, Counting(8, 1)) << "nothing written";
}

TEST_F(DesMembersTest, Arrays_that_start_below_0_work) {
  ByteArray result(std::vector<Byte>(16, 0xC0), -4);
  EXPECT_EQ(Call(kDes, Counting(16, -4, 0x10), Counting(16, -4, 0x20), 8, result), kNothingRaised);
  const ByteArray expected = ReferenceEncipher(Counting(8, 0, 0x14), Counting(8, 0, 0x24));
  EXPECT_EQ(Hex(result), "C0 C0 C0 C0 " + Hex(expected) + " C0 C0 C0 C0");
}

TEST_F(DesMembersTest, A_double_key_that_starts_at_1_fails_in_the_copy) {
  EXPECT_EQ(Call(kDes3, Counting(16, 1), Counting(8), 8, result_),
            Refused(kDes3, Composed(FaultNumber::SubscriptOutOfRange)));
  EXPECT_THAT(component_.LoggedNames(), ElementsAre("DES3"));
}

TEST_F(DesMembersTest, Triple_ciphers_check_their_key_and_leave_the_rest_to_the_steps) {
  struct Case {
    const CipherMember* member;
    std::size_t key;
    int length;
    std::size_t source;
    std::size_t result;
    const char* inner;  // null: own rejection
    const char* description;
  };
  const Case cases[] = {
      {&kDes3, 15, 5, 0, 0, nullptr, kKeySize},   {&kUdes3, 15, 8, 8, 8, nullptr, kKeySize},
      {&kDes3, 16, 12, 16, 16, "DES", kMultiple}, {&kUdes3, 16, 12, 16, 16, "UDES", kMultiple},
      {&kDes3, 16, 0, 8, 8, "DES", kLength},      {&kUdes3, 16, -8, 8, 8, "UDES", kLength},
      {&kDes3, 16, -32768, 8, 8, "DES", kLength}, {&kDes3, 16, 8, 7, 8, "DES", kSource},
      {&kDes3, 16, 8, 8, 7, "DES", kResult},  // found by the third step
      {&kUdes3, 16, 16, 16, 15, "UDES", kResult},
  };
  for (const Case& one : cases) {
    component_.services.files->contents.clear();
    ByteArray result = Counting(one.result, 0, 0xC0);
    const Raised raised =
        Call(*one.member, Counting(one.key), Counting(one.source), one.length, result);
    EXPECT_EQ(result, Counting(one.result, 0, 0xC0));
    if (one.inner == nullptr) {
      EXPECT_EQ(raised, Refused(*one.member, one.description));
      EXPECT_THAT(component_.LoggedNames(), ElementsAre(one.member->name));
      continue;
    }
    const std::string number = one.inner == std::string("DES") ? "-2147221464" : "-2147221463";
    EXPECT_EQ(raised, Refused(*one.member, "clsCommon." + std::string(one.inner) + " (" + number +
                                               ") - " + one.description));
    EXPECT_THAT(component_.LoggedNames(), ElementsAre(one.inner, one.member->name));
  }
}

TEST_F(DesMembersTest, Equal_halves_make_triple_DES_single_DES) {
  ByteArray single = ByteArray::WithBounds(0, 15);
  ByteArray triple = ByteArray::WithBounds(0, 15);
  const std::string half = "0123456789ABCDEF";
  EXPECT_EQ(Call(kDes, FromHex(half), Counting(16), 16, single), kNothingRaised);
  EXPECT_EQ(Call(kDes3, FromHex(half + half), Counting(16), 16, triple), kNothingRaised);
  EXPECT_EQ(single, triple);
}

TEST_F(DesMembersTest, Parity_bits_of_the_key_do_not_count) {
  for (const CipherMember& member : kAll) {
    ByteArray odd = ByteArray::WithBounds(0, 7);
    ByteArray key = Counting(16, 0, 0x31);
    EXPECT_EQ(Call(member, key, Counting(8), 8, odd), kNothingRaised);
    for (Byte& byte : key.Elements())
      byte ^= 1;
    ByteArray even = ByteArray::WithBounds(0, 7);
    EXPECT_EQ(Call(member, key, Counting(8), 8, even), kNothingRaised);
    EXPECT_EQ(odd, even);
  }
}

TEST_F(DesMembersTest, Complemented_key_and_data_give_the_complement) {
  const auto complement = [](ByteArray bytes) {
    for (Byte& byte : bytes.Elements())
      byte = static_cast<Byte>(~byte);
    return bytes;
  };
  for (const CipherMember& member : kAll) {
    const ByteArray key = Counting(16, 0, 0x31);
    const ByteArray data = Counting(8, 0, 0x77);
    ByteArray straight = ByteArray::WithBounds(0, 7);
    ByteArray turned = ByteArray::WithBounds(0, 7);
    EXPECT_EQ(Call(member, key, data, 8, straight), kNothingRaised);
    EXPECT_EQ(Call(member, complement(key), complement(data), 8, turned), kNothingRaised);
    EXPECT_EQ(turned, complement(straight));
  }
}

// A published chain that no single wrong bit of an implementation survives: data and key are the
// same block, enciphered and deciphered in turn.
TEST_F(DesMembersTest, Sixteen_turns_of_a_block_under_itself_end_where_published) {
  ByteArray block = FromHex("9474B8E8C73BCA7D");
  for (int i = 0; i < 16; ++i) {
    EXPECT_EQ(Call(i % 2 == 0 ? kDes : kUdes, block, block, 8, block), kNothingRaised);
  }
  EXPECT_EQ(Hex(block), "1B 1A 2D DB 4C 64 24 38");
}

TEST_F(DesMembersTest, The_description_may_be_left_out) {
  ByteArray key = FromHex("133457799BBCDFF1");
  ByteArray block = FromHex("0123456789ABCDEF");
  Integer length = 8;
  EXPECT_TRUE(component_.object.DES(key, block, length, block));
  EXPECT_EQ(Hex(block), "85 E8 13 54 0F 0A B4 05");
  EXPECT_TRUE(component_.object.UDES(key, block, length, block));
  EXPECT_EQ(Hex(block), "01 23 45 67 89 AB CD EF");
  EXPECT_EQ(component_.Log(), "");
}

}  // namespace
}  // namespace vandpublic
