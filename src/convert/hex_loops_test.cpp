// Every form of the hexadecimal loops against the digit functions, at all lengths around their
// blocks, at every alignment, and with the fault at every place.
#include "convert/hex_loops.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

#include "convert/hex_digits.h"

namespace vandpublic {
namespace {

constexpr std::size_t kMostBytes = 150;  // more than two of the largest blocks
constexpr char16_t kUntouched = 0xBEEF;
constexpr Byte kUntouchedByte = 0xEE;

// What stands next to the digits, and what a narrow comparison would take for one.
constexpr char16_t kNoDigits[] = {u'\0',  u'/',   u':',   u'@',     u'G',   u'`',   u'g',
                                  0x10,   0x19,   u' ',   0x0130,   0x0141, 0x0A41, 0x3030,
                                  0x8030, 0x8041, 0xFF11, 0xFF30,   0xFF41, 0xFFFF, 0x00B0,
                                  0x00C1, 0x0080, 0x00FF, u'\u3000'};

std::vector<Byte> Data(std::size_t size) {
  std::vector<Byte> data(size);
  for (std::size_t i = 0; i < size; ++i)
    data[i] = static_cast<Byte>(i * 131 + (i >> 8) * 7 + size);
  return data;
}

std::u16string PlainDigits(const std::vector<Byte>& data) {
  std::u16string digits(2 * data.size(), u' ');
  for (std::size_t i = 0; i < data.size(); ++i)
    WriteHexByte(data[i], &digits[2 * i]);
  return digits;
}

class HexLoopsTest : public testing::TestWithParam<HexLoops> {
 protected:
  void SetUp() override {
    if (!GetParam().usable()) GTEST_SKIP() << "this processor has it not";
  }
};

TEST_P(HexLoopsTest, Encode_writes_two_digits_for_each_byte_and_nothing_more) {
  for (std::size_t size = 0; size <= kMostBytes; ++size) {
    const std::vector<Byte> data = Data(size + 3);
    for (std::size_t from = 0; from < 3; ++from) {
      std::u16string text(2 * size + 2, kUntouched);
      GetParam().encode(&data[from], size, &text[1]);
      const std::vector<Byte> part(data.begin() + static_cast<std::ptrdiff_t>(from),
                                   data.begin() + static_cast<std::ptrdiff_t>(from + size));
      ASSERT_EQ(text, kUntouched + PlainDigits(part) + kUntouched) << size;
    }
  }
}

TEST_P(HexLoopsTest, All_bytes_come_back) {
  const std::vector<Byte> data = Data(256);
  std::u16string digits(512, u' ');
  GetParam().encode(data.data(), 256, digits.data());
  std::vector<Byte> back(256);
  EXPECT_EQ(GetParam().decode(digits.data(), 256, back.data()), 256u);
  EXPECT_EQ(back, data);
}

TEST_P(HexLoopsTest, Decode_reads_every_length_at_every_alignment) {
  for (std::size_t size = 0; size <= kMostBytes; ++size) {
    const std::vector<Byte> data = Data(size);
    for (std::size_t offset = 0; offset < 16; ++offset) {
      const std::u16string text = std::u16string(offset, u'x') + PlainDigits(data) + u'x';
      std::vector<Byte> bytes(size + 2, kUntouchedByte);
      ASSERT_EQ(GetParam().decode(text.data() + offset, size, &bytes[1]), size);
      ASSERT_TRUE(std::equal(data.begin(), data.end(), bytes.begin() + 1)) << size;
      ASSERT_EQ(bytes.front(), kUntouchedByte);
      ASSERT_EQ(bytes.back(), kUntouchedByte);
    }
  }
}

TEST_P(HexLoopsTest, Decode_stops_at_the_pair_that_is_wrong_and_writes_nothing_behind) {
  for (const std::size_t size : {1u, 15u, 16u, 17u, 32u, 33u, 48u, 64u, 100u}) {
    const std::vector<Byte> data = Data(size);
    for (std::size_t place = 0; place < 2 * size; ++place) {
      std::u16string digits = PlainDigits(data);
      digits[place] = place % 3 == 0 ? u'a' : kNoDigits[place % std::size(kNoDigits)];
      std::vector<Byte> bytes(size, kUntouchedByte);
      const std::size_t pairs = place / 2;
      ASSERT_EQ(GetParam().decode(digits.data(), size, bytes.data()), pairs) << size;
      const auto end = static_cast<std::ptrdiff_t>(pairs);
      ASSERT_TRUE(std::equal(bytes.begin(), bytes.begin() + end, data.begin()));
      ASSERT_EQ(std::count(bytes.begin() + end, bytes.end(), kUntouchedByte),
                static_cast<std::ptrdiff_t>(size - pairs))
          << size << " at " << place;
    }
  }
}

TEST_P(HexLoopsTest, Every_unit_is_judged_as_the_digit_functions_do) {
  for (const std::size_t size : {1u, 32u, 64u, 128u}) {
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
      const auto c = static_cast<char16_t>(unit);
      std::u16string text(size, u'7');
      const std::size_t place = unit % size;
      text[place] = c;
      ASSERT_EQ(GetParam().are_digits(text.data(), size), HexDigitValue(c) >= 0) << unit;
      if (size == 1) continue;
      std::vector<Byte> bytes(size / 2);
      const std::size_t pairs = UpperHexDigitValue(c) >= 0 ? size / 2 : place / 2;
      ASSERT_EQ(GetParam().decode(text.data(), size / 2, bytes.data()), pairs) << unit;
    }
  }
}

TEST_P(HexLoopsTest, A_wrong_unit_is_found_at_every_place_of_every_length) {
  for (std::size_t size = 0; size <= kMostBytes; ++size) {
    std::u16string text(size, u'c');
    ASSERT_TRUE(GetParam().are_digits(text.data(), size));
    for (std::size_t place = 0; place < size; ++place) {
      text[place] = kNoDigits[(place + size) % std::size(kNoDigits)];
      ASSERT_FALSE(GetParam().are_digits(text.data(), size)) << size << " at " << place;
      text[place] = u'F';
    }
  }
}

// The dump as it is told: byte by byte.
std::u16string PlainDump(const std::vector<Byte>& data, std::size_t per_line) {
  std::u16string text;
  for (std::size_t i = 0; i < data.size(); ++i) {
    text += PlainDigits({data[i]}) + u' ';
    if ((i + 1) % per_line == 0) text += u"\r\n";
  }
  return text;
}

TEST_P(HexLoopsTest, Dump_has_every_length_in_lines_of_every_length) {
  for (std::size_t size = 0; size <= 100; ++size) {
    const std::vector<Byte> data = Data(size);
    for (std::size_t per_line = 1; per_line <= size + 1; ++per_line) {
      const std::u16string expected = PlainDump(data, per_line);
      std::u16string text(expected.size() + 2, kUntouched);
      char16_t* const end = GetParam().dump(data.data(), size, per_line, &text[1]);
      ASSERT_EQ(end, &text[1] + expected.size());
      ASSERT_EQ(text, kUntouched + expected + kUntouched) << size << " by " << per_line;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Forms, HexLoopsTest, testing::ValuesIn(AllHexLoops()),
                         [](const auto& form) { return std::string(form.param.name); });

TEST(HexLoopsChoice, The_last_form_runs_everywhere_and_the_first_usable_one_is_taken) {
  const auto all = AllHexLoops();
  EXPECT_TRUE(all.back().usable());
  const char* const forced = std::getenv("VANDPUBLIC_HEX_LOOPS");
  std::string_view expected;
  for (const HexLoops& loops : all) {
    if (!loops.usable()) continue;
    if (expected.empty() || (forced != nullptr && loops.name == forced)) expected = loops.name;
  }
  EXPECT_EQ(ActiveHexLoops().name, expected);
}

}  // namespace
}  // namespace vandpublic
