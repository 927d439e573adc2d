// RetrieveSeed, SystemEncrypt and SystemDecrypt.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/reference_des.h"
#include "support/test_component.h"

namespace vandpublic {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kKey = "0123456789ABCDEFFEDCBA9876543210";

class RetrieveSeedTest : public testing::Test {
 protected:
  bool Call(int length) {
    length_ = static_cast<Integer>(length);
    description_ = "old";
    bool result = false;
    EXPECT_EQ(
        RaisedBy([&] { result = component_.object.RetrieveSeed(seed_, length_, description_); }),
        kNothingRaised);
    return result;
  }

  TestComponent component_;
  FakeRandom& random_ = *component_.services.random;
  ByteArray seed_;
  Integer length_ = 0;
  String description_;
};

TEST_F(RetrieveSeedTest, Values_are_scaled_by_256_rounded_to_even_and_wrapped) {
  random_.values = {0.0, 0.001953125, 0.005859375, 0.5, 0.99609375, 0.998046875, 0.9999999, 0.25};
  EXPECT_TRUE(Call(8));
  // r * 256 = 0, 0.5, 1.5, 128, 255, 255.5, 255.99.., 64
  EXPECT_EQ(Hex(seed_), "00 00 02 80 FF 00 00 40");
  EXPECT_EQ(seed_.LowerBound(), 0);
  EXPECT_EQ(description_.ToUtf8(), "old");
}

TEST_F(RetrieveSeedTest, Eight_bytes_are_the_default) {
  random_.values.assign(8, 0.5);
  EXPECT_TRUE(component_.object.RetrieveSeed(seed_));
  EXPECT_EQ(seed_.Count(), 8);
}

TEST_F(RetrieveSeedTest, An_existing_array_is_kept) {
  seed_ = ByteArray{1, 2, 3};
  random_.values = {0.5, 0.5};
  EXPECT_TRUE(Call(2));
  EXPECT_EQ(Hex(seed_), "80 80 03");
}

TEST_F(RetrieveSeedTest, No_value_is_drawn_for_a_byte_that_has_no_place) {
  seed_ = ByteArray{1, 2, 3, 4};
  random_.values = {0.5, 0.5, 0.5, 0.5, 0.25};
  EXPECT_FALSE(Call(8));
  EXPECT_EQ(Hex(seed_), "80 80 80 80");
  EXPECT_EQ(random_.values.size(), 1u);
  EXPECT_EQ(description_.ToUtf8(), Composed(FaultNumber::SubscriptOutOfRange));
  EXPECT_THAT(component_.LogLines()[0], testing::EndsWith("VandPublic.clsCommon.RetrieveSeed"));
}

TEST_F(RetrieveSeedTest, A_length_of_0_or_less_needs_an_array) {
  for (const int length : {0, -1, -32768}) {
    component_.services.files->contents.clear();
    seed_.Erase();
    EXPECT_FALSE(Call(length));
    EXPECT_THAT(component_.LoggedNames(), ElementsAre("RetrieveSeed"));
    seed_ = ByteArray{9};
    EXPECT_TRUE(Call(length));
    EXPECT_EQ(Hex(seed_), "09");
  }
}

TEST_F(RetrieveSeedTest, Subscripts_are_absolute) {
  seed_ = Counting(8, 1);
  EXPECT_FALSE(Call(8));
  EXPECT_EQ(seed_, Counting(8, 1));
}

// The three switches of SystemEncrypt and SystemDecrypt.
struct Options {
  bool in_array = false;
  bool out_array = false;
  bool padding_length = true;
};
constexpr Options kArrays = {.in_array = true, .out_array = true};
constexpr Options kArraysUnpadded = {.in_array = true, .out_array = true, .padding_length = false};

class SystemCipherTest : public testing::Test {
 protected:
  bool Encrypt(const Variant& source, Options options, const char* key = kKey) {
    return Call(&clsPublic::SystemEncrypt, source, options, key);
  }
  bool Decrypt(const Variant& source, Options options, const char* key = kKey) {
    return Call(&clsPublic::SystemDecrypt, source, options, key);
  }
  ByteArray ResultBytes() { return result_.AsByteArray() ? *result_.AsByteArray() : ByteArray(); }
  std::string ResultText() { return result_.Get<String>() ? result_.Get<String>()->ToUtf8() : "?"; }
  // The plain bytes of an array result.
  std::string Deciphered() { return Hex(ReferenceDecipher(FromHex(kKey), ResultBytes())); }
  void Feed(double value) { random_.values.assign(64, value); }

