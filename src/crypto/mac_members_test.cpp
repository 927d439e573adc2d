// MAC and TMAC.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "support/reference_des.h"
#include "support/test_component.h"

namespace vandpublic {
namespace {

using testing::ElementsAre;

using MacMember = bool (clsPublic::*)(ByteArray&, ByteArray&, Integer&, ByteArray&, ByteArray&,
                                      OptionalRef<String>);

ByteArray Part(const ByteArray& bytes, Long start) {
  ByteArray part = ByteArray::WithBounds(0, 7);
  for (Long i = 0; i < 8; ++i)
    part.At(i) = bytes.At(start + i);
  return part;
}

// The code as the standard describes it, on the second implementation: CBC over the padded data,
// and for a double key the output transformation.
ByteArray ReferenceMac(const ByteArray& key, const ByteArray& data, Long length,
                       const ByteArray& initial, bool retail) {
  std::vector<Byte> padded(data.Elements().begin(), data.Elements().begin() + length);
  padded.push_back(0x80);
  while (padded.size() % 8 != 0)
    padded.push_back(0);
  ByteArray chain = Part(initial, 0);
  const ByteArray k1 = Part(key, 0);
  for (std::size_t start = 0; start < padded.size(); start += 8) {
    for (std::size_t j = 0; j < 8; ++j)
      chain.Elements()[j] ^= padded[start + j];
    chain = ReferenceEncipher(k1, chain);
  }
  if (retail) chain = ReferenceEncipher(k1, ReferenceDecipher(Part(key, 8), chain));
  return ByteArray{chain.At(0), chain.At(1), chain.At(2), chain.At(3)};
}

class MacMembersTest : public testing::Test {
 protected:
  Raised Call(MacMember member, const ByteArray& key, const ByteArray& data, int length,
              const ByteArray& initial, ByteArray& code) {
    ByteArray key_copy = key;
    ByteArray data_copy = data;
    ByteArray initial_copy = initial;
    auto count = static_cast<Integer>(length);
    String description = "old";
    const Raised raised = RaisedBy([&] {
      EXPECT_TRUE(
          (component_.object.*member)(key_copy, data_copy, count, initial_copy, code, description));
    });
    EXPECT_EQ(description.ToUtf8(), "old") << "never written";
    EXPECT_EQ(data_copy, data);
    EXPECT_EQ(initial_copy, initial);
    return raised;
  }
  std::string CodeOf(MacMember member, const ByteArray& key, const ByteArray& data, int length,
                     const ByteArray& initial) {
    ByteArray code = ByteArray::WithBounds(0, 3);
    EXPECT_EQ(Call(member, key, data, length, initial, code), kNothingRaised);
    return Hex(code);
  }

