// The six members for message-format text.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/test_component.h"

namespace vandpublic {
namespace {

using testing::ElementsAre;

std::string StorageHex(const String& text) {
  std::vector<Byte> bytes;
  for (std::size_t i = 0; i < text.ByteLength(); ++i)
    bytes.push_back(text.ByteAt(i));
  return Hex(ByteArray(std::move(bytes)));
}

class MessageFormatTest : public testing::Test {
 protected:
  TestComponent component_;
  clsPublic& object_ = component_.object;
};

TEST_F(MessageFormatTest, MsgFmtTextToHex_takes_the_low_byte_of_each_character) {
  EXPECT_EQ(object_.MsgFmtTextToHex(u"AB").ToUtf8(), "4142");
  EXPECT_EQ(object_.MsgFmtTextToHex(u"\u0141").ToUtf8(), "41");
  EXPECT_EQ(object_.MsgFmtTextToHex(u"\u20ac").ToUtf8(), "AC");
  EXPECT_EQ(object_.MsgFmtTextToHex(std::u16string(1, u'\0')).ToUtf8(), "00");
  EXPECT_EQ(object_.MsgFmtTextToHex(u"").ToUtf8(), "");
}

TEST_F(MessageFormatTest, MsgFmtTextToHex_takes_every_storage_byte_of_byte_text) {
  EXPECT_EQ(object_.MsgFmtTextToHex(u"AB", true).ToUtf8(), "41004200");
  EXPECT_EQ(object_.MsgFmtTextToHex(u"\u20ac", true).ToUtf8(), "AC20");
  EXPECT_EQ(object_.MsgFmtTextToHex(String::FromBytes("A"), true).ToUtf8(), "41");
  EXPECT_EQ(object_.MsgFmtTextToHex(String::FromBytes("A")).ToUtf8(), "");
}

TEST_F(MessageFormatTest, MsgFmtTextToHex_counts_in_16_bits_in_the_unit_it_counts) {
  EXPECT_EQ(object_.MsgFmtTextToHex(std::u16string(16384, u'A')).Length(), 32768u);
  EXPECT_EQ(object_.MsgFmtTextToHex(std::u16string(32767, u'A')).Length(), 65534u);
  EXPECT_EQ(object_.MsgFmtTextToHex(std::u16string(16383, u'A'), true).Length(), 65532u);
  EXPECT_EQ(RaisedBy([&] { object_.MsgFmtTextToHex(std::u16string(16384, u'A'), true); }),
            MemberError(0x0C, "MsgFmtTextToHex", ""));
  EXPECT_EQ(RaisedBy([&] { object_.MsgFmtTextToHex(std::u16string(32768, u'A')); }),
            MemberError(0x0C, "MsgFmtTextToHex", ""));
  EXPECT_THAT(component_.LoggedNames(), ElementsAre("MsgFmtTextToHex", "MsgFmtTextToHex"));
}

// The eight bits of a text, least significant first, each 7 before the call.
std::vector<int> Bits(clsPublic& object, const String& text, bool byte_text = false) {
  Byte b[8] = {7, 7, 7, 7, 7, 7, 7, 7};
  object.MsgFmtTextToBit(text, b[0], b[1], b[2], b[3], b[4], b[5], b[6], b[7], byte_text);
  return {b, b + 8};
}

TEST_F(MessageFormatTest, MsgFmtTextToBit_gives_the_bits_of_the_first_low_byte) {
  EXPECT_THAT(Bits(object_, u"A"), ElementsAre(1, 0, 0, 0, 0, 0, 1, 0));
  EXPECT_THAT(Bits(object_, u"AB", true), ElementsAre(1, 0, 0, 0, 0, 0, 1, 0));
  EXPECT_THAT(Bits(object_, u"\u01ff"), ElementsAre(1, 1, 1, 1, 1, 1, 1, 1));
  EXPECT_THAT(Bits(object_, u"\u0080"), ElementsAre(0, 0, 0, 0, 0, 0, 0, 1));
  EXPECT_THAT(Bits(object_, String::FromBytes("\x03"), true), ElementsAre(1, 1, 0, 0, 0, 0, 0, 0));
  EXPECT_EQ(RaisedBy([&] { object_.MsgFmtTextToBit(u"A"); }), kNothingRaised);
}

TEST_F(MessageFormatTest, MsgFmtTextToBit_needs_a_character_or_a_byte) {
  const Raised refused = MemberError(0x0A, "MsgFmtTextToBit", "");
  Byte bit = 7;
  EXPECT_EQ(RaisedBy([&] { object_.MsgFmtTextToBit(u"", bit); }), refused);
  EXPECT_EQ(RaisedBy([&] { object_.MsgFmtTextToBit(u"", bit, 0, 0, 0, 0, 0, 0, 0, true); }),
            refused);
  EXPECT_EQ(RaisedBy([&] { object_.MsgFmtTextToBit(String::FromBytes("A"), bit); }), refused)
      << "half a unit is no character";
  EXPECT_EQ(bit, 7);
  EXPECT_THAT(component_.LogLines()[1],
              testing::EndsWith(Composed(FaultNumber::InvalidProcedureCall)));
}

TEST_F(MessageFormatTest, MsgFmtTextToDec_reads_an_unsigned_big_endian_number) {
  struct Case {
    String text;
    bool byte_text;
    Long value;
  };
  const Case cases[] = {
      {u"", false, 0},
      {u"AB", false, 16706},
      {u"AB", true, 0x41004200},
      {u"\u00ff\u00ff\u00ff", false, 16777215},
      {u"\u007f\u00ff\u00ff\u00ff", false, 2147483647},
      {std::u16string(5, u'\0') + u"A", false, 65},
      {String::FromBytes("ABC"), true, 4276803},
  };
  for (const Case& one : cases)
    EXPECT_EQ(object_.MsgFmtTextToDec(one.text, one.byte_text), one.value);
}

TEST_F(MessageFormatTest, MsgFmtTextToDec_overflows_from_80000000_on) {
  const Raised refused = MemberError(0x0B, "MsgFmtTextToDec", "");
  EXPECT_EQ(RaisedBy([&] { object_.MsgFmtTextToDec(u"\u0080" + std::u16string(3, u'\0')); }),
            refused);
  EXPECT_EQ(RaisedBy([&] { object_.MsgFmtTextToDec(u"\u00ff\u00ff\u00ff\u00ff"); }), refused);
  EXPECT_EQ(RaisedBy([&] { object_.MsgFmtTextToDec(u"AAAAA"); }), refused);
  component_.services.files->contents.clear();
  EXPECT_EQ(RaisedBy([&] { object_.MsgFmtTextToDec(std::u16string(32768, u'\0')); }), refused);
  EXPECT_THAT(component_.LoggedNames(), ElementsAre("MsgFmtTextToHex", "MsgFmtTextToDec"));
}

TEST_F(MessageFormatTest, BitToMsgFmtText_makes_one_character_or_one_byte) {
  EXPECT_EQ(Codes(object_.BitToMsgFmtText()), "00");
  EXPECT_EQ(Codes(object_.BitToMsgFmtText(1, 0, 0, 0, 0, 0, 1)), "41");
  EXPECT_EQ(Codes(object_.BitToMsgFmtText(0, 0, 0, 0, 0, 0, 0, 1)), "80");
  const String byte = object_.BitToMsgFmtText(1, 0, 0, 0, 0, 0, 1, 0, true);
  EXPECT_EQ(byte.Length(), 0u);
  EXPECT_EQ(StorageHex(byte), "41");
}

TEST_F(MessageFormatTest, BitToMsgFmtText_refuses_any_bit_above_1) {
  for (int k = 0; k < 8; ++k) {
    Byte b[8] = {};
    b[k] = 2;
    EXPECT_EQ(
        RaisedBy([&] { object_.BitToMsgFmtText(b[0], b[1], b[2], b[3], b[4], b[5], b[6], b[7]); }),
        MemberError(0x0D, "BitToMsgFmtText", "Input value is not in bit format."));
  }
}

TEST_F(MessageFormatTest, DecToMsgFmtText_writes_big_endian_bytes) {
  struct Case {
    Long value;
    Integer length;
    const char* codes;
  };
  constexpr Case kCases[] = {
      {0, 0, "00"},
      {15, 0, "0F"},
      {65, 0, "41"},
      {256, 0, "01.00"},
      {256, 2, "00"},
      {65, 1, "01"},
      {65, 3, "00.41"},
      {65, 4, "00.41"},
      {65, 10, "00.00.00.00.41"},
      {65, -4, "41"},
      {-1, 0, "FF.FF.FF.FF"},
      {-1, 3, "0F.FF"},
      {-2147483647 - 1, 0, "80.00.00.00"},
      {2147483647, 0, "7F.FF.FF.FF"},
  };
  for (const Case& one : kCases)
    EXPECT_EQ(Codes(object_.DecToMsgFmtText(one.value, one.length)), one.codes);
  EXPECT_EQ(StorageHex(object_.DecToMsgFmtText(65, 0, true)), "41");
  EXPECT_EQ(object_.DecToMsgFmtText(65, 32767).Length(), 16384u);
}

TEST_F(MessageFormatTest, HexToMsgFmtText_pads_trims_and_completes) {
  struct Case {
    const char* digits;
    Integer length;
    bool left;
    const char* pad;
    const char* codes;
  };
  constexpr Case kCases[] = {
      {"4142", 0, true, "0", "41.42"},
      {" 4142 ", 0, true, "0", "41.42"},
      {"ab", 0, true, "0", "AB"},
      {"80", 0, true, "0", "80"},
      {"", 0, true, "0", ""},
      {"", 3, true, "0", "00.00"},
      {"", 4, true, "0", "00.00"},
      {"4", 0, true, "0", "04"},
      {"4", 0, false, "0", "40"},
      {"414", 0, true, "0", "04.14"},
      {"414", 0, false, "0", "41.40"},
      {"41", 4, true, "0", "00.41"},
      {"41", 4, false, "0", "41.00"},
      {"123456", 4, true, "0", "34.56"},
      {"123456", 4, false, "0", "12.34"},
      {"123456", 3, true, "0", "04.56"},
      {"123456", 3, false, "0", "12.30"},
      {"4", 4, true, "A", "AA.A4"},
      {"4", 0, true, "F", "F4"},
      {"4", 0, false, "Fz", "4F"},
      {"4", 0, true, "", "04"},
      {"41", -32768, true, "0", "41"},
  };
  for (const Case& one : kCases) {
    EXPECT_EQ(Codes(object_.HexToMsgFmtText(one.digits, one.length, one.left, one.pad)), one.codes)
        << one.digits << ", " << one.length;
  }
  EXPECT_EQ(component_.Log(), "");
}

TEST_F(MessageFormatTest, HexToMsgFmtText_gives_nothing_for_what_is_not_hexadecimal) {
  EXPECT_EQ(object_.HexToMsgFmtText("4G").ToUtf8(), "");
  EXPECT_EQ(object_.HexToMsgFmtText("41 42").ToUtf8(), "");
  EXPECT_EQ(object_.HexToMsgFmtText("41", 4, true, "Z").ToUtf8(), "");
  EXPECT_EQ(object_.HexToMsgFmtText("41", 0, true, "Z").ToUtf8(), "") << "needed or not";
  EXPECT_EQ(object_.HexToMsgFmtText("41", 0, true, " ").ToUtf8(), "");
  EXPECT_EQ(component_.Log(), "");
}

TEST_F(MessageFormatTest, HexToMsgFmtText_as_byte_text_may_hold_an_odd_number_of_bytes) {
  EXPECT_EQ(StorageHex(object_.HexToMsgFmtText("414243", 0, true, "0", true)), "41 42 43");
  EXPECT_EQ(Codes(object_.HexToMsgFmtText("4142", 0, true, "0", true)), "4241");
}

TEST_F(MessageFormatTest, HexToMsgFmtText_of_32768_digits_fails_in_IsHex_first) {
  EXPECT_EQ(object_.HexToMsgFmtText(std::u16string(32767, u'1')).Length(), 16384u);
  EXPECT_EQ(RaisedBy([&] { object_.HexToMsgFmtText(std::u16string(32768, u'1')); }),
            MemberError(0x0F, "HexToMsgFmtText", ""));
  EXPECT_THAT(component_.LoggedNames(), ElementsAre("IsHex", "HexToMsgFmtText"));
}

TEST_F(MessageFormatTest, Every_byte_comes_back_through_both_forms) {
  std::u16string text;
  for (char16_t c = 0; c < 256; ++c)
    text += c;
  EXPECT_EQ(object_.HexToMsgFmtText(object_.MsgFmtTextToHex(text)), String(text));
  const String bytes = String::FromBytes(std::string("\x00\xFF\x80", 3));
  EXPECT_EQ(object_.HexToMsgFmtText(object_.MsgFmtTextToHex(bytes, true), 0, true, "0", true),
            bytes);
}

}  // namespace
}  // namespace vandpublic
