// The conversion loops against the tables, character by character: texts of every length around
// the blocks, with what has to be looked up at every place.
#include "platform/posix/table_code_page.h"

#include <gtest/gtest.h>

#include <random>

#include "platform/posix/code_page_facts.h"

namespace vandpublic {
namespace {

std::string EncodedSlowly(const CodePageTables& tables, std::u16string_view text) {
  std::string bytes;
  for (const char16_t unit : text) {
    const std::uint16_t code = tables.codes[unit];
    if (code > 0xFF) bytes += static_cast<char>(code >> 8);
    bytes += static_cast<char>(code);
  }
  return bytes;
}

std::u16string DecodedSlowly(const CodePageTables& tables, std::string_view bytes) {
  std::u16string text;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const std::size_t lead = static_cast<unsigned char>(bytes[i]);
    char16_t unit = tables.singles[lead];
    if (unit == CodePageTables::kLeadMark) {
      const bool whole = ++i < bytes.size();
      const std::size_t trail = whole ? static_cast<unsigned char>(bytes[i]) : 0;
      unit = whole ? tables.pairs[lead * 256 + trail] : static_cast<char16_t>(kReplacement);
    }
    text += unit;
  }
  return text;
}

class TableCodePageTest : public testing::TestWithParam<CodePageFacts> {
 protected:
  void ExpectSame(const std::u16string& text, const std::string& bytes) {
    ASSERT_EQ(page_->Encode(text), EncodedSlowly(tables_, text)) << text.size();
    ASSERT_EQ(page_->Decode(bytes), DecodedSlowly(tables_, bytes)) << bytes.size();
  }

  const CodePageTables tables_ = BuildCodePageTables(GetParam());
  const std::shared_ptr<const CodePage> page_ = MakeTableCodePage(GetParam().number, tables_);
};

TEST_P(TableCodePageTest, A_character_at_every_place_of_every_length) {
  constexpr char16_t kUnits[] = {0x80, 0x9F, 0xE9, 0x20AC, 0x0416, 0x4E2D, 0xD83D, 0xFFFF};
  constexpr char kBytes[] = {'\x80', '\x81', '\x9F', '\xA0', '\xD6', '\xFE', '\xFF'};
  for (std::size_t size = 1; size <= 140; size += size < 70 ? 1 : 7) {
    for (std::size_t place = 0; place < size; ++place) {
      std::u16string text(size, u'x');
      std::string bytes(size, 'x');
      text[place] = kUnits[(place + size) % std::size(kUnits)];
      bytes[place] = kBytes[(place + size) % std::size(kBytes)];
      ASSERT_NO_FATAL_FAILURE(ExpectSame(text, bytes)) << size << " at " << place;
    }
  }
}

// From hardly any to nothing but characters to look up, in runs of every length.
TEST_P(TableCodePageTest, Random_texts) {
  std::mt19937 random(static_cast<unsigned>(GetParam().number));
  for (int round = 0; round < 2000; ++round) {
    const std::size_t size = random() % 300;
    const std::size_t switches = 1 + random() % 40;  // in a hundred characters
    std::u16string text;
    std::string bytes;
    bool ascii = true;
    while (text.size() < size) {
      if (random() % 100 < switches) ascii = !ascii;
      text += static_cast<char16_t>(ascii ? random() % 0x80 : random() % 0x10000);
      bytes += static_cast<char>(ascii ? random() % 0x80 : 0x80 + random() % 0x80);
    }
    ASSERT_NO_FATAL_FAILURE(ExpectSame(text, bytes));
    ASSERT_NO_FATAL_FAILURE(ExpectSame(text, EncodedSlowly(tables_, text)));
  }
}

TEST_P(TableCodePageTest, Every_unit_and_every_byte_by_itself_and_in_a_block) {
  for (unsigned unit = 0; unit < kAllUnits; ++unit) {
    std::u16string text(64, u'a');
    text[unit % 64] = static_cast<char16_t>(unit);
    ASSERT_EQ(page_->Encode(text), EncodedSlowly(tables_, text)) << unit;
  }
  for (unsigned pair = 0; pair < 0x10000; ++pair) {
    std::string bytes(66, 'a');
    bytes[pair % 65] = static_cast<char>(pair >> 8);
    bytes[pair % 65 + 1] = static_cast<char>(pair);
    ASSERT_EQ(page_->Decode(bytes), DecodedSlowly(tables_, bytes)) << pair;
  }
}

INSTANTIATE_TEST_SUITE_P(Pages, TableCodePageTest, testing::ValuesIn(AllCodePageFacts()),
                         [](const auto& facts) { return std::to_string(facts.param.number); });

}  // namespace
}  // namespace vandpublic