  TestComponent component_;
  ByteArray zeros_ = ByteArray::WithBounds(0, 7);
  ByteArray code_ = ByteArray::WithBounds(0, 3);
};

TEST_F(MacMembersTest, The_examples_of_the_standard_come_out) {
  // ISO/IEC 9797-1, annex A: "Now is the time for all " and "Now is the time for it".
  const ByteArray first = FromHex("4E6F77206973207468652074696D6520666F7220616C6C20");
  const ByteArray second = FromHex("4E6F77206973207468652074696D6520666F72206974");
  const ByteArray single = FromHex("0123456789ABCDEF");
  const ByteArray twice = FromHex("0123456789ABCDEF FEDCBA9876543210");
  EXPECT_EQ(CodeOf(&clsPublic::MAC, single, first, 24, zeros_), "10 E1 F0 F1");
  EXPECT_EQ(CodeOf(&clsPublic::TMAC, twice, first, 24, zeros_), "E9 08 62 30");
  EXPECT_EQ(CodeOf(&clsPublic::TMAC, twice, second, 22, zeros_), "5A 69 2C E6");
}

TEST_F(MacMembersTest, Every_kind_of_length_agrees_with_the_reference) {
  std::mt19937 generator;
  const auto random = [&](std::size_t count) {
    std::vector<Byte> bytes(count);
    for (Byte& byte : bytes)
      byte = static_cast<Byte>(generator());
    return ByteArray(std::move(bytes));
  };
  for (const int length : {0, 1, 7, 8, 9, 15, 16, 17, 63, 64, 1015, 1016, 1022, 1023}) {
    const ByteArray key = random(16);
    const ByteArray data = random(1023);
    const ByteArray initial = random(8);
    EXPECT_EQ(CodeOf(&clsPublic::MAC, key, data, length, initial),
              Hex(ReferenceMac(key, data, length, initial, false)))
        << length;
    EXPECT_EQ(CodeOf(&clsPublic::TMAC, key, data, length, initial),
              Hex(ReferenceMac(key, data, length, initial, true)))
        << length;
  }
  EXPECT_EQ(component_.Log(), "");
}

TEST_F(MacMembersTest, An_empty_message_needs_no_array) {
  const ByteArray key = Counting(16, 0, 0x31);
  EXPECT_EQ(CodeOf(&clsPublic::MAC, key, ByteArray(), 0, zeros_),
            Hex(ReferenceMac(key, ByteArray(), 0, zeros_, false)));
}

TEST_F(MacMembersTest, Bytes_behind_the_length_do_not_count) {
  const ByteArray key = Counting(16, 0, 0x31);
  EXPECT_EQ(CodeOf(&clsPublic::MAC, key, Counting(20), 5, zeros_),
            CodeOf(&clsPublic::MAC, key, Counting(5), 5, zeros_));
}

TEST_F(MacMembersTest, Equal_key_halves_make_both_codes_equal) {
  const ByteArray key = FromHex("0123456789ABCDEF 0123456789ABCDEF");
  EXPECT_EQ(CodeOf(&clsPublic::TMAC, key, Counting(20), 20, zeros_),
            CodeOf(&clsPublic::MAC, key, Counting(20), 20, zeros_));
}

TEST_F(MacMembersTest, Only_key_bytes_0_to_7_make_a_MAC) {
  ByteArray longer = Counting(16, 0, 0x31);
  EXPECT_EQ(CodeOf(&clsPublic::MAC, longer, Counting(20), 20, zeros_),
            CodeOf(&clsPublic::MAC, Part(longer, 0), Counting(20), 20, zeros_));
}

TEST_F(MacMembersTest, Longer_receivers_keep_their_other_bytes) {
  ByteArray code = Counting(8, 0, 0xC0);
  EXPECT_EQ(Call(&clsPublic::MAC, Counting(8), Counting(8), 8, zeros_, code), kNothingRaised);
  EXPECT_EQ(Hex(code).substr(12), "C4 C5 C6 C7");
}

TEST_F(MacMembersTest, The_receiver_may_be_the_initial_value) {
  ByteArray key = Counting(16, 0, 0x31);
  ByteArray data = Counting(8);
  ByteArray both = Counting(8, 0, 0x77);
  const ByteArray expected = ReferenceMac(key, data, 8, both, true);
  Integer length = 8;
  EXPECT_TRUE(component_.object.TMAC(key, data, length, both, both));
  EXPECT_EQ(Hex(both).substr(0, 11), Hex(expected));
}

TEST_F(MacMembersTest, A_subscript_out_of_range_is_reported_in_one_entry) {
  struct Case {
    std::size_t key;
    std::size_t data;
    int length;
    std::size_t initial;
    std::size_t code;
  };
  constexpr Case kCases[] = {
      {16, 1024, 1024, 8, 4},                      // no room for the padding
      {16, 2000, 1025, 8, 4},                      // no room for the data
      {16, 2000, 32767, 8, 4}, {16, 8, -1, 8, 4},  // the padding mark stands before the buffer
      {16, 8, -32768, 8, 4},   {16, 4, 5, 8, 4},   // data too short
      {16, 8, 8, 7, 4},                            // initial value too short
  };
  const std::string description = Composed(FaultNumber::SubscriptOutOfRange);
  for (const Case& one : kCases) {
    component_.services.files->contents.clear();
    ByteArray code = ByteArray::WithBounds(0, 3);
    EXPECT_EQ(Call(&clsPublic::MAC, Counting(one.key), Counting(one.data), one.length,
                   Counting(one.initial), code),
              MemberError(0x2D, "MAC", description))
        << one.length;
    EXPECT_EQ(Call(&clsPublic::TMAC, Counting(one.key), Counting(one.data), one.length,
                   Counting(one.initial), code),
              MemberError(0x2D, "TMAC", description));
    EXPECT_EQ(Hex(code), "00 00 00 00");
    EXPECT_THAT(component_.LoggedNames(), ElementsAre("MAC", "TMAC"));
  }
}

TEST_F(MacMembersTest, A_small_receiver_gets_what_fits) {
  ByteArray code = ByteArray::WithBounds(0, 1);
  const ByteArray expected = ReferenceMac(Counting(8), Counting(8), 8, zeros_, false);
  EXPECT_EQ(Call(&clsPublic::MAC, Counting(8), Counting(8), 8, zeros_, code),
            MemberError(0x2D, "MAC", Composed(FaultNumber::SubscriptOutOfRange)));
  EXPECT_EQ(Hex(code), Hex(expected).substr(0, 5));
  EXPECT_THAT(component_.LoggedNames(), ElementsAre("MAC"));
}

TEST_F(MacMembersTest, A_short_key_fails_in_DES_or_in_the_copy) {
  EXPECT_EQ(Call(&clsPublic::MAC, Counting(7), Counting(8), 8, zeros_, code_),
            MemberError(0x2D, "MAC", "clsCommon.DES (-2147221464) - Invalid key size provided."));
  EXPECT_THAT(component_.LoggedNames(), ElementsAre("DES", "MAC"));
  component_.services.files->contents.clear();
  EXPECT_EQ(Call(&clsPublic::TMAC, Counting(15), Counting(8), 8, zeros_, code_),
            MemberError(0x2D, "TMAC", Composed(FaultNumber::SubscriptOutOfRange)));
  EXPECT_THAT(component_.LoggedNames(), ElementsAre("TMAC"));
}

}  // namespace
}  // namespace vandpublic
