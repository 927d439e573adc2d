// The members that read hexadecimal text on every text of up to four characters over six letters:
// the C library's strtol and a hand count of letters say what must come out.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

#include "support/small_texts.h"
#include "support/test_component.h"

namespace vandpublic {
namespace {

// A digit, a capital, a small letter, no digit, a blank, and a full-width digit.
constexpr std::u16string_view kLetters = u"9Fag \uff11";

bool IsOneOf(char16_t c, std::u16string_view set) {
  return set.find(c) != std::u16string_view::npos;
}

bool Only(const std::u16string& text, std::u16string_view set) {
  return std::all_of(text.begin(), text.end(), [set](char16_t c) { return IsOneOf(c, set); });
}

std::u16string WithoutBlanks(std::u16string text) {
  std::erase(text, u' ');
  return text;
}

std::u16string Trimmed(const std::u16string& text) {
  const std::size_t first = text.find_first_not_of(u' ');
  if (first == std::u16string::npos) return u"";
  return text.substr(first, text.find_last_not_of(u' ') - first + 1);
}

long Number(const std::u16string& digits) {
  return std::strtol(("0" + ToUtf8(digits)).c_str(), nullptr, 16);
}

// What a call gave: the result, or the error number.
template <class Value>
struct Outcome {
  Value value{};
  Long error = 0;
};

template <class Value, class Work>
Outcome<Value> OutcomeOf(Work work) {
  Outcome<Value> outcome;
  outcome.error = RaisedBy([&] { outcome.value = work(); }).number;
  return outcome;
}

class SmallHexTest : public testing::Test {
 protected:
  TestComponent component_;
  clsPublic& object_ = component_.object;
  const std::vector<std::u16string> texts_ = SmallTexts(kLetters, 4);
};

TEST_F(SmallHexTest, IsHex) {
  ASSERT_EQ(texts_.size(), 1555U);
  for (const std::u16string& text : texts_)
    EXPECT_EQ(object_.IsHex(text), Only(text, u"9Fa")) << Codes(text);
}

TEST_F(SmallHexTest, HexToDec) {
  for (const std::u16string& text : texts_) {
    const auto outcome = OutcomeOf<Long>([&] { return object_.HexToDec(text); });
    const std::u16string digits = Trimmed(text);
    if (Only(digits, u"9Fa")) {
      EXPECT_EQ(outcome.error, 0) << Codes(text);
      EXPECT_EQ(outcome.value, Number(digits)) << Codes(text);
    } else {
      EXPECT_EQ(outcome.error, MemberError(19, "HexToDec", "").number) << Codes(text);
    }
  }
}

TEST_F(SmallHexTest, HexToBit) {
  for (const std::u16string& text : texts_) {
    Byte bits[4] = {7, 7, 7, 7};
    const auto raised =
        RaisedBy([&] { object_.HexToBit(text, bits[0], bits[1], bits[2], bits[3]); });
    const std::u16string digit = Trimmed(text).substr(0, 1);
    if (!Only(digit, u"9Fa")) {
      EXPECT_NE(raised.number, 0) << Codes(text);
      EXPECT_EQ(bits[0], 7) << Codes(text);
      continue;
    }
    EXPECT_EQ(raised, kNothingRaised) << Codes(text);
    EXPECT_EQ(bits[0] + 2 * bits[1] + 4 * bits[2] + 8 * bits[3], Number(digit)) << Codes(text);
  }
}

// Blanks go, an odd text gets a zero; small letters pass the first look and fail at their pair.
TEST_F(SmallHexTest, FillByteArrWithHexStr) {
  for (const std::u16string& text : texts_) {
    ByteArray array = ByteArray::WithBounds(0, 1);
    String digits = text;
    const auto raised = RaisedBy([&] { object_.FillByteArrWithHexStr(array, digits, Integer{0}); });
    std::u16string wanted = WithoutBlanks(text);
    if (Only(wanted, u"9Fa") && wanted.size() % 2 != 0) wanted.insert(0, 1, u'0');
    EXPECT_EQ(digits, String(wanted)) << Codes(text);
    EXPECT_EQ(raised == kNothingRaised, Only(WithoutBlanks(text), u"9F")) << Codes(text);
    if (raised != kNothingRaised) continue;
    for (std::size_t i = 0; i < wanted.size(); i += 2)
      EXPECT_EQ(array.At(static_cast<Long>(i / 2)), Number(wanted.substr(i, 2))) << Codes(text);
  }
}

TEST_F(SmallHexTest, FstrHexStrToByte) {
  for (const std::u16string& text : texts_) {
    const auto outcome = OutcomeOf<ByteArray>([&] { return object_.FstrHexStrToByte(text); });
    const std::u16string digits = Trimmed(text);
    const bool converted = !digits.empty() && Only(digits, u"9F");
    EXPECT_EQ(outcome.error == 0, converted) << Codes(text);
    if (!converted) continue;
    const long value = Number(digits);
    const std::size_t bytes = (digits.size() + 1) / 2;
    ASSERT_EQ(outcome.value.Elements().size(), bytes) << Codes(text);
    long read = 0;
    for (const Byte byte : outcome.value.Elements())
      read = 256 * read + byte;
    EXPECT_EQ(read, value) << Codes(text);
  }
}

TEST_F(SmallHexTest, HexToMsgFmtText) {
  for (const std::u16string& text : texts_) {
    const String bytes = object_.HexToMsgFmtText(text);
    std::u16string digits = Trimmed(text);
    if (!Only(digits, u"9Fa")) {
      EXPECT_EQ(bytes.Length(), 0U) << Codes(text);
      continue;
    }
    ASSERT_EQ(bytes.Length(), (digits.size() + 1) / 2) << Codes(text);
    long read = 0;
    for (const char16_t c : bytes.view())
      read = 256 * read + c;
    EXPECT_EQ(read, Number(digits)) << Codes(text);
  }
}

TEST_F(SmallHexTest, HexXor_of_all_pairs_of_two) {
  for (const std::u16string& one : SmallTexts(u"9FA0", 2)) {
    for (const std::u16string& two : SmallTexts(u"9FA0", 2)) {
      const auto raised = RaisedBy([&] {
        const String result = object_.HexXor(one, two);
        // An odd operand gets its zero in front, an operand of no digits is zeros.
        const long expected = Number(one) ^ Number(two);
        EXPECT_EQ(Number(WithoutBlanks(std::u16string(result.view()))), expected)
            << Codes(one) << " " << Codes(two);
      });
      EXPECT_EQ(raised == kNothingRaised, !(one.empty() && two.empty())) << raised;
    }
  }
}

}  // namespace
}  // namespace vandpublic
