#include "platform/posix/registry_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <chrono>
#include <random>

#include "platform/code_page.h"
#include "platform/posix/utf16_bytes.h"
#include "runtime/utf8.h"

namespace vandpublic {
namespace {

using std::string_literals::operator""s;

constexpr char kWide[] = "Windows Registry Editor Version 5.00\r\n";
constexpr char kNarrow[] = "REGEDIT4\r\n";
constexpr char kKey[] = "[HKEY_LOCAL_MACHINE\\K]\r\n";

std::string Missing() { return "(missing)"; }

std::string Find(std::string_view file, std::u16string_view key, std::u16string_view name,
                 int page = 1252) {
  return ParseRegistryText(file, *FindCodePage(page)).Find(key, name).value_or(Missing());
}

// One line for each problem: its line's number and its text.
std::vector<std::string> Check(std::string_view file) {
  std::vector<std::string> lines;
  for (const RegistryDiagnostic& problem : CheckRegistryText(file, *FindCodePage(1252))) {
    lines.push_back(std::to_string(problem.line) + ' ' + problem.message);
  }
  return lines;
}

struct DataCase {
  const char* behaviour;
  const char* entry;
  std::string wide;    // the bytes of value V under the long first line
  std::string narrow;  // the same under REGEDIT4
};

const std::vector<DataCase> kDataCases = {
    {"text", "\"V\"=\"abc\"", "abc\0"s, "abc\0"s},
    {"empty text", "\"V\"=\"\"", "\0"s, "\0"s},
    {"escapes", R"("V"="C:\\a \"b\"\\")", "C:\\a \"b\"\\\0"s, "C:\\a \"b\"\\\0"s},
    {"text with brackets and signs", R"("V"="[x]=;@-")", "[x]=;@-\0"s, "[x]=;@-\0"s},
    {"line end in a text", "\"V\"=\"a\r\nb\nc\"", "a\r\nb\nc\0"s, "a\r\nb\nc\0"s},
    {"number", "\"V\"=dword:12aBcDeF", "\xEF\xCD\xAB\x12", "\xEF\xCD\xAB\x12"},
    {"short number", "\"V\"=dword:1", "\1\0\0\0"s, "\1\0\0\0"s},
    {"bytes", "\"V\"=hex:00,ff,7F,0", "\0\xFF\x7F\0"s, "\0\xFF\x7F\0"s},
    {"no bytes", "\"V\"=hex:", "", ""},
    {"comma at the end", "\"V\"=hex:41,", "A", "A"},
    {"bytes on several lines", "\"V\"=hex:41,\\\r\n  42,\\\n\t43, \\\r44", "ABCD", "ABCD"},
    {"comment behind the continuation", "\"V\"=hex:41,\\ ; first\r\n  42 ; last", "AB", "AB"},
    {"blanks between bytes", "\"V\"=hex: 41 , 42 ,\t43", "ABC", "ABC"},
    {"binary by number", "\"V\"=hex(3):41", "A", "A"},
    {"number of eight bytes", "\"V\"=hex(b):1,0,0,0,0,0,0,80", "\1\0\0\0\0\0\0\x80"s,
     "\1\0\0\0\0\0\0\x80"s},
    {"number of four bytes", "\"V\"=hex(4):1,0,0,0", "\1\0\0\0"s, "\1\0\0\0"s},
    {"no type", "\"V\"=hex(0):41,42", "AB", "AB"},
    {"unknown type", "\"V\"=hex(FFFFffff):41,00", "A\0"s, "A\0"s},
    {"text as bytes", "\"V\"=hex(1):41,00,00,00", "A\0"s, "A\0\0\0"s},
    {"text to be expanded", "\"V\"=hex(2):25,00,e4,00,00,00", "%\xE4\0"s, "%\0\xE4\0\0\0"s},
    {"text list", "\"V\"=hex(7):41,00,00,00,42,00,00,00,00,00", "A\0B\0\0"s, "A\0\0\0B\0\0\0\0\0"s},
    {"text without its zero", "\"V\"=hex(2):41,00,42,43", "A?\0"s, "A\0BC\0"s},
    {"text without bytes", "\"V\"=hex(2):", "", ""},
    {"text with half a character", "\"V\"=hex(2):41,00,42", "A\0"s, "A\0B\0"s},
    {"words in any case", "\"V\"=DWord:1", "\1\0\0\0"s, "\1\0\0\0"s},
    {"words in any case", "\"V\"=HEX(A):41", "A", "A"},
    {"blanks around", " \t\"V\" \t= \t\"abc\" \t", "abc\0"s, "abc\0"s},
    {"comment behind a text", "\"V\"=\"abc\" ; d", "abc\0"s, "abc\0"s},
    {"comment behind a number", "\"V\"=dword:1;2", "\1\0\0\0"s, "\1\0\0\0"s},
    {"last of two", "\"V\"=\"1\"\r\n\"v\"=\"2\"", "2\0"s, "2\0"s},
    {"removed", "\"V\"=\"1\"\r\n\"v\"=-", Missing(), Missing()},
    {"removed and set again", "\"V\"=-\r\n\"v\"=\"2\" ; x", "2\0"s, "2\0"s},
    {"commented", ";\"V\"=\"1\"", Missing(), Missing()},
};

TEST(RegistryText, data_comes_as_a_query_for_the_ANSI_page_gives_it) {
  for (const DataCase& test : kDataCases) {
    for (const char* const line_end : {"", "\r\n", "\n", "\r", "\r\n\r\n"}) {
      const std::string entry = std::string(kKey) + test.entry + line_end;
      EXPECT_EQ(Find(kWide + entry, u"K", u"V"), test.wide) << test.behaviour;
      EXPECT_EQ(Find(kNarrow + entry, u"K", u"V"), test.narrow) << test.behaviour;
    }
    if (test.behaviour == "text with half a character"s) continue;
    EXPECT_EQ(Check(std::string(kWide) + kKey + test.entry), std::vector<std::string>{})
        << test.behaviour;
  }
}

TEST(RegistryText, names_may_hold_anything) {
  const std::string file = std::string(kWide) + "[HKEY_LOCAL_MACHINE\\a]b\\c d]\r\n" +
                           R"("a=\"b\"\\c]"="1")" + "\r\n@=\"2\"\r\n";
  EXPECT_EQ(Find(file, u"a]b\\c d", u"a=\"b\"\\c]"), "1\0"s);
  EXPECT_EQ(Find(file, u"a]b\\c d", u""), "2\0"s);
  EXPECT_EQ(Check(file), std::vector<std::string>{});
}

