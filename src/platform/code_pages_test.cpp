// Every code page, on every system: the tables are the same everywhere.
#include "platform/code_page.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace vandpublic {
namespace {

using std::string_literals::operator""s;

bool IsLead(int page, unsigned byte) {
  if (page == 932) return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
  return (page == 936 || page == 949 || page == 950) && byte >= 0x81 && byte <= 0xFE;
}

std::string Bytes(std::initializer_list<unsigned> values) {
  std::string bytes;
  for (const unsigned value : values)
    bytes.push_back(static_cast<char>(value));
  return bytes;
}

// From memory of exactly its size, so that a read past the end is seen by the sanitizers.
std::u16string DecodeExact(const CodePage& page, std::string_view bytes) {
  const std::vector<char> copy(bytes.begin(), bytes.end());
  return page.Decode({copy.data(), copy.size()});
}

class Random {
 public:
  explicit Random(unsigned seed) : engine_(seed) {}
  unsigned Below(unsigned limit) { return static_cast<unsigned>(engine_() % limit); }

 private:
  std::mt19937 engine_;
};

class EveryCodePage : public ::testing::TestWithParam<int> {
 protected:
  int number() const { return GetParam(); }
  const CodePage& page() const { return *page_; }

 private:
  std::shared_ptr<const CodePage> page_ = FindCodePage(GetParam());
};

INSTANTIATE_TEST_SUITE_P(Pages, EveryCodePage, ::testing::ValuesIn(kCodePages),
                         ::testing::PrintToStringParamName());

TEST_P(EveryCodePage, tells_its_number) { EXPECT_EQ(page().number(), number()); }

TEST_P(EveryCodePage, keeps_ascii_of_any_length_as_it_is) {
  std::string bytes;
  std::u16string text;
  for (unsigned i = 0; i < 300; ++i) {
    ASSERT_EQ(page().Encode(text), bytes);
    ASSERT_EQ(DecodeExact(page(), bytes), text);
    bytes.push_back(static_cast<char>(i % 128));
    text.push_back(static_cast<char16_t>(i % 128));
  }
}

TEST_P(EveryCodePage, brings_back_every_unit_that_it_has) {
  for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
    const std::u16string text(1, static_cast<char16_t>(unit));
    const std::string bytes = page().Encode(text);
    if (bytes == "?") continue;
    ASSERT_EQ(DecodeExact(page(), bytes), text) << std::hex << unit;
  }
  EXPECT_EQ(page().Encode(u"?"), "?");
}

TEST_P(EveryCodePage, brings_back_every_single_byte) {
  for (unsigned byte = 0; byte <= 0xFF; ++byte) {
    const std::string bytes = Bytes({byte});
    const std::u16string text = DecodeExact(page(), bytes);
    if (IsLead(number(), byte)) {
      EXPECT_EQ(text, u"?") << byte;
    } else {
      EXPECT_EQ(page().Encode(text), bytes) << byte;
    }
  }
}

// 932 has 398 characters twice (NEC's and IBM's additions), 950 has ten.
TEST_P(EveryCodePage, brings_back_every_byte_pair_but_the_known_duplicates) {
  int duplicates = 0;
  for (unsigned code = 0; code <= 0xFFFF; ++code) {
    const std::string bytes = Bytes({code >> 8, code & 0xFF});
    const std::u16string text = DecodeExact(page(), bytes);
    if (!IsLead(number(), code >> 8)) {
      ASSERT_EQ(text, page().Decode(bytes.substr(0, 1)) + page().Decode(bytes.substr(1)));
      continue;
    }
    ASSERT_EQ(text.size(), 1U) << std::hex << code;
    if (text != u"?" && page().Encode(text) != bytes) ++duplicates;
  }
  EXPECT_EQ(duplicates, number() == 932 ? 398 : number() == 950 ? 10 : 0);
}

