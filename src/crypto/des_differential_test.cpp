// The ciphers against a second implementation, on random keys and data.
#include <gtest/gtest.h>

#include <random>

#include "support/reference_des.h"
#include "support/slow_build.h"
#include "support/test_component.h"

namespace vandpublic {
namespace {

constexpr int kBlocks = kSlowBuild ? 2000 : 100000;
constexpr Long kLongest = 1024;

class DesDifferentialTest : public testing::Test {
 protected:
  ByteArray Random(Long count) {
    ByteArray bytes = ByteArray::WithBounds(0, count - 1);
    for (Byte& byte : bytes.Elements())
      byte = static_cast<Byte>(generator_());
    return bytes;
  }

  using Cipher = bool (clsPublic::*)(ByteArray&, ByteArray&, Integer&, ByteArray&,
                                     OptionalRef<String>);
  ByteArray Through(Cipher cipher, ByteArray& key, ByteArray& source) {
    auto length = static_cast<Integer>(source.Count());
    ByteArray result = ByteArray::WithBounds(0, length - 1);
    (component_.object.*cipher)(key, source, length, result, u"");
    return result;
  }

  // Both directions; the first difference ends the test.
  void Compare(Cipher encipher, Cipher decipher, ByteArray& key, ByteArray& data) {
    ASSERT_EQ(Through(encipher, key, data), ReferenceEncipher(key, data))
        << "key " << Hex(key) << " data " << Hex(data);
    ASSERT_EQ(Through(decipher, key, data), ReferenceDecipher(key, data))
        << "key " << Hex(key) << " data " << Hex(data);
  }

  std::mt19937 generator_;  // in its fixed initial state, so that a failure can be repeated
  TestComponent component_;
};

TEST_F(DesDifferentialTest, Random_blocks_under_random_single_keys) {
  for (int i = 0; i < kBlocks && !HasFatalFailure(); ++i) {
    ByteArray key = Random(8);
    ByteArray data = Random(8);
    Compare(&clsPublic::DES, &clsPublic::UDES, key, data);
  }
}

TEST_F(DesDifferentialTest, Random_blocks_under_random_double_keys) {
  for (int i = 0; i < kBlocks && !HasFatalFailure(); ++i) {
    ByteArray key = Random(16);
    ByteArray data = Random(8);
    Compare(&clsPublic::DES3, &clsPublic::UDES3, key, data);
  }
}

TEST_F(DesDifferentialTest, Every_length_up_to_1024) {
  for (Long length = 8; length <= kLongest && !HasFatalFailure(); length += 8) {
    ByteArray single_key = Random(8);
    ByteArray double_key = Random(16);
    ByteArray data = Random(length);
    Compare(&clsPublic::DES, &clsPublic::UDES, single_key, data);
    Compare(&clsPublic::DES3, &clsPublic::UDES3, double_key, data);
  }
}

TEST_F(DesDifferentialTest, The_longest_length_is_32760) {
  ByteArray key = Random(8);
  ByteArray data = Random(32760);
  Compare(&clsPublic::DES, &clsPublic::UDES, key, data);
}

TEST_F(DesDifferentialTest, The_result_may_be_the_source) {
  for (const Long length : {8, 64, 1024}) {
    ByteArray single_key = Random(8);
    ByteArray double_key = Random(16);
    const ByteArray data = Random(length);
    auto count = static_cast<Integer>(length);
    ByteArray in_place = data;
    component_.object.DES(single_key, in_place, count, in_place);
    EXPECT_EQ(in_place, ReferenceEncipher(single_key, data));
    component_.object.UDES(single_key, in_place, count, in_place);
    EXPECT_EQ(in_place, data);
    component_.object.DES3(double_key, in_place, count, in_place);
    EXPECT_EQ(in_place, ReferenceEncipher(double_key, data));
    component_.object.UDES3(double_key, in_place, count, in_place);
    EXPECT_EQ(in_place, data);
  }
}

TEST_F(DesDifferentialTest, The_result_may_be_the_key) {
  const ByteArray single_key = Random(16);  // its first 8 bytes count
  const ByteArray double_key = Random(16);
  ByteArray data = Random(16);
  Integer length = 16;
  ByteArray key = single_key;
  component_.object.DES(key, data, length, key);
  EXPECT_EQ(key, ReferenceEncipher(ByteArray(std::vector<Byte>(single_key.Elements().begin(),
                                                               single_key.Elements().begin() + 8)),
                                   data));
  key = double_key;
  component_.object.UDES3(key, data, length, key);
  EXPECT_EQ(key, ReferenceDecipher(double_key, data));
}

TEST_F(DesDifferentialTest, Key_source_and_result_may_be_one_array) {
  const ByteArray start = Random(16);
  Integer length = 16;
  ByteArray all = start;
  component_.object.DES3(all, all, length, all);
  EXPECT_EQ(all, ReferenceEncipher(start, start));
}

}  // namespace
}  // namespace vandpublic