TEST(RegistryText, every_encoding_is_read) {
  const std::u16string body =
      u"[HKEY_LOCAL_MACHINE\\M\u00fcller]\r\n\"Stra\u00dfe\"=\"\u20ac\u4e2d\U0001F600\"\r\n";
  const std::u16string wide = FromUtf8(kWide) + body;
  const std::u16string narrow = FromUtf8(kNarrow) + body;
  const std::string expected = "\x80???\0"s;
  for (const std::u16string& text : {wide, narrow}) {
    const std::u16string marked = u'\uFEFF' + text;
    for (const std::string& file : {Utf16ToBytes(marked, std::endian::little),
                                    Utf16ToBytes(marked, std::endian::big), ToUtf8(marked)}) {
      EXPECT_EQ(Find(file, u"m\u00dcLLER", u"STRA\u00dfE"), expected);
      EXPECT_EQ(Check(file), std::vector<std::string>{});
    }
  }
  EXPECT_EQ(Find(ToUtf8(wide), u"M\u00fcller", u"Stra\u00dfe"), expected) << "UTF-8, no mark";
}

TEST(RegistryText, a_file_without_mark_is_in_the_ANSI_page_when_it_says_so_or_is_no_UTF_8) {
  const std::string body = "[HKEY_LOCAL_MACHINE\\M\xFCller]\r\n\"V\"=\"\xE4\xA0\"\r\n";
  EXPECT_EQ(Find(kNarrow + body, u"M\u00fcller", u"V"), "\xE4\xA0\0"s);
  EXPECT_EQ(Find(kWide + body, u"M\u00fcller", u"V"), "\xE4\xA0\0"s);
  const std::string utf8 = "[HKEY_LOCAL_MACHINE\\K]\r\n\"V\"=\"\xC3\xA4\"\r\n";
  EXPECT_EQ(Find(kNarrow + utf8, u"K", u"V"), "\xC3\xA4\0"s);
  EXPECT_EQ(Find(kWide + utf8, u"K", u"V"), "\xE4\0"s);
}