// Texts of every mixture of ASCII, other characters of the page and foreign units.
TEST_P(EveryCodePage, converts_a_text_as_its_characters_one_by_one) {
  Random random(1);
  for (int round = 0; round < 400; ++round) {
    const unsigned plain_of_16 = random.Below(17);
    std::u16string text;
    std::string expected;
    for (std::size_t length = random.Below(150); text.size() < length;) {
      std::u16string unit(1, static_cast<char16_t>(random.Below(0x10000)));
      if (random.Below(2) == 0) {
        unit = page().Decode(Bytes({random.Below(0x100), random.Below(0x100)})).substr(0, 1);
      }
      if (random.Below(16) < plain_of_16) unit[0] &= 0x7F;
      text += unit;
      expected += page().Encode(unit);
    }
    ASSERT_EQ(page().Encode(text), expected);
  }
}

TEST_P(EveryCodePage, converts_bytes_as_their_characters_one_by_one) {
  Random random(2);
  for (int round = 0; round < 400; ++round) {
    const unsigned plain_of_16 = random.Below(17);
    std::string bytes;
    for (std::size_t length = random.Below(150); bytes.size() < length;) {
      bytes += Bytes({random.Below(random.Below(16) < plain_of_16 ? 0x80 : 0x100)});
    }
    std::u16string expected;
    for (std::size_t at = 0; at < bytes.size();) {
      const std::size_t size = IsLead(number(), static_cast<unsigned char>(bytes[at])) ? 2 : 1;
      expected += page().Decode(bytes.substr(at, size));
      at += size;
    }
    ASSERT_EQ(DecodeExact(page(), bytes), expected);
  }
}

TEST_P(EveryCodePage, writes_one_question_mark_for_each_unit_outside) {
  EXPECT_EQ(page().Encode(u"a\U0001F600b"), "a??b") << "a surrogate pair is two units";
  EXPECT_EQ(page().Encode(std::u16string{0xD800, u'x', 0xDFFF}), "?x?");
  EXPECT_EQ(page().Encode(u"\uFFFD\uFFFE\uFFFF"), "???");
  EXPECT_EQ(page().Encode(std::u16string(100, 0x0E5A) + u"."),
            number() == 874 ? std::string(100, '\xFA') + "." : std::string(100, '?') + ".");
}

TEST_P(EveryCodePage, keeps_zeros_and_emptiness) {
  EXPECT_EQ(page().Encode({}), "");
  EXPECT_EQ(page().Decode({}), u"");
  EXPECT_EQ(page().Encode(u"\0a\0"s), "\0a\0"s);
  EXPECT_EQ(page().Decode("\0a\0"s), u"\0a\0"s);
}

std::uint64_t AddToHash(std::uint64_t hash, unsigned value) {
  for (const unsigned byte : {value & 0xFF, value >> 8})
    hash = (hash ^ byte) * 0x100000001B3;
  return hash;
}
constexpr std::uint64_t kEmptyHash = 0xCBF29CE484222325;

// FNV-1a of the published Windows tables, computed from those and not from this code. Decoding: the
// units of all single bytes, then of all pairs by lead byte. Encoding: the codes of all units. Each
// as two bytes, the low one first, with 003F for what is undefined.
struct TableHash {
  std::uint64_t decode;
  std::uint64_t encode;
  int page;
  int characters;
};
constexpr TableHash kTableHashes[] = {
    {0xD49690F22A1AA325, 0x059BC213A171D53D, 874, 256},
    {0xA5A7AE2439D1360D, 0x4F6682AC5CAD50A8, 932, 9402},
    {0x008F850D055730B4, 0xBF7C3B7532F8B05A, 936, 24070},
    {0xD6408BBA30916AD9, 0xFA6C286A85B7870B, 949, 17366},
    {0x94D3E6F3382ED5A2, 0x5BD723522E9CCBB3, 950, 19840},
    {0x2CF329295B5C3DE0, 0xF2772B4E09A1FA75, 1250, 256},
    {0xF9D08BD1CDA4DF3F, 0x22CD239B8857A32D, 1251, 256},
    {0x577DB6D912423900, 0x39A0D15B19CFD205, 1252, 256},
    {0x288276C5C9A181B5, 0x9706B6A9924D7E95, 1253, 256},
    {0x8958DE9B87CF735E, 0xE07E9063568F836D, 1254, 256},
    {0xEB13CEB7023B8688, 0x239DFBBA5860284D, 1255, 256},
    {0x8577DCE5F9A09088, 0x56C769E19FC554E5, 1256, 256},
    {0x68DC089708100EBC, 0x1BC4E8E60A9A3C6D, 1257, 256},
    {0x5375CAD06EE0245A, 0x4D6AED9C5EB98305, 1258, 256},
};

