// FstrDES3, FstrUDES3, FstrDiversifyKey and FstrTMAC.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/reference_des.h"
#include "support/test_component.h"

namespace vandpublic {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kKey = "0123456789ABCDEFFEDCBA9876543210";

// The display text of bytes: a blank behind each, a line break behind every 40th.
std::string Shown(const ByteArray& bytes) {
  std::string text;
  for (Long i = 0; i < bytes.Count(); ++i) {
    text += Hex(ByteArray{bytes.At(i)}) + " ";
    if (i % 40 == 39) text += "\r\n";
  }
  return text;
}

std::string Digits(const ByteArray& bytes) {
  std::string digits = Hex(bytes);
  std::erase(digits, ' ');
  return digits;
}

class HexCiphersTest : public testing::Test {
 protected:
  // Enciphers or deciphers; the texts and the length afterwards stay in the members.
  std::string Encipher(const std::string& key, const std::string& source, int length = 0) {
    return Run(&clsPublic::FstrDES3, key, source, length);
  }
  std::string Decipher(const std::string& key, const std::string& source, int length = 0) {
    return Run(&clsPublic::FstrUDES3, key, source, length);
  }

  TestComponent component_;
  String key_;
  String source_;
  Integer length_ = 0;
  Raised raised_;

 private:
  using Member = String (clsPublic::*)(String&, String&, OptionalRef<Integer>);
  std::string Run(Member member, const std::string& key, const std::string& source, int length) {
    key_ = key;
    source_ = source;
    length_ = static_cast<Integer>(length);
    std::string text;
    raised_ =
        RaisedBy([&] { text = (component_.object.*member)(key_, source_, length_).ToUtf8(); });
    return text;
  }
};

Raised EncipherError(const std::string& description) {
  return MemberError(0x1C, "FstrDES3", description);
}

TEST_F(HexCiphersTest, Whole_blocks_are_enciphered_as_they_are) {
  const ByteArray data = Counting(16);
  EXPECT_EQ(Encipher(kKey, Digits(data)), Shown(ReferenceEncipher(FromHex(kKey), data)));
  EXPECT_EQ(length_, 16);
  EXPECT_EQ(Decipher(kKey, Digits(ReferenceEncipher(FromHex(kKey), data))), Shown(data));
  EXPECT_EQ(length_, 16);
  EXPECT_EQ(component_.Log(), "");
}

TEST_F(HexCiphersTest, A_block_is_completed_with_80_and_zeros_that_deciphering_shows) {
  const std::string text = Encipher(kKey, "1122334455");
  EXPECT_EQ(text, Shown(ReferenceEncipher(FromHex(kKey), FromHex("1122334455800000"))));
  EXPECT_EQ(length_, 8);
  EXPECT_EQ(Decipher(kKey, text), "11 22 33 44 55 80 00 00 ");
}

TEST_F(HexCiphersTest, Texts_lose_their_blanks_and_get_a_leading_0) {
  Encipher(" 01 23 ", "0 1 2");
  EXPECT_EQ(key_.ToUtf8(), "0123");
  EXPECT_EQ(source_.ToUtf8(), "0012");
  EXPECT_EQ(length_, 8);
}

TEST_F(HexCiphersTest, A_short_key_is_completed_with_zeros) {
  const ByteArray data = Counting(8);
  EXPECT_EQ(Encipher("0123456789ABCDEF", Digits(data)),
            Shown(ReferenceEncipher(FromHex("0123456789ABCDEF0000000000000000"), data)));
  EXPECT_EQ(Encipher("", Digits(data)),
            Shown(ReferenceEncipher(FromHex("00000000000000000000000000000000"), data)));
}

TEST_F(HexCiphersTest, A_length_takes_that_many_bytes) {
  const std::string data = "1122334455667788";
  EXPECT_EQ(Encipher(kKey, data + data, 8), Shown(ReferenceEncipher(FromHex(kKey), FromHex(data))));
  EXPECT_EQ(length_, 8);
  EXPECT_EQ(Encipher(kKey, data, 16),
            Shown(ReferenceEncipher(FromHex(kKey), FromHex(data + "0000000000000000"))))
      << "zeros behind the data";
  EXPECT_EQ(length_, 16);
}

TEST_F(HexCiphersTest, Padding_does_not_clear_the_data_behind_it) {
  EXPECT_EQ(Encipher(kKey, "1122334455667788", 5),
            Shown(ReferenceEncipher(FromHex(kKey), FromHex("1122334455807788"))));
  EXPECT_EQ(length_, 8);
}

TEST_F(HexCiphersTest, Lengths_end_at_the_next_multiple_of_8) {
  const std::pair<int, int> cases[] = {{1, 8}, {8, 8}, {9, 16}, {1023, 1024}, {1024, 1024}};
  for (const auto& [before, after] : cases) {
    EXPECT_NE(Encipher(kKey, "FF", before), "");
    EXPECT_EQ(length_, after);
    EXPECT_EQ(raised_, kNothingRaised);
  }
}

TEST_F(HexCiphersTest, A_line_ends_behind_every_fortieth_byte) {
  const std::string forty = Encipher(kKey, Digits(Counting(40)));
  EXPECT_EQ(forty.size(), 122u);
  EXPECT_TRUE(forty.ends_with(" \r\n"));
  const std::string longer = Encipher(kKey, Digits(Counting(48)));
  EXPECT_EQ(longer.size(), 146u);
  EXPECT_EQ(longer.substr(119, 3), " \r\n");
}

TEST_F(HexCiphersTest, The_longest_text_has_1024_bytes) {
  const std::string text = Encipher(kKey, Digits(Counting(1024)));
  EXPECT_EQ(text, Shown(ReferenceEncipher(FromHex(kKey), Counting(1024))));
  Encipher(kKey, Digits(Counting(1025)));
  EXPECT_EQ(raised_, EncipherError("clsCommon.FillByteArrWithHexStr (-2147221455) - "));
  EXPECT_EQ(length_, 0);
}

TEST_F(HexCiphersTest, Failures_are_logged_by_every_member_on_the_way) {
  struct Case {
    const char* key;
    const char* source;
    int length;
    std::vector<std::string> entries;
    int length_after;
  };
  const Case cases[] = {
      {kKey, "", 0, {"DES", "DES3", "FstrDES3"}, 0},
      {kKey, "11", -8, {"DES", "DES3", "FstrDES3"}, -8},
      {kKey, "11", -3, {"FstrDES3"}, -3},  // the padding mark has no place
      {kKey, "11", 1025, {"FstrDES3"}, 1025},
      {kKey, "11", 1031, {"FstrDES3"}, 1031},
      {kKey, "11", 32767, {"FstrDES3"}, 32767},
      {kKey, "11", 1032, {"DES", "DES3", "FstrDES3"}, 1032},
      {"01234567ab", "1122334455", 0, {"FillByteArrWithHexStr", "FstrDES3"}, 0},
      {"XY", "1122334455", 0, {"FillByteArrWithHexStr", "FstrDES3"}, 0},
      {kKey, "11x", 0, {"FillByteArrWithHexStr", "FstrDES3"}, 0},
      {"0123456789ABCDEFFEDCBA987654321011", "11", 0, {"FillByteArrWithHexStr", "FstrDES3"}, 0},
  };
  for (const Case& one : cases) {
    component_.services.files->contents.clear();
    EXPECT_EQ(Encipher(one.key, one.source, one.length), "");
    EXPECT_EQ(raised_.number, EncipherError("").number);
    EXPECT_EQ(raised_.source, "clsCommon.FstrDES3");
    EXPECT_EQ(component_.LoggedNames(), one.entries) << one.key << " " << one.length;
    EXPECT_EQ(length_, one.length_after);
  }
}

TEST_F(HexCiphersTest, The_description_tells_of_every_member_on_the_way) {
  Encipher(kKey, "");
  const std::string inner =
      "clsCommon.DES3 (-2147221462) - clsCommon.DES (-2147221464) - Invalid source data length.";
  EXPECT_EQ(raised_, EncipherError(inner));
  EXPECT_EQ(component_.LogLines()[5], std::string(20, ' ') + inner);
  Encipher(kKey, "11", 1025);
  EXPECT_EQ(raised_, EncipherError(Composed(FaultNumber::SubscriptOutOfRange)));
}

TEST_F(HexCiphersTest, Deciphering_swallows_its_failures) {
  struct Case {
    const char* key;
    const char* source;
    int length;
    std::vector<std::string> entries;
    int length_after;
  };
  const Case cases[] = {
      {kKey, "112233445566778899AABBCC", 0, {"UDES", "UDES3"}, 12},
      {kKey, "", 0, {"UDES", "UDES3"}, 0},
      {"ab", "1122334455667788", 0, {"FillByteArrWithHexStr"}, 0},
      {kKey, "XY", 0, {"FillByteArrWithHexStr"}, 0},
      {kKey, "11", 1032, {"UDES", "UDES3"}, 1032},
      {kKey, "11", -3, {"UDES", "UDES3"}, -3},
  };
  for (const Case& one : cases) {
    component_.services.files->contents.clear();
    EXPECT_EQ(Decipher(one.key, one.source, one.length), "");
    EXPECT_EQ(raised_, kNothingRaised);
    EXPECT_EQ(component_.LoggedNames(), one.entries) << one.source;
    EXPECT_EQ(length_, one.length_after);
  }
}

TEST_F(HexCiphersTest, Deciphering_changes_the_texts_also_when_it_fails) {
  EXPECT_EQ(Decipher("0 1 2", "0 1 2"), "");
  EXPECT_EQ(key_.ToUtf8(), "0012");
  EXPECT_EQ(source_.ToUtf8(), "0012");
  EXPECT_EQ(length_, 2);
}

TEST_F(HexCiphersTest, Enciphered_text_with_line_breaks_must_lose_them_first) {
  std::string text = Encipher(kKey, Digits(Counting(40)));
  EXPECT_EQ(Decipher(kKey, text), "");
  EXPECT_THAT(component_.LoggedNames(), ElementsAre("FillByteArrWithHexStr"));
  text.resize(text.size() - 2);
  EXPECT_EQ(Decipher(kKey, text), Shown(Counting(40)));
}

TEST_F(HexCiphersTest, The_length_may_be_left_out) {
  String key = kKey;
  String source = "11";
  EXPECT_EQ(component_.object.FstrDES3(key, source).Length(), 24u);
  EXPECT_EQ(component_.object.FstrUDES3(key, source).ToUtf8(), "");
}

class FstrDiversifyKeyTest : public testing::Test {
 protected:
  std::string Diversify(const std::string& key, const std::string& factor) {
    key_ = key;
    factor_ = factor;
    std::string text;
    raised_ = RaisedBy([&] { text = component_.object.FstrDiversifyKey(key_, factor_).ToUtf8(); });
    return text;
  }
  static std::string Expected(const std::string& key, const std::string& data) {
    ByteArray complement = FromHex(data);
    for (Byte& byte : complement.Elements())
      byte = static_cast<Byte>(~byte);
    return Shown(ReferenceEncipher(FromHex(key), FromHex(data + Digits(complement))));
  }

