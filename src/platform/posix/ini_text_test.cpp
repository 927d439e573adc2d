#include "platform/posix/ini_text.h"

#include <gtest/gtest.h>

#include <vector>

#include "platform/code_page.h"
#include "platform/posix/utf16_bytes.h"
#include "runtime/utf8.h"

namespace vandpublic {
namespace {

using std::string_literals::operator""s;

std::string Read(std::string_view file, const IniKey& key, std::string_view default_value = "d",
                 int page = 1252) {
  return ReadIniText(file, key, default_value, *FindCodePage(page));
}

std::string Edit(std::string_view file, const IniKey& key, std::string_view value,
                 int page = 1252) {
  return EditIniText(file, key, value, *FindCodePage(page));
}

struct ReadCase {
  const char* behaviour;
  std::string file;
  IniKey key;
  std::string expected;  // "d" is the default
};

const std::vector<ReadCase> kReadCases = {
    {"empty file", "", {"S", "K"}, "d"},
    {"plain", "[S]\r\nK=v\r\n", {"S", "K"}, "v"},
    {"names without case", "[sEcT]\r\nkEy=v\r\n", {"SeCt", "KeY"}, "v"},
    {"letters beyond ASCII without case", "[\xE4]\r\n\xF6=v\r\n", {"\xC4", "\xD6"}, "v"},
    {"other letters beyond ASCII", "[\xE4]\r\n\xF6=v\r\n", {"\xC5", "\xD6"}, "d"},
    {"letter against ASCII letter", "[a]\r\nk=v\r\n", {"\xE4", "k"}, "d"},
    {"longer name in the file", "[S]\r\nKey2=v\r\n", {"S", "Key"}, "d"},
    {"shorter name in the file", "[S]\r\nKe=v\r\n", {"S", "Key"}, "d"},
    {"other letter later in the name", "[S]\r\nKex=v\r\n", {"S", "Key"}, "d"},
    {"blanks around names in the file", " \t[ \tS\t ]\r\n\t K \t= v\r\n", {"S", "K"}, "v"},
    {"blanks around the names asked for", "[S]\r\nK=v\r\n", {"\t S ", " K\t"}, "v"},
    {"blanks inside names count", "[A B]\r\nC D=v\r\n", {"A B", "C D"}, "v"},
    {"blanks inside names are not dropped", "[A B]\r\nC D=v\r\n", {"AB", "C D"}, "d"},
    {"blanks around the value", "[S]\r\nK=\t v w \t\r\n", {"S", "K"}, "v w"},
    {"missing section", "[S]\r\nK=v\r\n", {"T", "K"}, "d"},
    {"missing key", "[S]\r\nK=v\r\n", {"S", "L"}, "d"},
    {"key of the next section", "[S]\r\nA=1\r\n[T]\r\nK=v\r\n", {"S", "K"}, "d"},
    {"first section of the name only", "[S]\r\nA=1\r\n[s]\r\nK=v\r\n", {"S", "K"}, "d"},
    {"first line of the key wins", "[S]\r\nK=1\r\nk=2\r\n", {"S", "K"}, "1"},
    {"line without = hides a later one", "[S]\r\nK\r\nK=2\r\n", {"S", "K"}, "d"},
    {"= and nothing is an empty value", "[S]\r\nK=\r\n", {"S", "K"}, ""},
    {"= and blanks is an empty value", "[S]\r\nK= \t\r\n", {"S", "K"}, ""},
    {"second = belongs to the value", "[S]\r\nK==a=b\r\n", {"S", "K"}, "=a=b"},
    {"name with = is never found", "[S]\r\nK=a=b\r\n", {"S", "K=a"}, "d"},
    {"double quotes", "[S]\r\nK=\"v\"\r\n", {"S", "K"}, "v"},
    {"single quotes", "[S]\r\nK='v'\r\n", {"S", "K"}, "v"},
    {"blanks in quotes stay", "[S]\r\nK= \" v \" \r\n", {"S", "K"}, " v "},
    {"one pair of quotes only", "[S]\r\nK=\"'v'\"\r\n", {"S", "K"}, "'v'"},
    {"doubled quotes lose one pair", "[S]\r\nK=\"\"v\"\"\r\n", {"S", "K"}, "\"v\""},
    {"quotes that do not match", "[S]\r\nK=\"v'\r\n", {"S", "K"}, "\"v'"},
    {"opening quote only", "[S]\r\nK=\"v\r\n", {"S", "K"}, "\"v"},
    {"one quote alone", "[S]\r\nK='\r\n", {"S", "K"}, "'"},
    {"quotes around nothing", "[S]\r\nK=''\r\n", {"S", "K"}, ""},
    {"other pairs are no quotes", "[S]\r\nK=xvx\r\n", {"S", "K"}, "xvx"},
    {"comment", "[S]\r\n;K=1\r\n \t;K=2\r\nK=3\r\n", {"S", "K"}, "3"},
    {"comments are no keys", "[S]\r\n;K=1\r\n", {"S", ";K"}, "d"},
    {"semicolon in a value", "[S]\r\nK=v ; x\r\n", {"S", "K"}, "v ; x"},
    {"number sign is no comment", "[S]\r\n#K=v\r\n", {"S", "#K"}, "v"},
    {"commented section", ";[S]\r\nK=v\r\n", {"S", "K"}, "d"},
    {"name to the last bracket", "[a]b]\r\nK=v\r\n", {"a]b", "K"}, "v"},
    {"text behind the bracket", "[S] ; S\r\nK=v\r\n", {"S", "K"}, "v"},
    {"bracket in that text belongs to the name", "[S] ]\r\nK=v\r\n", {"S", "K"}, "d"},
    {"bracket inside a line is no section", "[T]\r\nx=[S]\r\nK=v\r\n", {"S", "K"}, "d"},
    {"open bracket is no section", "[S\r\nK=v\r\n", {"S", "K"}, "d"},
    {"open bracket does not end a section", "[S]\r\n[x=1\r\nK=v\r\n", {"S", "K"}, "v"},
    {"open bracket begins a name", "[S]\r\n[K=v\r\n", {"S", "[K"}, "v"},
    {"keys before the first section", "K=v\r\n[S]\r\n", {"S", "K"}, "d"},
    {"those belong to no section", "K=v\r\n[S]\r\n", {"\t", "K"}, "d"},
    {"section with an empty name", "[ ]\r\nK=v\r\n", {"\t", "K"}, "v"},
    {"key with an empty name", "[S]\r\n\r\n=v\r\n", {"S", "\t"}, "v"},
    {"lone LF", "[S]\nA=1\nK=v\n", {"S", "K"}, "v"},
    {"lone CR", "[S]\rA=1\rK=v\r", {"S", "K"}, "v"},
    {"all ends mixed", "[S]\rA=1\nB=1\r\n\n\rK=v", {"S", "K"}, "v"},
    {"last line without end", "[S]\r\nK=v", {"S", "K"}, "v"},
    {"last line a section without end", "[S]", {"S", "K"}, "d"},
    {"last line an open bracket", "[", {"S", "K"}, "d"},
    {"zero byte ends the value", "[S]\r\nK=a\0b\r\nL=v\r\n"s, {"S", "K"}, "a"},
    {"line after a zero byte", "[S]\r\nK=a\0b\r\nL=v\r\n"s, {"S", "L"}, "v"},
    {"bytes that mean nothing", "[S]\r\nK=\x81\xFF\r\n", {"S", "K"}, "\x81\xFF"},
};

TEST(IniText, Read_follows_the_profile_functions) {
  for (const ReadCase& test : kReadCases) {
    EXPECT_EQ(Read(test.file, test.key), test.expected) << test.behaviour;
  }
}

TEST(IniText, Read_is_the_same_in_every_encoding) {
  for (const ReadCase& test : kReadCases) {
    if (test.file.find('\x81') != std::string::npos) continue;  // not in UTF-8 as it stands
    const std::u16string text = FindCodePage(1252)->Decode(test.file);
    for (const auto order : {std::endian::little, std::endian::big}) {
      const std::string marked = Utf16ToBytes(u'\uFEFF' + text, order);
      EXPECT_EQ(Read(marked, test.key), test.expected) << test.behaviour;
      EXPECT_EQ(Read(marked + 'x', test.key), test.expected) << test.behaviour << ", odd";
    }
    EXPECT_EQ(Read(ToUtf8(u'\uFEFF' + text), test.key), test.expected) << test.behaviour;
  }
}

TEST(IniText, Read_gives_the_default_without_its_last_blanks) {
  EXPECT_EQ(Read("", {"S", "K"}, "  a  "), "  a");
  EXPECT_EQ(Read("", {"S", "K"}, "a\t"), "a\t") << "blanks only";
  EXPECT_EQ(Read("", {"S", "K"}, "   "), "");
  EXPECT_EQ(Read("", {"S", "K"}, ""), "");
  EXPECT_EQ(Read("", {"S", "K"}, "\"a\""), "\"a\"") << "no value of a file, so no quotes removed";
}

TEST(IniText, Read_cuts_at_255_bytes) {
  const std::string full(255, 'x');
  EXPECT_EQ(Read("", {"S", "K"}, full + "yz"), full);
  EXPECT_EQ(Read("", {"S", "K"}, full.substr(1) + std::string(9, ' ') + "y"), full.substr(1) + ' ');
  EXPECT_EQ(Read("[S]\r\nK=" + full, {"S", "K"}), full);
  EXPECT_EQ(Read("[S]\r\nK=" + full + "y\r\n", {"S", "K"}), full);
  EXPECT_EQ(Read("[S]\r\nK=\"" + full + "y\"", {"S", "K"}), full);
}

TEST(IniText, Read_cuts_through_a_double_byte_character) {
  std::string value(254, 'x');
  value += "\x83\x41";
  EXPECT_EQ(Read("[S]\r\nK=" + value, {"S", "K"}, "", 932), value.substr(0, 255));
}

// 83 41 and 83 61 are two different letters whose second bytes differ as "A" and "a" do; 83 5D
// ends with the byte of "]"; 82 60 and 82 81 are the wide letter A in both cases.
TEST(IniText, Read_takes_double_byte_characters_whole) {
  EXPECT_EQ(Read("[\x83\x41]\r\nK=v", {"\x83\x61", "K"}, "d", 932), "d");
  EXPECT_EQ(Read("[\x83\x41]\r\nK=v", {"\x83\x41", "k"}, "d", 932), "v");
  EXPECT_EQ(Read("[S]\r\n\x82\x60=v", {"S", "\x82\x81"}, "d", 932), "v");
  EXPECT_EQ(Read("[S] \x83\x5D\r\nK=v", {"S", "K"}, "d", 932), "v");
  EXPECT_EQ(Read("[a\x83\x5D\x41]\x83\x5D\r\nK=v", {"a\x83\x5D\x61", "K"}, "d", 932), "v");
  EXPECT_EQ(Read("[S]\r\n[x\x83\x5D=1\r\nK=v", {"S", "K"}, "d", 932), "v")
      << "no bracket, no section";
  EXPECT_EQ(Read("[S\xE4]\r\nK=v", {"S\xE4", "K"}), "v") << "single-byte page";
  EXPECT_EQ(Read("[S\x83]\r\nK=v", {"S\x83", "K"}, "d", 932), "d") << "lead byte takes the bracket";
}

TEST(IniText, Read_gives_a_question_mark_for_what_the_page_lacks) {
  const std::string file =
      Utf16ToBytes(u"\uFEFF[S]\r\nK=a\u4e2d\U0001F600b\r\n", std::endian::little);
  EXPECT_EQ(Read(file, {"S", "K"}), "a???b");
  EXPECT_EQ(Read("\xEF\xBB\xBF[S]\r\nK=a\xE4\xB8\xAD\x62\r\n", {"S", "K"}), "a?b");
  EXPECT_EQ(Read(Utf16ToBytes(u"\uFEFF[S]\r\n\u4e2d=v", std::endian::little), {"S", "?"}), "d")
      << "the name itself is compared, not its form in the page";
}

struct EditCase {
  const char* behaviour;
  std::string file;
  IniKey key;
  std::string value;
  std::string expected;
};

const std::vector<EditCase> kEditCases = {
    {"new file", "", {"S", "K"}, "v", "[S]\r\nK=v\r\n"},
    {"new section", "[T]\r\nA=1\r\n", {"S", "K"}, "v", "[T]\r\nA=1\r\n[S]\r\nK=v\r\n"},
    {"new section, last line without end",
     "[T]\nA=1",
     {"S", "K"},
     "v",
     "[T]\nA=1\r\n[S]\r\nK=v\r\n"},
    {"new section behind blank lines", "[T]\r\n\r\n", {"S", "K"}, "v", "[T]\r\n\r\n[S]\r\nK=v\r\n"},
    {"new section behind a blank", " ", {"S", "K"}, "v", " \r\n[S]\r\nK=v\r\n"},
    {"new section behind keys of none", "K=1\n", {"S", "K"}, "v", "K=1\n[S]\r\nK=v\r\n"},
    {"new key", "[S]\r\nA=1\r\n[T]\r\n", {"S", "K"}, "v", "[S]\r\nA=1\r\nK=v\r\n[T]\r\n"},
    {"new key in an empty section", "[S]\n[T]\n", {"S", "K"}, "v", "[S]\nK=v\r\n[T]\n"},
    {"new key before blank lines",
     "[S]\nA=1\n\n \t\n[T]\n",
     {"S", "K"},
     "v",
     "[S]\nA=1\nK=v\r\n\n \t\n[T]\n"},
    {"new key before blank lines at the end",
     "[S]\r\nA=1\r\n\r\n",
     {"S", "K"},
     "v",
     "[S]\r\nA=1\r\nK=v\r\n\r\n"},
    {"new key behind a comment",
     "[S]\r\nA=1\r\n; c\r\n\r\n[T]",
     {"S", "K"},
     "v",
     "[S]\r\nA=1\r\n; c\r\nK=v\r\n\r\n[T]"},
    {"new key, last line without end", "[S]\nA=1", {"S", "K"}, "v", "[S]\nA=1\r\nK=v\r\n"},
    {"new key, section without end", "[S]", {"S", "K"}, "v", "[S]\r\nK=v\r\n"},
    {"new key in the first section of the name",
     "[S]\n[s]\nK=1\n",
     {"S", "K"},
     "v",
     "[S]\nK=v\r\n[s]\nK=1\n"},
    {"key in place", "[S]\nA=1\nK=2\nB=3\n", {"S", "K"}, "v", "[S]\nA=1\nK=v\r\nB=3\n"},
    {"key in place, last line without end", "[S]\nK=2", {"S", "K"}, "v", "[S]\nK=v\r\n"},
    {"first line of the key", "[S]\nK=1\nK=2\n", {"S", "K"}, "v", "[S]\nK=v\r\nK=2\n"},
    {"line without =", "[S]\nK\nA=1\n", {"S", "K"}, "v", "[S]\nK=v\r\nA=1\n"},
    {"spelling and indentation of the file",
     "[s]\n\t kEy  =  old ; x\n",
     {" S ", " KEY "},
     "v",
     "[s]\n\t kEy=v\r\n"},
    {"lone CR", "[S]\rA=1\r[T]\r", {"S", "K"}, "v", "[S]\rA=1\rK=v\r\n[T]\r"},
    {"names without blanks around", "", {"\t S ", " K\t"}, "v", "[S]\r\nK=v\r\n"},
    {"value loses blanks in front only", "", {"S", "K"}, " \t v \t", "[S]\r\nK=v \t\r\n"},
    {"value loses line ends in front", "", {"S", "K"}, "\r\n v", "[S]\r\nK=v\r\n"},
    {"value of blanks", "", {"S", "K"}, " \t\r\n ", "[S]\r\nK=\r\n"},
    {"empty value", "[S]\r\nK=1\r\n", {"S", "K"}, "", "[S]\r\nK=\r\n"},
    {"quotes are written", "", {"S", "K"}, "\" v \"", "[S]\r\nK=\" v \"\r\n"},
    {"line end inside a value", "", {"S", "K"}, "a\r\nb=c\n", "[S]\r\nK=a\r\nb=c\n\r\n"},
    {"key with =", "[S]\r\na=b=1\r\n", {"S", "a=b"}, "2", "[S]\r\na=b=1\r\na=b=2\r\n"},
    {"key that begins as a comment",
     "[S]\r\n;a=1\r\n",
     {"S", ";a"},
     "2",
     "[S]\r\n;a=1\r\n;a=2\r\n"},
    {"empty names", "K=1\n", {"", ""}, "v", "K=1\n[]\r\n=v\r\n"},
    {"empty names again", "[]\r\n=v\r\n", {"", ""}, "w", "[]\r\n=w\r\n"},
    {"other letters beyond ASCII",
     "[\xE4]\n\xE9=1\n",
     {"\xC4", "\xE8"},
     "\xFC",
     "[\xE4]\n\xE9=1\n\xE8=\xFC\r\n"},
    {"bytes that mean nothing",
     "\x81\xFF\n[S]\n\x8D\n",
     {"S", "K"},
     "\x8F",
     "\x81\xFF\n[S]\n\x8D\nK=\x8F\r\n"},
    {"zero bytes of other lines",
     "\0[S]\n[S]\nA=\0\n"s,
     {"S", "K"},
     "v",
     "\0[S]\n[S]\nA=\0\nK=v\r\n"s},
};

TEST(IniText, Edit_changes_one_line) {
  for (const EditCase& test : kEditCases) {
    EXPECT_EQ(Edit(test.file, test.key, test.value), test.expected) << test.behaviour;
  }
}

TEST(IniText, Edit_keeps_the_encoding) {
  const auto page = FindCodePage(1252);
  for (const EditCase& test : kEditCases) {
    const std::u16string file = u'\uFEFF' + page->Decode(test.file);
    const std::u16string expected = u'\uFEFF' + page->Decode(test.expected);
    for (const auto order : {std::endian::little, std::endian::big}) {
      const std::string bytes = Utf16ToBytes(file, order);
      EXPECT_EQ(Edit(bytes, test.key, test.value), Utf16ToBytes(expected, order)) << test.behaviour;
      EXPECT_EQ(Edit(bytes + 'x', test.key, test.value), Utf16ToBytes(expected, order))
          << test.behaviour << ", odd byte dropped";
    }
    EXPECT_EQ(Edit(ToUtf8(file), test.key, test.value), ToUtf8(expected)) << test.behaviour;
  }
}

TEST(IniText, Edit_keeps_what_the_page_lacks_in_other_lines) {
  const std::string file = Utf16ToBytes(u"\uFEFF[\u4e2d]\nA=\U0001F600\n[S]\n", std::endian::big);
  EXPECT_EQ(Edit(file, {"S", "K"}, "\x80"), file + Utf16ToBytes(u"K=\u20ac\r\n", std::endian::big));
}

TEST(IniText, a_value_with_a_line_end_comes_back_up_to_it) {
  const std::string file = Edit("", {"S", "K"}, "a\r\nb=c");
  EXPECT_EQ(Read(file, {"S", "K"}), "a");
  EXPECT_EQ(Read(file, {"S", "b"}), "c");
}

}  // namespace
}  // namespace vandpublic
