// Initialisation files of random lines, and large ones.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <random>
#include <string>
#include <vector>

#include "platform/code_page.h"
#include "platform/posix/ini_text.h"
#include "platform/posix/utf16_bytes.h"
#include "runtime/utf8.h"

namespace vandpublic {
namespace {

std::string Read(std::string_view file, const IniKey& key, std::string_view default_value,
                 int page) {
  return ReadIniText(file, key, default_value, *FindCodePage(page));
}

std::string Edit(std::string_view file, const IniKey& key, std::string_view value, int page) {
  return EditIniText(file, key, value, *FindCodePage(page));
}

// Texts over a small alphabet, in which everything that has a meaning is frequent.
class RandomTexts {
 public:
  std::string Text(std::string_view alphabet, std::size_t longest) {
    std::string text(Below(longest + 1), '\0');
    for (char& c : text)
      c = alphabet[Below(alphabet.size())];
    return text;
  }
  std::size_t Below(std::size_t bound) { return random_() % bound; }

 private:
  std::mt19937 random_{20240229};
};

constexpr std::string_view kNameAlphabet = "aAbB \t\xE4\xC4\x83\x41]['";
constexpr std::string_view kFileAlphabet = "aAbB  \t\xE4\x83]]][[[[;;==\"'\r\r\n\n\n\n";
constexpr std::string_view kValueAlphabet = "aAb \t]=;[\xE4\x83";

std::vector<std::string> MarkedFiles(const std::string& text) {
  const std::u16string wide = u'\uFEFF' + FindCodePage(1252)->Decode(text);
  return {text, Utf16ToBytes(wide, std::endian::little), Utf16ToBytes(wide, std::endian::big),
          ToUtf8(wide), "\xFF\xFE" + text};
}

TEST(IniTextRandom, whatever_is_written_is_read_back) {
  RandomTexts random;
  for (int i = 0; i < 5000; ++i) {
    const std::string section = random.Text("aAbB \xE4[", 3);
    const std::string key = random.Text("aAbB\xE4", 2) + "k";
    const std::string value = random.Text(kValueAlphabet, 6) + "v";
    for (const std::string& file : MarkedFiles(random.Text(kFileAlphabet, 40))) {
      const int page = i % 2 == 0 ? 1252 : 932;
      if (page == 932 && file.find_first_of("\xE4\x83") != std::string::npos) continue;
      if (page == 932 && (section + key + value).find_first_of("\xE4\x83") != std::string::npos) {
        continue;  // a lead byte would swallow what follows
      }
      const std::string edited = Edit(file, {section, key}, value, page);
      const std::size_t first = value.find_first_not_of(" \t");
      ASSERT_EQ(Read(edited, {section, key}, "d", page), value.substr(first))
          << testing::PrintToString(file) << " [" << section << "] " << key << '=' << value;
      ASSERT_EQ(Edit(edited, {section, key}, value, page), edited) << "once is enough";
    }
  }
}

// The lines of a text with their ends.
std::vector<std::string> Lines(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
    const std::size_t size = end + (text.substr(end).starts_with("\r\n") ? 2 : 1);
    lines.emplace_back(text.substr(0, size));
    text.remove_prefix(std::min(size, text.size()));
  }
  return lines;
}

TEST(IniTextRandom, Edit_leaves_every_other_line_bit_for_bit) {
  RandomTexts random;
  for (int i = 0; i < 5000; ++i) {
    const std::string file = random.Text(kFileAlphabet, 40);
    const std::string edited = Edit(file, {random.Text("ab", 1), random.Text("ab", 1)}, "v", 1252);
    const auto before = Lines(file);
    const auto after = Lines(edited);
    // Equal from the front, then one or two lines written, then equal to the end; a last line
    // without an end may have got one.
    const auto same = [](const std::string& a, const std::string& b) {
      return a == b || a + "\r\n" == b || (a + "\n" == b && a.ends_with('\r'));
    };
    std::size_t front = 0;
    while (front < before.size() && front < after.size() && same(before[front], after[front])) {
      ++front;
    }
    std::size_t back = 0;
    while (back < before.size() - front && back < after.size() - front &&
           before[before.size() - 1 - back] == after[after.size() - 1 - back]) {
      ++back;
    }
    ASSERT_LE(before.size() - front - back, 1U) << testing::PrintToString(file) << edited;
    ASSERT_LE(after.size() - front - back, 2U) << testing::PrintToString(file) << edited;
  }
}

TEST(IniTextRandom, no_text_does_harm) {
  RandomTexts random;
  for (int i = 0; i < 5000; ++i) {
    const std::string section = random.Text(kNameAlphabet, 4);
    const std::string key = random.Text(kNameAlphabet, 4);
    const std::string value = random.Text(kFileAlphabet, 300);
    const int page = i % 2 == 0 ? 1252 : 932;
    for (const std::string& file : MarkedFiles(random.Text(kFileAlphabet, 60))) {
      ASSERT_LE(Read(file, {section, key}, value, page).size(), kIniResultLimit);
      ASSERT_GT(Edit(file, {section, key}, value, page).size(), 3U);
    }
  }
}

// Each would take minutes if a search were repeated for every line.
TEST(IniTextRandom, large_texts_take_time_in_proportion) {
  const std::size_t size = std::size_t{4} << 20;
  std::string lines = "[S]\n";
  while (lines.size() < size)
    lines += "Some key=some value\n";
  std::string brackets;
  while (brackets.size() < size)
    brackets += "[x]\x83]";
  const std::vector<std::string> files = {
      lines + "K=v",
      "[S]\r\n" + std::string(size, '\n') + "K=v",
      "[S]\r\n" + std::string(size, '\r') + "K=v",
      std::string(size, '[') + "\n[S]\nK=v",
      std::string(size, ' ') + "[S]\nK=v",
      brackets + "\n[S]\nK=v",
      "[S]\nA=" + std::string(size, ';') + "\nK=v",
  };
  const auto start = std::chrono::steady_clock::now();
  for (const std::string& file : files)
    EXPECT_EQ(Read(file, {"S", "K"}, "d", 932), "v");
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(60));
}

}  // namespace
}  // namespace vandpublic