  TestComponent component_;
  String key_;
  String factor_;
  Raised raised_;
};

TEST_F(FstrDiversifyKeyTest, The_first_8_bytes_of_the_factor_and_their_complement_are_enciphered) {
  const std::string factor = "1122334455667788";
  EXPECT_EQ(Diversify(kKey, factor), Expected(kKey, factor));
  EXPECT_EQ(Diversify(kKey, factor).size(), 48u);
  EXPECT_EQ(Diversify(kKey, factor + "99AABBCCDDEEFF0011"), Expected(kKey, factor)) << "17 bytes";
  EXPECT_EQ(Diversify(kKey, "112233"), Expected(kKey, "1122330000000000"));
  EXPECT_EQ(Diversify(kKey, ""), Expected(kKey, "0000000000000000"));
  EXPECT_EQ(component_.Log(), "");
}

TEST_F(FstrDiversifyKeyTest, A_short_key_is_completed_with_zeros) {
  EXPECT_EQ(Diversify("0123456789ABCDEF", "11"),
            Expected("0123456789ABCDEF0000000000000000", "1100000000000000"));
  EXPECT_EQ(Diversify("", "11"), Expected(std::string(32, '0'), "1100000000000000"));
}

TEST_F(FstrDiversifyKeyTest, It_fails_under_the_name_of_another_member) {
  const std::pair<const char*, const char*> cases[] = {
      {"XY", "11"},
      {kKey, "ab"},
      {kKey, "112233445566778899AABBCCDDEEFF001122"},  // 18 bytes
      {"0123456789ABCDEFFEDCBA987654321011", "11"},    // 17 bytes
  };
  for (const auto& [key, factor] : cases) {
    component_.services.files->contents.clear();
    EXPECT_EQ(Diversify(key, factor), "");
    EXPECT_EQ(raised_.number, MemberError(0x1E, "", "").number);
    EXPECT_EQ(raised_.source, "clsCommon.FstrUDES3");
    EXPECT_THAT(component_.LoggedNames(), ElementsAre("FillByteArrWithHexStr", "FstrUDES3"));
  }
  Diversify("XY", "11");
  EXPECT_EQ(raised_.description,
            "clsCommon.FillByteArrWithHexStr (-2147221455) - Resouce string not Hex string.");
}

TEST_F(FstrDiversifyKeyTest, The_texts_are_changed_one_after_the_other) {
  Diversify("1 2 3", "4 5 6");
  EXPECT_EQ(key_.ToUtf8(), "0123");
  EXPECT_EQ(factor_.ToUtf8(), "0456");
  Diversify("x y", "4 5 6");
  EXPECT_EQ(key_.ToUtf8(), "xy");
  EXPECT_EQ(factor_.ToUtf8(), "4 5 6") << "not reached";
}

class FstrTMACTest : public testing::Test {
 protected:
  std::string Code(const std::string& key, const std::string& source, const std::string& initial,
                   int length = 0) {
    key_ = key;
    source_ = source;
    initial_ = initial;
    length_ = static_cast<Integer>(length);
    std::string text;
    raised_ = RaisedBy(
        [&] { text = component_.object.FstrTMAC(key_, source_, initial_, length_).ToUtf8(); });
    return text;
  }