class WholeTable : public ::testing::TestWithParam<TableHash> {};

INSTANTIATE_TEST_SUITE_P(Pages, WholeTable, ::testing::ValuesIn(kTableHashes),
                         [](const auto& table) { return std::to_string(table.param.page); });

TEST_P(WholeTable, decodes_as_the_published_one) {
  const int number = GetParam().page;
  const auto page = FindCodePage(number);
  std::uint64_t hash = kEmptyHash;
  for (unsigned byte = 0; byte <= 0xFF; ++byte)
    hash = AddToHash(hash, page->Decode(Bytes({byte}))[0]);
  for (unsigned code = 0; code <= 0xFFFF; ++code) {
    if (!IsLead(number, code >> 8)) continue;
    hash = AddToHash(hash, page->Decode(Bytes({code >> 8, code & 0xFF}))[0]);
  }
  EXPECT_EQ(hash, GetParam().decode);
}

TEST_P(WholeTable, encodes_as_the_published_one) {
  const auto page = FindCodePage(GetParam().page);
  std::uint64_t hash = kEmptyHash;
  int characters = 0;
  for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
    unsigned code = 0;
    const std::string bytes = page->Encode(std::u16string(1, static_cast<char16_t>(unit)));
    for (const char byte : bytes)
      code = code << 8 | static_cast<unsigned char>(byte);
    hash = AddToHash(hash, code);
    if (bytes != "?" || unit == u'?') ++characters;
  }
  EXPECT_EQ(hash, GetParam().encode);
  EXPECT_EQ(characters, GetParam().characters);
}