TEST(RegistryText, a_double_byte_character_is_taken_whole) {
  const std::string file = std::string(kNarrow) + kKey + "\"V\"=\"\x83\x5C\"\r\n";
  EXPECT_EQ(Find(file, u"K", u"V", 932), "\x83\x5C\0"s) << "its second byte is no backslash";
}

TEST(RegistryText, keys_are_removed_with_what_is_below) {
  const std::string file = std::string(kWide) +
                           "[HKEY_LOCAL_MACHINE\\A]\n\"V\"=\"1\"\n"
                           "[HKEY_LOCAL_MACHINE\\A\\B]\n\"V\"=\"1\"\n"
                           "[HKEY_LOCAL_MACHINE\\AB]\n\"V\"=\"1\"\n"
                           "[-hkey_local_machine\\a]\n"
                           "[HKEY_LOCAL_MACHINE\\A]\n\"W\"=\"1\"\n";
  EXPECT_EQ(Find(file, u"A", u"V"), Missing());
  EXPECT_EQ(Find(file, u"A\\B", u"V"), Missing());
  EXPECT_EQ(Find(file, u"AB", u"V"), "1\0"s);
  EXPECT_EQ(Find(file, u"A", u"W"), "1\0"s) << "named again";
  EXPECT_EQ(Check(file), std::vector<std::string>{});
}

TEST(RegistryText, other_roots_are_passed_over) {
  const std::string file = std::string(kWide) +
                           "[HKEY_CURRENT_USER\\K]\n\"V\"=\"1\"\n[HKEY_CLASSES_ROOT]\n@=\"1\"\n"
                           "[-hkey_users\\x]\n[HKEY_CURRENT_CONFIG\\K]\n\"V\"=-\n"
                           "[HKEY_LOCAL_MACHINE]\n\"R\"=\"1\"\n[HKEY_LOCAL_MACHINE\\]\n@=\"2\"\n";
  EXPECT_EQ(Find(file, u"K", u"V"), Missing());
  EXPECT_EQ(Find(file, u"", u"R"), "1\0"s);
  EXPECT_EQ(Find(file, u"", u""), "2\0"s);
  EXPECT_EQ(Check(file), std::vector<std::string>{});
}

struct ProblemCase {
  const char* lines;  // from line 2 on, between the header and an entry that must survive
  const char* problem;
};