  TestComponent component_;
  String key_;
  String source_;
  String initial_;
  Integer length_ = 0;
  Raised raised_;
};

TEST_F(FstrTMACTest, The_code_is_shown_as_four_bytes) {
  // ISO/IEC 9797-1, algorithm 3, padding method 2.
  const std::string text = "4E6F77206973207468652074696D6520666F7220616C6C20";
  EXPECT_EQ(Code(kKey, text, ""), "E9 08 62 30 ");
  EXPECT_EQ(length_, 24);
  EXPECT_EQ(Code(kKey, text + "FF", "0000000000000000", 24), "E9 08 62 30 ");
  EXPECT_EQ(length_, 24);
}

TEST_F(FstrTMACTest, An_empty_text_has_a_code) {
  EXPECT_EQ(Code(kKey, "", "").size(), 12u);
  EXPECT_EQ(raised_, kNothingRaised);
  EXPECT_EQ(length_, 0);
}

TEST_F(FstrTMACTest, A_short_key_and_initial_value_are_completed_with_zeros) {
  EXPECT_EQ(Code("0123456789ABCDEF", "1122", "33"),
            Code("0123456789ABCDEF0000000000000000", "1122", "3300000000000000"));
  EXPECT_NE(Code("0123456789ABCDEF", "1122", "33"), Code("0123456789ABCDEF", "1122", ""));
}

TEST_F(FstrTMACTest, Failures_are_logged_by_every_member_on_the_way) {
  struct Case {
    const char* key;
    const char* source;
    const char* initial;
    int length;
    std::vector<std::string> entries;
  };
  const Case cases[] = {
      {"XY", "11", "", 0, {"FillByteArrWithHexStr", "FstrTMAC"}},
      {kKey, "aa", "", 0, {"FillByteArrWithHexStr", "FstrTMAC"}},
      {kKey, "11", "112233445566778899", 0, {"FillByteArrWithHexStr", "FstrTMAC"}},
      {kKey, "11", "", 1024, {"TMAC", "FstrTMAC"}},
      {kKey, "11", "", -1, {"TMAC", "FstrTMAC"}},
  };
  for (const Case& one : cases) {
    component_.services.files->contents.clear();
    EXPECT_EQ(Code(one.key, one.source, one.initial, one.length), "");
    EXPECT_EQ(raised_.number, MemberError(0x1F, "", "").number);
    EXPECT_EQ(raised_.source, "clsCommon.FstrTMAC");
    EXPECT_EQ(component_.LoggedNames(), one.entries);
  }
  EXPECT_EQ(Code(kKey, "11", "", 1023).size(), 12u);
}

TEST_F(FstrTMACTest, The_length_may_be_left_out) {
  String key = kKey;
  String source = "1 1";
  String initial = "0 0";
  EXPECT_EQ(component_.object.FstrTMAC(key, source, initial).Length(), 12u);
  EXPECT_EQ(source.ToUtf8(), "11");
  EXPECT_EQ(initial.ToUtf8(), "00");
}

}  // namespace
}  // namespace vandpublic