// Facts that anybody can look up, so that a failure above can be told from a wrong checksum.
struct Fact {
  int page;
  const char* bytes;
  const char16_t* text;
};
constexpr Fact kFactsBothWays[] = {
    {874, "\x80", u"\u20AC"},     {874, "\x85", u"\u2026"},     {874, "\x91", u"\u2018"},
    {874, "\x97", u"\u2014"},     {874, "\x81", u"\x81"},       {874, "\xA0", u"\u00A0"},
    {874, "\xA1", u"\u0E01"},     {874, "\xDA", u"\u0E3A"},     {874, "\xDF", u"\u0E3F"},
    {874, "\xF0", u"\u0E50"},     {874, "\xFB", u"\u0E5B"},     {874, "\xDB", u"\uF8C1"},
    {932, "\x5C", u"\\"},         {932, "\x7E", u"~"},          {932, "\x80", u"\x80"},
    {932, "\xA0", u"\uF8F0"},     {932, "\xFF", u"\uF8F3"},     {932, "\xB1", u"\uFF71"},
    {932, "\xDF", u"\uFF9F"},     {932, "\x81\x40", u"\u3000"}, {932, "\x82\xA0", u"\u3042"},
    {932, "\x83\x41", u"\u30A2"}, {932, "\x82\x60", u"\uFF21"}, {932, "\x81\x5F", u"\uFF3C"},
    {932, "\x81\x60", u"\uFF5E"}, {932, "\x81\x7C", u"\uFF0D"}, {932, "\x81\x8F", u"\uFFE5"},
    {932, "\x88\x9F", u"\u4E9C"}, {932, "\xEA\xA4", u"\u7199"}, {932, "\x87\x40", u"\u2460"},
    {932, "\xFA\x40", u"\u2170"}, {932, "\xFB\xFC", u"\u9AD9"}, {932, "\xFC\x4B", u"\u9ED1"},
    {932, "\xF0\x40", u"\uE000"}, {932, "\xF9\xFC", u"\uE757"}, {936, "\x80", u"\u20AC"},
    {936, "\xFF", u"\uF8F5"},     {936, "\xA1\xA1", u"\u3000"}, {936, "\xB0\xA1", u"\u554A"},
    {936, "\xF7\xFE", u"\u9F44"}, {936, "\x81\x40", u"\u4E02"}, {936, "\xA3\xC1", u"\uFF21"},
    {936, "\xD6\xD0", u"\u4E2D"}, {936, "\xCE\xC4", u"\u6587"}, {936, "\xA1\xA4", u"\u00B7"},
    {936, "\xA1\xAA", u"\u2014"}, {936, "\xAA\xA1", u"\uE000"}, {936, "\xA7\xA1", u"\u0410"},
    {949, "\xB0\xA1", u"\uAC00"}, {949, "\xC8\xFE", u"\uD79D"}, {949, "\xC6\x52", u"\uD7A3"},
    {949, "\x81\x41", u"\uAC02"}, {949, "\xA1\xA1", u"\u3000"}, {949, "\xA2\xE6", u"\u20AC"},
    {949, "\xA2\xE7", u"\u00AE"}, {949, "\xA3\xC1", u"\uFF21"}, {949, "\xA3\xDC", u"\uFFE6"},
    {949, "\xCA\xA1", u"\u4F3D"}, {949, "\xFD\xFE", u"\u8A70"}, {949, "\xC9\xA1", u"\uE000"},
    {949, "\x80", u"\x80"},       {950, "\xA1\x40", u"\u3000"}, {950, "\xA4\x40", u"\u4E00"},
    {950, "\xC6\x7E", u"\u7C72"}, {950, "\xC9\x40", u"\u4E42"}, {950, "\xF9\xD5", u"\u9F98"},
    {950, "\xA3\xE1", u"\u20AC"}, {950, "\xA2\xCF", u"\uFF21"}, {950, "\xA4\x51", u"\u5341"},
    {950, "\xF9\xD6", u"\u7881"}, {950, "\xF9\xFE", u"\u2593"}, {950, "\xA1\x45", u"\u2027"},
    {950, "\xFA\x40", u"\uE000"}, {1250, "\x80", u"\u20AC"},    {1250, "\x8A", u"\u0160"},
    {1250, "\x8C", u"\u015A"},    {1250, "\x9F", u"\u017A"},    {1250, "\xA3", u"\u0141"},
    {1250, "\xA5", u"\u0104"},    {1250, "\xC8", u"\u010C"},    {1250, "\xD8", u"\u0158"},
    {1250, "\xE8", u"\u010D"},    {1250, "\xFF", u"\u02D9"},    {1250, "\x81", u"\x81"},
    {1251, "\x88", u"\u20AC"},    {1251, "\x80", u"\u0402"},    {1251, "\xA8", u"\u0401"},
    {1251, "\xB8", u"\u0451"},    {1251, "\xB9", u"\u2116"},    {1251, "\xC0", u"\u0410"},
    {1251, "\xDF", u"\u042F"},    {1251, "\xE0", u"\u0430"},    {1251, "\xFF", u"\u044F"},
    {1251, "\x98", u"\x98"},      {1252, "\x80", u"\u20AC"},    {1252, "\x81", u"\x81"},
    {1252, "\x8D", u"\x8D"},      {1252, "\x8F", u"\x8F"},      {1252, "\x90", u"\x90"},
    {1252, "\x9D", u"\x9D"},      {1252, "\x85", u"\u2026"},    {1252, "\x93", u"\u201C"},
    {1252, "\x99", u"\u2122"},    {1252, "\x9F", u"\u0178"},    {1252, "\xA0", u"\u00A0"},
    {1252, "\xE9", u"\u00E9"},    {1252, "\xFF", u"\u00FF"},    {1253, "\x80", u"\u20AC"},
    {1253, "\xA1", u"\u0385"},    {1253, "\xA2", u"\u0386"},    {1253, "\xAF", u"\u2015"},
    {1253, "\xC1", u"\u0391"},    {1253, "\xD3", u"\u03A3"},    {1253, "\xD9", u"\u03A9"},
    {1253, "\xE1", u"\u03B1"},    {1253, "\xF2", u"\u03C2"},    {1253, "\xFE", u"\u03CE"},
    {1253, "\xAA", u"\uF8F9"},    {1254, "\x80", u"\u20AC"},    {1254, "\x8A", u"\u0160"},
    {1254, "\x9F", u"\u0178"},    {1254, "\xD0", u"\u011E"},    {1254, "\xDD", u"\u0130"},
    {1254, "\xDE", u"\u015E"},    {1254, "\xE9", u"\u00E9"},    {1254, "\xF0", u"\u011F"},
    {1254, "\xFD", u"\u0131"},    {1254, "\xFE", u"\u015F"},    {1255, "\x80", u"\u20AC"},
    {1255, "\xA4", u"\u20AA"},    {1255, "\xAA", u"\u00D7"},    {1255, "\xBA", u"\u00F7"},
    {1255, "\xC0", u"\u05B0"},    {1255, "\xCA", u"\u05BA"},    {1255, "\xE0", u"\u05D0"},
    {1255, "\xFA", u"\u05EA"},    {1255, "\xFD", u"\u200E"},    {1255, "\xFE", u"\u200F"},
    {1255, "\xD9", u"\uF88D"},    {1256, "\x80", u"\u20AC"},    {1256, "\x81", u"\u067E"},
    {1256, "\x8D", u"\u0686"},    {1256, "\x8E", u"\u0698"},    {1256, "\x90", u"\u06AF"},
    {1256, "\x9D", u"\u200C"},    {1256, "\xA1", u"\u060C"},    {1256, "\xBF", u"\u061F"},
    {1256, "\xC7", u"\u0627"},    {1256, "\xED", u"\u064A"},    {1256, "\xFF", u"\u06D2"},
    {1257, "\x80", u"\u20AC"},    {1257, "\x8D", u"\u00A8"},    {1257, "\xA8", u"\u00D8"},
    {1257, "\xAF", u"\u00C6"},    {1257, "\xC0", u"\u0104"},    {1257, "\xD0", u"\u0160"},
    {1257, "\xDE", u"\u017D"},    {1257, "\xE0", u"\u0105"},    {1257, "\xFF", u"\u02D9"},
    {1257, "\xA1", u"\uF8FC"},    {1258, "\x80", u"\u20AC"},    {1258, "\xC3", u"\u0102"},
    {1258, "\xCC", u"\u0300"},    {1258, "\xD0", u"\u0110"},    {1258, "\xD2", u"\u0309"},
    {1258, "\xDD", u"\u01AF"},    {1258, "\xDE", u"\u0303"},    {1258, "\xEC", u"\u0301"},
    {1258, "\xF0", u"\u0111"},    {1258, "\xF2", u"\u0323"},    {1258, "\xFE", u"\u20AB"},
};

