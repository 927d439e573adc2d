#include "platform/posix/file_lookup.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "support/temp_folder.h"

namespace vandpublic {
namespace {

TEST(MatchesPattern, A_star_is_any_run_and_a_question_mark_any_character) {
  struct Case {
    const char* name;
    const char* pattern;
    bool matches;
  };
  constexpr Case kCases[] = {
      {"", "", true},
      {"", "*", true},
      {"", "***", true},
      {"", "?", false},
      {"a", "", false},
      {"abc", "abc", true},
      {"abc", "ABC", false},
      {"abc", "ab", false},
      {"ab", "abc", false},
      {"abc", "*", true},
      {"abc", "a*", true},
      {"abc", "*c", true},
      {"abc", "*b*", true},
      {"abc", "*d*", false},
      {"abc", "a?c", true},
      {"abc", "???", true},
      {"abc", "??", false},
      {"abc", "????", false},
      {"a.b.txt", "*.txt", true},
      {"a.txt.b", "*.txt", false},
      {"ababab", "*abab", true},
      {"ababac", "a*b*c", true},
      {"mississippi", "m*iss*ippi", true},
      {"mississippi", "m*iss*ipppi", false},
      {"abc", "*?", true},
      {"", "*?", false},
      {"a*b", "a*b", true},
      {"\xC3\xA9", "?", true},
      {"\xC3\xA9x", "?x", true},
      {"\xE4\xB8\xAD\xE6\x96\x87", "??", true},
      {"\xE4\xB8\xAD", "??", false},
      {"\xFF\xFE", "??", true},
      {"\x80", "?", true},
      {"x\xC3\xA9y", "*y", true},
  };
  for (const Case& one : kCases)
    EXPECT_EQ(MatchesPattern(one.name, one.pattern), one.matches) << one.name << " " << one.pattern;
}

TEST(MatchesPattern, Many_stars_cost_no_time) {
  const std::string name(5000, 'a');
  std::string pattern;
  for (int i = 0; i < 500; ++i)
    pattern += "*a";
  EXPECT_TRUE(MatchesPattern(name, pattern));
  EXPECT_FALSE(MatchesPattern(name, pattern + "b"));
}

class FileLookupTest : public testing::Test {
 protected:
  bool Finds(const std::string& name) const {
    return NormalFileExists(folder_.path().string() + "/" + name);
  }

  TempFolder folder_;
};

TEST_F(FileLookupTest, Only_regular_files_that_are_not_hidden_count) {
  namespace fs = std::filesystem;
  folder_.Write("file", "");
  folder_.Write(".hidden", "");
  fs::create_directory(folder_.path() / "sub");
  fs::create_symlink("file", folder_.path() / "link");
  fs::create_symlink("sub", folder_.path() / "folder-link");
  fs::create_symlink("nothing", folder_.path() / "dangling");
  ASSERT_EQ(mkfifo((folder_.path() / "pipe").c_str(), 0600), 0);
  EXPECT_TRUE(Finds("file"));
  EXPECT_TRUE(Finds("link"));
  for (const char* name : {".hidden", "sub", "folder-link", "dangling", "pipe", "missing",
                           "missing/file", "file/", "file/x", ".", ".."})
    EXPECT_FALSE(Finds(name)) << name;
  EXPECT_FALSE(NormalFileExists("/dev/null"));
}

TEST_F(FileLookupTest, Patterns_stand_in_the_last_part) {
  std::filesystem::create_directory(folder_.path() / "sub");
  folder_.Write("sub/file.txt", "");
  EXPECT_TRUE(Finds("sub/*.txt"));
  EXPECT_TRUE(Finds("sub/f?le.*"));
  EXPECT_TRUE(Finds("sub/"));
  EXPECT_FALSE(Finds("sub/*.doc"));
  EXPECT_FALSE(Finds("s*/file.txt"));
  EXPECT_FALSE(Finds("*")) << "only a folder is there";
  EXPECT_FALSE(Finds("missing/*"));
}

TEST_F(FileLookupTest, A_pattern_does_not_find_hidden_files) {
  folder_.Write(".hidden", "");
  EXPECT_FALSE(Finds("*"));
  EXPECT_FALSE(Finds(".*"));
  EXPECT_FALSE(Finds(""));
  folder_.Write("shown", "");
  EXPECT_TRUE(Finds(""));
}

TEST_F(FileLookupTest, A_name_without_a_folder_is_looked_up_in_the_current_one) {
  const std::filesystem::path before = std::filesystem::current_path();
  folder_.Write("only-here", "");
  std::filesystem::current_path(folder_.path());
  const bool by_name = NormalFileExists("only-here");
  const bool by_pattern = NormalFileExists("only-*");
  std::filesystem::current_path(before);
  EXPECT_TRUE(by_name);
  EXPECT_TRUE(by_pattern);
}

}  // namespace
}  // namespace vandpublic