const std::vector<ProblemCase> kProblemCases = {
    {"\"V\"=\"1\"", "2 a value before the first key is ignored"},
    {"[-HKEY_LOCAL_MACHINE\\K]\n\"V\"=\"1\"", "3 a value of a key that is removed is ignored"},
    {"[HKEY_LOCAL_MACHINE\\K\n\"V\"=\"1\"",
     "2 the key has no closing \"]\", its values are ignored"},
    {"[HKLM\\K]\n\"V\"=\"1\"",
     "2 the key does not begin with HKEY_LOCAL_MACHINE or another root key's full name, its "
     "values are ignored"},
    {"[]",
     "2 the key does not begin with HKEY_LOCAL_MACHINE or another root key's full name, its "
     "values are ignored"},
    {"[HKEY_LOCAL_MACHINE\\\\K]", "2 the key's path has an empty name, its values are ignored"},
    {"[HKEY_LOCAL_MACHINE\\K\\\\]", "2 the key's path has an empty name, its values are ignored"},
    {"[HKEY_LOCAL_MACHINE\\K\\\\L]", "2 the key's path has an empty name, its values are ignored"},
    {"[-HKEY_LOCAL_MACHINE]", "2 HKEY_LOCAL_MACHINE itself cannot be removed"},
    {"[HKEY_LOCAL_MACHINE\\K] x", "2 unexpected text after the key is ignored"},
    {"; c\n\nV=\"1\"", "4 a key in brackets, a value's name in quotation marks or @ expected"},
    {"\"V=1\n", "2 the value's name has no closing quotation mark"},
    {"\"V\"", "2 \"=\" expected after the value's name"},
    {"\"V\" \"1\"", "2 \"=\" expected after the value's name"},
    {"@", "2 \"=\" expected after the value's name"},
    {"\"V\"=", "2 a text in quotation marks, dword:, hex: or - expected after \"=\""},
    {"\"V\"=1", "2 a text in quotation marks, dword:, hex: or - expected after \"=\""},
    {"\"V\"=dword 1", "2 a text in quotation marks, dword:, hex: or - expected after \"=\""},
    {"\"V\"=\"1\" 2", "2 unexpected text after the value, which is ignored"},
    {"\"V\"=- x", "2 unexpected text after the value, which is ignored"},
    {"\"V\"=dword:1 2", "2 unexpected text after the value, which is ignored"},
    {"\"V\"=dword:", "2 one to eight hexadecimal digits expected after \"dword:\""},
    {"\"V\"=dword:x", "2 one to eight hexadecimal digits expected after \"dword:\""},
    {"\"V\"=dword:123456789", "2 one to eight hexadecimal digits expected after \"dword:\""},
    {"\"V\"=\"1", "2 the text has no closing quotation mark"},
    {"\"V\"=\"1\\\"", "2 the text has no closing quotation mark"},
    {"\"V\"=hex", "2 \"hex:\" or \"hex(TYPE):\" expected"},
    {"\"V\"=hex()", "2 \"hex:\" or \"hex(TYPE):\" expected"},
    {"\"V\"=hex(2", "2 \"hex:\" or \"hex(TYPE):\" expected"},
    {"\"V\"=hex(2)", "2 \"hex:\" or \"hex(TYPE):\" expected"},
    {"\"V\"=hex(g):01,\\\n02", "2 \"hex:\" or \"hex(TYPE):\" expected"},
    {"\"V\"=hex(123456789):01", "2 \"hex:\" or \"hex(TYPE):\" expected"},
    {"\"V\"=hex:01,\\\n02,xx,\\\n03", "3 a byte of two hexadecimal digits expected"},
    {"\"V\"=hex:01,,02", "2 a byte of two hexadecimal digits expected"},
    {"\"V\"=hex:012", "2 a comma expected between two bytes"},
    {"\"V\"=hex:01 02,\\ \n03", "2 a comma expected between two bytes"},
    {"\"V\"=hex:01\\\n02", "2 a comma expected between two bytes"},
    {"\"V\"=hex:01,\\x\n", "2 a \"\\\" between bytes must be the last character of its line"},
    {"\"V\"=hex:01,\\\n\n", "2 the line ends with a \"\\\", but no more bytes follow"},
    {"\"V\"=hex:01,\\", "2 the line ends with a \"\\\", but no more bytes follow"},
    {"\"V\"=hex:01,\\\n02,xx\\", "3 a byte of two hexadecimal digits expected"},
    {"\"V\"=hex:01,\\\n; c", "2 the line ends with a \"\\\", but no more bytes follow"},
};

TEST(RegistryText, a_broken_entry_is_reported_and_left_out) {
  for (const ProblemCase& test : kProblemCases) {
    const std::string file = std::string(kWide) + test.lines + '\n' + kKey + "\"Good\"=\"1\"\n";
    EXPECT_EQ(Check(file), std::vector<std::string>{test.problem}) << test.lines;
    EXPECT_EQ(Find(file, u"K", u"V"), Missing()) << test.lines;
    EXPECT_EQ(Find(file, u"K", u"Good"), "1\0"s) << test.lines;
  }
}