TEST(CodePages, known_characters_convert_both_ways) {
  for (const Fact& fact : kFactsBothWays) {
    const auto page = FindCodePage(fact.page);
    EXPECT_EQ(page->Decode(fact.bytes), fact.text) << fact.page;
    EXPECT_EQ(page->Encode(fact.text), fact.bytes) << fact.page;
  }
}

TEST(CodePages, a_character_with_two_codes_is_written_as_windows_writes_it) {
  struct Duplicate {
    int page;
    const char* read;
    const char* written;
  };
  constexpr Duplicate kDuplicates[] = {
      {932, "\xED\x40", "\xFA\x5C"},  // NEC's selection of IBM's kanji
      {932, "\xEE\xEF", "\xFA\x40"},  // small Roman one
      {932, "\xEE\xF9", "\x81\xCA"},  // not sign
      {932, "\x87\x90", "\x81\xE0"},  // nearly equal
      {932, "\xFA\x4A", "\x87\x54"},  // Roman one
      {932, "\xFA\x5B", "\x81\xE6"},  // because
      {950, "\xA2\xA4", "\xF9\xF9"},  // double line
      {950, "\xF9\xFA", "\xA2\x7E"},  // round corner
      {950, "\xA2\xCC", "\xA4\x51"},  // ten
      {950, "\xA2\xCE", "\xA4\xCA"},  // thirty
  };
  for (const Duplicate& duplicate : kDuplicates) {
    const auto page = FindCodePage(duplicate.page);
    EXPECT_EQ(page->Encode(page->Decode(duplicate.read)), duplicate.written);
    EXPECT_EQ(page->Decode(duplicate.written), page->Decode(duplicate.read));
  }
}