  TestComponent component_;
  FakeRandom& random_ = *component_.services.random;
  String key_;
  Variant result_;
  String description_;

 private:
  using Member = bool (clsPublic::*)(String&, Variant&, Variant&, bool, bool, bool,
                                     OptionalRef<String>);
  bool Call(Member member, const Variant& source, Options options, const char* key) {
    key_ = key;
    description_ = "old";
    result_ = Long{42};
    Variant input = source;
    bool done = false;
    EXPECT_EQ(RaisedBy([&] {
                done = (component_.object.*member)(key_, input, result_, options.in_array,
                                                   options.out_array, options.padding_length,
                                                   description_);
              }),
              kNothingRaised);
    EXPECT_EQ(input, source) << "the source stays";
    return done;
  }
};

TEST_F(SystemCipherTest, With_a_length_byte_the_block_is_completed_with_random_bytes) {
  random_.values = {0.0, 0.5, 0.99805, 0.001953125, 0.005859375};
  EXPECT_TRUE(Encrypt(ByteArray{0xAA, 0xBB}, kArrays));
  // r * 255 = 0, 127.5, 254.50.., 0.498.., 1.494..; halves go to the even neighbour.
  EXPECT_EQ(Deciphered(), "02 AA BB 00 80 FF 00 01");
  EXPECT_TRUE(random_.values.empty()) << "as many as there are bytes to fill";
  EXPECT_EQ(description_.ToUtf8(), "old");
  EXPECT_EQ(component_.Log(), "");
}

TEST_F(SystemCipherTest, Sizes_with_a_length_byte) {
  Feed(0.5);
  const std::pair<std::size_t, Long> cases[] = {{0, 8},   {7, 8},   {8, 16},  {31, 32}, {32, 40},
                                                {39, 40}, {40, 48}, {47, 48}, {48, 56}, {255, 256}};
  for (const auto& [size, protected_size] : cases) {
    Feed(0.5);
    const ByteArray data = Counting(size);
    EXPECT_TRUE(Encrypt(data, kArrays)) << size;
    EXPECT_EQ(ResultBytes().Count(), protected_size);
    const Variant encrypted = result_;
    if (size == 0) continue;
    EXPECT_TRUE(Decrypt(encrypted, kArrays));
    EXPECT_EQ(ResultBytes(), data);
  }
  EXPECT_EQ(component_.Log(), "");
}

TEST_F(SystemCipherTest, More_than_255_bytes_have_no_length_byte) {
  for (const std::size_t size : {256u, 1000u}) {
    component_.services.files->contents.clear();
    EXPECT_FALSE(Encrypt(Counting(size), kArrays));
    EXPECT_EQ(result_, Variant(Long{42}));
    EXPECT_EQ(description_.ToUtf8(), "");
    EXPECT_THAT(component_.LogLines(),
                ElementsAre("2024-03-05 14:07:09 VandPublic.clsPublic.SystemEncrypt",
                            std::string(20, ' ') + "Public_Module (6) - Overflow"));
  }
}

TEST_F(SystemCipherTest, Without_a_length_byte_80_and_zeros_complete_the_block) {
  struct Case {
    std::size_t size;
    const char* plain;
  };
  constexpr Case kCases[] = {
      {1, "10 80 00 00 00 00 00 00"},
      {7, "10 11 12 13 14 15 16 80"},
      {8, "10 11 12 13 14 15 16 17"},
      {9, "10 11 12 13 14 15 16 17 18 80 00 00 00 00 00 00"},
  };
  for (const Case& one : kCases) {
    EXPECT_TRUE(Encrypt(Counting(one.size, 0, 0x10), kArraysUnpadded));
    EXPECT_EQ(Deciphered(), one.plain);
    const Variant encrypted = result_;
    EXPECT_TRUE(Decrypt(encrypted, kArraysUnpadded));
    EXPECT_EQ(ResultBytes(), Counting(one.size, 0, 0x10));
  }
}

TEST_F(SystemCipherTest, Nothing_without_a_length_byte_fails_in_the_cipher) {
  EXPECT_FALSE(Encrypt(ByteArray(), kArraysUnpadded));
  EXPECT_EQ(description_.ToUtf8(), "");
  EXPECT_THAT(component_.LoggedNames(), ElementsAre("DES", "DES3", "SystemEncrypt"));
}

TEST_F(SystemCipherTest, A_source_array_may_start_anywhere) {
  for (const Long lower : {1, -3, 100}) {
    Feed(0.5);
    EXPECT_TRUE(Encrypt(Counting(7, lower), kArrays));
    EXPECT_EQ(Deciphered(), "07 00 01 02 03 04 05 06");
    const ByteArray result = ResultBytes();
    const auto bytes = result.Elements();
    const ByteArray encrypted(std::vector<Byte>(bytes.begin(), bytes.end()), lower);
    EXPECT_TRUE(Decrypt(encrypted, kArrays));
    EXPECT_EQ(ResultBytes(), Counting(7));
  }
}

TEST_F(SystemCipherTest, A_reference_to_an_array_is_an_array) {
  ByteArray data = Counting(7);
  EXPECT_TRUE(Encrypt(Variant::Referring(data), kArrays));
  EXPECT_EQ(data, Counting(7));
  EXPECT_EQ(Deciphered(), "07 00 01 02 03 04 05 06");
}

TEST_F(SystemCipherTest, Text_goes_through_the_code_page_both_ways) {
  Feed(0.5);
  EXPECT_TRUE(Encrypt(u"A\u20ac\u4e2d", {.out_array = true}));
  EXPECT_EQ(Deciphered(), "03 41 80 3F 80 80 80 80");
  const Variant encrypted = result_;
  EXPECT_TRUE(Decrypt(encrypted, {.in_array = true}));
  EXPECT_EQ(ResultText(), "A\xE2\x82\xAC?");
}

TEST_F(SystemCipherTest, Other_values_than_text_are_converted) {
  EXPECT_TRUE(Encrypt(Long{12345678}, {.out_array = true, .padding_length = false}));
  EXPECT_EQ(Deciphered(), "31 32 33 34 35 36 37 38");
}

TEST_F(SystemCipherTest, The_text_form_is_display_text) {
  Feed(0.5);
  EXPECT_TRUE(Encrypt("1234567", {}));
  EXPECT_EQ(ResultText().size(), 24u);
  EXPECT_EQ(ResultText(), Hex(ReferenceEncipher(FromHex(kKey), FromHex("0731323334353637"))) + " ");
  EXPECT_TRUE(Encrypt(String(std::u16string(39, u'a')), {}));
  EXPECT_EQ(ResultText().size(), 122u);
  EXPECT_TRUE(ResultText().ends_with(" \r\n"));
  EXPECT_TRUE(Encrypt(String(std::u16string(47, u'a')), {}));
  EXPECT_EQ(ResultText().size(), 146u);
}

TEST_F(SystemCipherTest, A_text_form_of_one_line_comes_back_as_it_stands) {
  Feed(0.5);
  EXPECT_TRUE(Encrypt("secret", {}));
  const Variant encrypted = result_;
  EXPECT_TRUE(Decrypt(encrypted, {}));
  EXPECT_EQ(ResultText(), "secret");
}

TEST_F(SystemCipherTest, A_longer_text_form_must_lose_its_line_breaks_first) {
  Feed(0.5);
  const Variant text = String(std::u16string(40, u'a'));
  EXPECT_TRUE(Encrypt(text, {}));
  std::u16string encrypted(result_.Get<String>()->view());
  EXPECT_FALSE(Decrypt(String(encrypted), {}));
  EXPECT_EQ(description_.ToUtf8(), "Input not Hex string . ");
  EXPECT_THAT(component_.LogLines(),
              ElementsAre("2024-03-05 14:07:09 VandPublic.clsPublic.SystemDecrypt",
                          std::string(20, ' ') + "Input not Hex string ."));
  std::erase_if(encrypted, [](char16_t c) { return c == u'\r' || c == u'\n'; });
  EXPECT_TRUE(Decrypt(String(encrypted), {}));
  EXPECT_EQ(result_, text);
}

TEST_F(SystemCipherTest, An_empty_text_cannot_be_encrypted) {
  for (const bool padding_length : {true, false}) {
    component_.services.files->contents.clear();
    EXPECT_FALSE(Encrypt("", {.padding_length = padding_length}));
    EXPECT_EQ(description_.ToUtf8(), "");
    EXPECT_EQ(result_, Variant(Long{42}));
    EXPECT_THAT(component_.LoggedNames(), ElementsAre("SystemEncrypt"));
  }
}

TEST_F(SystemCipherTest, A_source_of_the_other_kind_is_a_mismatch) {
  EXPECT_FALSE(Encrypt("text", kArrays));
  EXPECT_FALSE(Encrypt(ByteArray{1}, {}));
  EXPECT_FALSE(Encrypt(NullValue(), {}));
  EXPECT_FALSE(Decrypt("00", kArrays));
  EXPECT_FALSE(Decrypt(ByteArray{1}, {}));
  EXPECT_FALSE(Decrypt(ByteTable({0, 1}, {0, 8}), kArrays));
  EXPECT_EQ(description_.ToUtf8(), "");
  const std::vector<std::string> lines = component_.LogLines();
  ASSERT_EQ(lines.size(), 12u);
  EXPECT_THAT(lines[1], testing::EndsWith(Composed(FaultNumber::TypeMismatch)));
  EXPECT_THAT(lines[5], testing::EndsWith(Composed(FaultNumber::InvalidUseOfNull)));
}

TEST_F(SystemCipherTest, A_bad_key_fails_in_the_fill) {
  for (const char* key : {"XY", "ab", "0123456789ABCDEFFEDCBA987654321011"}) {
    component_.services.files->contents.clear();
    EXPECT_FALSE(Encrypt("text", {}, key));
    EXPECT_EQ(description_.ToUtf8(), "");
    EXPECT_FALSE(Decrypt("   ", {}, key)) << "before the text is looked at";
    EXPECT_THAT(component_.LoggedNames(), ElementsAre("FillByteArrWithHexStr", "SystemEncrypt",
                                                      "FillByteArrWithHexStr", "SystemDecrypt"));
  }
}

TEST_F(SystemCipherTest, A_short_key_is_completed_with_zeros_and_the_text_changed) {
  Feed(0.5);
  EXPECT_TRUE(Encrypt(ByteArray{1}, kArrays, "1 2 3"));
  EXPECT_EQ(key_.ToUtf8(), "0123");
  EXPECT_EQ(Hex(ReferenceDecipher(FromHex("01230000000000000000000000000000"), ResultBytes())),
            "01 01 80 80 80 80 80 80");
  EXPECT_TRUE(Encrypt(ByteArray{1}, kArrays, ""));
}

TEST_F(SystemCipherTest, A_blank_text_ends_decryption_quietly) {
  EXPECT_FALSE(Decrypt("   ", {}));
  EXPECT_EQ(result_, Variant(""));
  EXPECT_FALSE(Decrypt("", {.out_array = true}));
  EXPECT_EQ(result_, Variant(Long{42})) << "no array, so left alone";
  EXPECT_EQ(description_.ToUtf8(), "old");
  EXPECT_EQ(component_.Log(), "");

  String key = kKey;
  Variant source = " ";
  for (Variant result : {Variant(ByteArray{1, 2}), Variant(ByteTable({0, 1}, {0, 1})),
                         Variant(ArrayShape{8, {{0, 1}}})}) {
    EXPECT_FALSE(component_.object.SystemDecrypt(key, source, result, false, true));
    EXPECT_EQ(result, Variant(ByteArray())) << "an array is erased";
  }
}

TEST_F(SystemCipherTest, Text_that_is_no_cipher_text_is_refused) {
  struct Case {
    const char* text;
    const char* description;
    std::vector<std::string> entries;
  };
  const Case cases[] = {
      {"G0", "Input not Hex string . ", {"SystemDecrypt"}},
      {"01\t02", "Input not Hex string . ", {"SystemDecrypt"}},
      {"0a0b0c0d0e0f0a0b", "", {"FillByteArrWithHexStr", "SystemDecrypt"}},
      {"00112233445566778899AABB", "", {"UDES", "UDES3", "SystemDecrypt"}},
      {"12", "", {"UDES", "UDES3", "SystemDecrypt"}},
  };
  for (const Case& one : cases) {
    component_.services.files->contents.clear();
    EXPECT_FALSE(Decrypt(one.text, {}));
    EXPECT_EQ(description_.ToUtf8(), one.description);
    EXPECT_EQ(result_, Variant(Long{42}));
    EXPECT_EQ(component_.LoggedNames(), one.entries) << one.text;
  }
}

TEST_F(SystemCipherTest, Text_of_more_than_32767_digits_fails_in_IsHex) {
  EXPECT_FALSE(Decrypt(String(std::u16string(32768, u'1')), {}));
  EXPECT_EQ(description_.ToUtf8(), "");
  EXPECT_THAT(component_.LoggedNames(), ElementsAre("IsHex", "SystemDecrypt"));
}

TEST_F(SystemCipherTest, Arrays_of_more_than_32767_bytes_overflow_the_length) {
  EXPECT_FALSE(Encrypt(Counting(32768), kArraysUnpadded));
  EXPECT_FALSE(Decrypt(Counting(32768), kArraysUnpadded));
  EXPECT_THAT(component_.LogLines()[1], testing::EndsWith(Composed(FaultNumber::Overflow)));
  EXPECT_THAT(component_.LogLines()[3], testing::EndsWith(Composed(FaultNumber::Overflow)));
  EXPECT_TRUE(Encrypt(Counting(32760), kArraysUnpadded));
  EXPECT_FALSE(Encrypt(Counting(32761), kArraysUnpadded));
}

TEST_F(SystemCipherTest, A_length_byte_that_cannot_be_fails) {
  for (const char* plain : {"0011223344556677", "0811223344556677", "FF11223344556677"}) {
    component_.services.files->contents.clear();
    EXPECT_FALSE(Decrypt(ReferenceEncipher(FromHex(kKey), FromHex(plain)), kArrays));
    EXPECT_EQ(description_.ToUtf8(), "");
    EXPECT_THAT(component_.LogLines()[1],
                testing::EndsWith(Composed(FaultNumber::SubscriptOutOfRange)));
  }
  EXPECT_TRUE(Decrypt(ReferenceEncipher(FromHex(kKey), FromHex("0711223344556677")), kArrays));
  EXPECT_EQ(Hex(ResultBytes()), "11 22 33 44 55 66 77");
}

TEST_F(SystemCipherTest, Without_a_length_byte_trailing_00_and_80_are_lost_in_arrays_only) {
  const auto encrypted = [](const char* plain) {
    return Variant(ReferenceEncipher(FromHex(kKey), FromHex(plain)));
  };
  constexpr Options kToText = {.in_array = true, .padding_length = false};
  EXPECT_TRUE(Decrypt(encrypted("4142438000000000"), kArraysUnpadded));
  EXPECT_EQ(Hex(ResultBytes()), "41 42 43");
  EXPECT_TRUE(Decrypt(encrypted("0180000000000000"), kArraysUnpadded));
  EXPECT_EQ(Hex(ResultBytes()), "01");
  EXPECT_TRUE(Decrypt(encrypted("4180008041000080"), kArraysUnpadded));
  EXPECT_EQ(Hex(ResultBytes()), "41 80 00 80 41");

  EXPECT_TRUE(Decrypt(encrypted("4142438000000000"), kToText));
  EXPECT_EQ(result_, Variant(String(std::u16string(u"ABC\u20ac\0\0\0\0", 8))));

  EXPECT_TRUE(Decrypt(encrypted("8000000000000000"), kArraysUnpadded));
  EXPECT_EQ(result_, Variant(ByteArray()));
  EXPECT_TRUE(Decrypt(encrypted("0000000000000080"), kToText));
  EXPECT_EQ(result_, Variant(""));
}

TEST_F(SystemCipherTest, Optional_arguments_may_be_left_out) {
  Feed(0.5);
  String key = kKey;
  Variant source = "abc";
  Variant encrypted;
  EXPECT_TRUE(component_.object.SystemEncrypt(key, source, encrypted));
  Variant plain;
  EXPECT_TRUE(component_.object.SystemDecrypt(key, encrypted, plain));
  EXPECT_EQ(plain, Variant("abc"));
}

TEST_F(SystemCipherTest, Source_and_result_may_be_one_variable) {
  Feed(0.5);
  String key = kKey;
  Variant value = "abc";
  EXPECT_TRUE(component_.object.SystemEncrypt(key, value, value));
  EXPECT_TRUE(component_.object.SystemDecrypt(key, value, value));
  EXPECT_EQ(value, Variant("abc"));
}

}  // namespace
}  // namespace vandpublic
