// What one member makes, its counterpart takes back: random data of every length that fits, from a
// fixed seed.
#include <gtest/gtest.h>

#include <random>

#include "runtime/coerce.h"
#include "support/test_component.h"

namespace vandpublic {
namespace {

class RoundTripTest : public testing::Test {
 protected:
  RoundTripTest() { component_.services.random->values.assign(100'000, 0.3); }

  int Random(int below) { return std::uniform_int_distribution<int>(0, below - 1)(generator_); }

  ByteArray RandomBytes(Long count, Long lower = 0) {
    ByteArray bytes = ByteArray::WithBounds(lower, lower + count - 1);
    for (Byte& byte : bytes.Elements())
      byte = static_cast<Byte>(Random(256));
    return bytes;
  }

  std::string RandomDigits(int count) {
    std::string digits;
    for (int i = 0; i < count; ++i)
      digits += "0123456789ABCDEF"[Random(16)];
    return digits;
  }

  static String WithoutLineBreaks(String text) {
    text.EditUnits([](std::u16string& units) {
      std::erase_if(units, [](char16_t c) { return c == u'\r' || c == u'\n'; });
    });
    return text;
  }

  TestComponent component_;
  clsPublic& object_ = component_.object;
  std::mt19937 generator_{20'240'305};
};

TEST_F(RoundTripTest, DES3_and_UDES3) {
  for (Integer blocks = 1; blocks <= 40; ++blocks) {
    auto length = static_cast<Integer>(8 * blocks);
    ByteArray key = RandomBytes(16);
    ByteArray source = RandomBytes(length);
    ByteArray enciphered = source;
    object_.DES3(key, source, length, enciphered);
    EXPECT_NE(Hex(enciphered), Hex(source));
    object_.UDES3(key, enciphered, length, enciphered);
    EXPECT_EQ(Hex(enciphered), Hex(source));
  }
}

TEST_F(RoundTripTest, FstrDES3_and_FstrUDES3) {
  for (int bytes = 1; bytes <= 200; ++bytes) {
    String key(RandomDigits(32));
    const std::string digits = RandomDigits(2 * bytes);
    String source(digits);
    String enciphered = WithoutLineBreaks(object_.FstrDES3(key, source));
    std::string deciphered = WithoutLineBreaks(object_.FstrUDES3(key, enciphered)).ToUtf8();
    std::erase(deciphered, ' ');
    // Behind the data: nothing, or 80 and zeros up to the end of the block.
    EXPECT_EQ(deciphered.substr(0, digits.size()), digits);
    std::string filling = bytes % 8 == 0 ? "" : "80";
    filling.resize((16 - digits.size() % 16) % 16, '0');
    EXPECT_EQ(deciphered.substr(digits.size()), filling);
  }
}

TEST_F(RoundTripTest, SystemEncrypt_and_SystemDecrypt_with_a_length_byte) {
  for (int bytes = 1; bytes <= 255; ++bytes) {
    String key(RandomDigits(32));
    const ByteArray plain = RandomBytes(bytes, Random(5) - 2);
    Variant source = plain;
    Variant enciphered;
    Variant deciphered;
    const bool as_array = bytes % 2 == 0;
    ASSERT_TRUE(object_.SystemEncrypt(key, source, enciphered, true, as_array, true));
    if (!as_array) enciphered = WithoutLineBreaks(ToText(enciphered));
    ASSERT_TRUE(object_.SystemDecrypt(key, enciphered, deciphered, as_array, true, true));
    ASSERT_NE(deciphered.AsByteArray(), nullptr);
    EXPECT_EQ(Hex(*deciphered.AsByteArray()), Hex(plain)) << bytes;
  }
}

TEST_F(RoundTripTest, SystemEncrypt_and_SystemDecrypt_without_one_lose_the_filler_only) {
  for (int bytes = 1; bytes <= 300; ++bytes) {
    String key(RandomDigits(32));
    ByteArray plain = RandomBytes(bytes);
    plain.At(bytes - 1) = 0x55;
    Variant source = plain;
    Variant enciphered;
    Variant deciphered;
    ASSERT_TRUE(object_.SystemEncrypt(key, source, enciphered, true, true, false));
    ASSERT_TRUE(object_.SystemDecrypt(key, enciphered, deciphered, true, true, false));
    EXPECT_EQ(Hex(*deciphered.AsByteArray()), Hex(plain)) << bytes;
  }
}

TEST_F(RoundTripTest, Dumps_and_fills) {
  for (int bytes = 1; bytes <= 200; ++bytes) {
    ByteArray source = RandomBytes(bytes);
    String dump = WithoutLineBreaks(object_.DispBytes(source));
    ByteArray filled;
    object_.FillByteArrWithHexStr(filled, dump, Integer{0});
    EXPECT_EQ(Hex(filled), Hex(source));
  }
}

TEST_F(RoundTripTest, HexXor_twice) {
  for (int bytes = 1; bytes <= 100; ++bytes) {
    const std::string one = RandomDigits(2 * bytes);
    const String once = object_.HexXor(one, RandomDigits(2 * bytes));
    const String none = object_.HexXor(once, once);
    EXPECT_EQ(none.ToUtf8().find_first_not_of("0 \r\n"), std::string::npos);
    std::string again = object_.HexXor(none, one).ToUtf8();
    std::erase_if(again, [](char c) { return c == ' ' || c == '\r' || c == '\n'; });
    EXPECT_EQ(again, one);
  }
}

TEST_F(RoundTripTest, Numbers_as_message_format_text) {
  for (int i = 0; i < 2000; ++i) {
    const Long number = Random(1 << Random(31));
    for (const bool byte_text : {false, true}) {
      const String text = object_.DecToMsgFmtText(number, 0, byte_text);
      EXPECT_EQ(object_.MsgFmtTextToDec(text, byte_text), number);
    }
  }
}

TEST_F(RoundTripTest, Message_format_text_as_digits) {
  for (int bytes = 0; bytes <= 200; ++bytes) {
    const std::string digits = RandomDigits(2 * bytes);
    for (const bool byte_text : {false, true}) {
      const String text = object_.HexToMsgFmtText(digits, 0, true, u"0", byte_text);
      EXPECT_EQ(object_.MsgFmtTextToHex(text, byte_text).ToUtf8(), digits);
    }
  }
}

}  // namespace
}  // namespace vandpublic