TEST(RegistryText, a_broken_value_keeps_its_neighbours) {
  for (const ProblemCase& test : kProblemCases) {
    if (test.lines[0] == '[') continue;
    const std::string file =
        std::string(kWide) + kKey + "\"A\"=\"1\"\n" + test.lines + "\n\"B\"=\"2\"\n";
    EXPECT_EQ(Find(file, u"K", u"A"), "1\0"s) << test.lines;
    EXPECT_EQ(Find(file, u"K", u"B"), "2\0"s) << test.lines;
  }
}

TEST(RegistryText, what_is_only_odd_is_reported_and_used) {
  const auto file = [](std::string_view entry) {
    return std::string(kWide) + kKey + std::string(entry);
  };
  const std::string lone =
      "3 a backslash stands before something else than \\ or \" and is taken "
      "as it is";
  EXPECT_EQ(Check(file(R"("V"="C:\Temp")")), std::vector<std::string>{lone});
  EXPECT_EQ(Find(file(R"("V"="C:\Temp")"), u"K", u"V"), "C:\\Temp\0"s);
  EXPECT_EQ(Check(file(R"("V\n"="1")")), std::vector<std::string>{lone});
  EXPECT_EQ(Find(file(R"("V\n"="1")"), u"K", u"V\\n"), "1\0"s);
  EXPECT_EQ(Check(file("\"V\"=hex(2):41,00,42")),
            std::vector<std::string>{
                "3 a text of UTF-16 has an odd number of bytes, the last is ignored"});
  EXPECT_EQ(Check(std::string(kWide) + "[HKEY_LOCAL_MACHINE\\K] x\n\"V\"=\"1\"").size(), 1U);
  EXPECT_EQ(Find(std::string(kWide) + "[HKEY_LOCAL_MACHINE\\K] x\n\"V\"=\"1\"", u"K", u"V"),
            "1\0"s);
}

TEST(RegistryText, an_unclosed_text_at_the_end_of_the_file_is_reported) {
  const std::string file = std::string(kWide) + kKey + "\"A\"=\"1\"\n\"V\"=\"x\n\n";
  EXPECT_EQ(Check(file), std::vector<std::string>{"4 the text has no closing quotation mark"});
  EXPECT_EQ(Find(file, u"K", u"A"), "1\0"s);
}

TEST(RegistryText, lines_are_counted_through_texts_of_several_lines) {
  const std::string file = std::string(kWide) + kKey + "\"A\"=\"1\r\n2\r3\n4\"\n\r\nx\n";
  EXPECT_EQ(Check(file),
            std::vector<std::string>{
                "8 a key in brackets, a value's name in quotation marks or @ expected"});
}

TEST(RegistryText, a_missing_header_is_reported_and_the_rest_used) {
  const std::string problem =
      "1 the first line is not \"Windows Registry Editor Version 5.00\" or \"REGEDIT4\"";
  EXPECT_EQ(Check(""), std::vector<std::string>{problem});
  EXPECT_EQ(Check("REGEDIT5\n"), std::vector<std::string>{problem});
  EXPECT_EQ(Check("REGEDIT4 \t\n"), std::vector<std::string>{}) << "blanks behind it";
  const std::string file = std::string(kKey) + "\"V\"=\"1\"";
  EXPECT_EQ(Check(file), std::vector<std::string>{problem});
  EXPECT_EQ(Find(file, u"K", u"V"), "1\0"s);
  EXPECT_EQ(Find("something\n" + file, u"K", u"V"), "1\0"s);
  EXPECT_EQ(Find("\n" + file, u"K", u"V"), "1\0"s);
}

TEST(RegistryText, no_more_than_a_thousand_problems_are_listed) {
  std::string file = kWide;
  for (int i = 0; i < 999; ++i)
    file += "x\n";
  EXPECT_EQ(Check(file).size(), 999U);
  file += "x\n";
  EXPECT_EQ(Check(file).size(), 1000U);
  file += "x\nx\nx\n";
  EXPECT_EQ(Check(file).size(), 1001U);
  EXPECT_EQ(Check(file).back(), "1002 more problems from here on are not listed");
}