TEST(CodePages, nothing_is_fitted_to_a_similar_character) {
  struct Foreign {
    int page;
    char16_t unit;
  };
  constexpr Foreign kForeign[] = {
      {1252, 0x0080}, {1252, 0x0100}, {1252, 0x03B1}, {1252, 0x221E}, {1252, 0xFF21},
      {932, 0x00A5},  {932, 0x203E},  {932, 0x301C},  {932, 0x2212},  {932, 0x2016},
      {932, 0x00A2},  {932, 0x20AC},  {936, 0x0080},  {936, 0x00EB},  {949, 0x00A5},
      {950, 0x00A5},  {1255, 0xFB1D}, {1258, 0x1EA1}, {1258, 0x00C3}, {1251, 0x00E9},
  };
  for (const Foreign& foreign : kForeign) {
    EXPECT_EQ(FindCodePage(foreign.page)->Encode(std::u16string(1, foreign.unit)), "?")
        << foreign.page << ' ' << static_cast<unsigned>(foreign.unit);
  }
}

TEST(CodePages, vietnamese_marks_stay_units_of_their_own) {
  const auto page = FindCodePage(1258);
  EXPECT_EQ(page->Decode("a\xEC"), u"a\u0301");
  EXPECT_EQ(page->Encode(u"a\u0301"), "a\xEC");
}

TEST(CodePages, a_bad_trail_byte_goes_with_its_lead_byte) {
  for (const int number : {932, 936, 949, 950}) {
    const auto page = FindCodePage(number);
    EXPECT_EQ(DecodeExact(*page, "a\x90 b"), u"a?b") << number;
    EXPECT_EQ(DecodeExact(*page, "a\x90\0b"s), u"a?b") << number;
    EXPECT_EQ(DecodeExact(*page, "\x90\xFF\x90"), u"??")
        << number << ": a lone lead byte at the end";
  }
}

TEST(CodePages, a_pair_may_lie_across_any_boundary) {
  const auto page = FindCodePage(936);
  for (std::size_t before = 0; before < 100; ++before) {
    const std::string plain(before, 'x');
    const std::u16string text(before, u'x');
    EXPECT_EQ(DecodeExact(*page, plain + "\xD6\xD0"), text + u"\u4E2D");
    EXPECT_EQ(DecodeExact(*page, plain + "\xD6"), text + u"?");
    EXPECT_EQ(DecodeExact(*page, plain + "\xD6\xD0" + plain + "\xCE"),
              text + u"\u4E2D" + text + u"?");
    EXPECT_EQ(page->Encode(text + u"\u4E2D" + text), plain + "\xD6\xD0" + plain);
  }
}

TEST(CodePages, FindCodePage_is_null_for_a_number_that_is_no_page) {
  for (const int number : {0, -1, 437, 873, 931, 1249, 1259, 65001, 54936}) {
    EXPECT_EQ(FindCodePage(number), nullptr) << number;
  }
}

}  // namespace
}  // namespace vandpublic