class RandomRegistry {
 public:
  std::string Pieces(std::size_t most) {
    static const std::vector<std::string> kPieces = {"[HKEY_LOCAL_MACHINE\\",
                                                     "[-HKEY_LOCAL_MACHINE\\",
                                                     "]",
                                                     "\r\n",
                                                     "\n",
                                                     "\\\r\n",
                                                     "\\",
                                                     "\"",
                                                     "\"V\"=",
                                                     "@=",
                                                     "dword:",
                                                     "hex:",
                                                     "hex(2):",
                                                     "hex(",
                                                     "):",
                                                     "41,",
                                                     "00",
                                                     ",",
                                                     "-",
                                                     ";",
                                                     " ",
                                                     "a",
                                                     "\xE4",
                                                     "\xFF",
                                                     "\0"s,
                                                     "=",
                                                     "\"V\"=\"v\"\n",
                                                     "\"V\"=hex(7):41,00\n"};
    std::string text;
    for (std::size_t n = random_() % most; n > 0; --n)
      text += kPieces[random_() % kPieces.size()];
    return text;
  }
  std::string Name() {
    static constexpr std::u16string_view kLetters = u"aA\\\"[]=;@ \u00e4\u4e2d";
    std::u16string name;
    for (std::size_t n = random_() % 6; n > 0; --n)
      name += kLetters[random_() % kLetters.size()];
    return ToUtf8(name);
  }

 private:
  std::mt19937 random_{20240229};
};

TEST(RegistryText, no_text_does_harm) {
  RandomRegistry random;
  const auto page = FindCodePage(1252);
  for (int i = 0; i < 5000; ++i) {
    const std::string header = i % 3 == 0 ? kNarrow : i % 3 == 1 ? kWide : "";
    const std::string body = random.Pieces(60);
    const auto lines = static_cast<std::size_t>(
        std::count_if(body.begin(), body.end(), [](char c) { return c == '\r' || c == '\n'; }));
    for (const std::string& file : {header + body, "\xFF\xFE" + body}) {
      for (const RegistryDiagnostic& problem : CheckRegistryText(file, *page)) {
        ASSERT_GE(problem.line, 1U);
        ASSERT_LE(problem.line, lines + 3000U);
        ASSERT_FALSE(problem.message.empty());
      }
      ParseRegistryText(file, *page);
    }
    const std::string good = std::string("\n") + kKey + "\"Good\"=dword:1\n";
    if (body.find('"') == std::string::npos) {
      ASSERT_EQ(Find(header + body + good, u"K", u"Good"), "\1\0\0\0"s)
          << testing::PrintToString(body);
    }
  }
}

TEST(RegistryText, any_name_and_text_can_be_said) {
  RandomRegistry random;
  const auto escaped = [](const std::string& text) {
    std::string result;
    for (const char c : text)
      result += c == '\\' || c == '"' ? std::string{'\\', c} : std::string{c};
    return result;
  };
  for (int i = 0; i < 5000; ++i) {
    const std::string name = random.Name();
    const std::string text = random.Name();
    const std::string file =
        std::string(kWide) + kKey + '"' + escaped(name) + "\"=\"" + escaped(text) + '"';
    ASSERT_EQ(Find(file, u"k", FromUtf8(name)), FindCodePage(1252)->Encode(FromUtf8(text)) + '\0');
    ASSERT_EQ(Check(file), std::vector<std::string>{});
  }
}

TEST(RegistryText, large_texts_take_time_in_proportion) {
  const std::size_t size = std::size_t{2} << 20;
  const auto repeated = [&](std::string_view piece) {
    std::string text = std::string(kWide) + kKey;
    while (text.size() < size)
      text += piece;
    return text;
  };
  const auto start = std::chrono::steady_clock::now();
  for (const char* const piece :
       {"@=\"x\n", "@=\"x\\\"\n", "\"V\"=hex:01,\\\n", "[", "]\n", "\\\n", "\"V\"=hex:xx\\\n", "\"",
        ";", "[HKEY_LOCAL_MACHINE\\K]\n@=-\n"}) {
    EXPECT_LE(CheckRegistryText(repeated(piece), *FindCodePage(1252)).size(), 1001U) << piece;
  }
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(60));
}

}  // namespace
}  // namespace vandpublic
