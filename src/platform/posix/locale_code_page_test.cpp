#include <gtest/gtest.h>
#include <locale.h>
#include <stdlib.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>

#include "platform/posix/code_pages.h"

namespace vandpublic {
namespace {

TEST(CodePageOfCharset, knows_the_charsets_that_are_a_windows_page) {
  struct Charset {
    const char* name;
    int page;
  };
  constexpr Charset kCharsets[] = {
      {"GBK", 936},     {"GB2312", 936},        {"CP936", 936},         {"BIG5", 950},
      {"CP950", 950},   {"SHIFT_JIS", 932},     {"CP932", 932},         {"WINDOWS-31J", 932},
      {"EUC-KR", 949},  {"UHC", 949},           {"CP949", 949},         {"TIS-620", 874},
      {"CP874", 874},   {"CP1250", 1250},       {"CP1251", 1251},       {"CP1255", 1255},
      {"CP1258", 1258}, {"WINDOWS-1252", 1252}, {"windows-1256", 1256}, {"gbk", 936},
  };
  for (const Charset& charset : kCharsets) {
    EXPECT_EQ(CodePageOfCharset(charset.name), charset.page) << charset.name;
  }
}

TEST(CodePageOfCharset, is_1252_for_everything_else) {
  for (const char* const name :
       {"", "UTF-8", "ANSI_X3.4-1968", "ISO-8859-2", "GB18030", "EUC-JP", "CP", "CP437", "CP1259",
        "CP1251X", "CP-1251", "CP99999999999", "WINDOWS-", "WINDOWS-65001", "XCP1251"}) {
    EXPECT_EQ(CodePageOfCharset(name), 1252) << name;
  }
}

// Sets the variables that name a locale and puts the old ones back.
class LocaleEnvironment : public ::testing::Test {
 protected:
  LocaleEnvironment() {
    for (std::size_t i = 0; i < kNames.size(); ++i) {
      if (const char* value = std::getenv(kNames[i])) old_[i] = value;
      unsetenv(kNames[i]);
    }
  }
  ~LocaleEnvironment() override {
    for (std::size_t i = 0; i < kNames.size(); ++i) {
      unsetenv(kNames[i]);
      if (old_[i]) setenv(kNames[i], old_[i]->c_str(), 1);
    }
  }

 private:
  static constexpr std::array kNames = {"LC_ALL", "LC_CTYPE", "LANG", "LOCPATH"};
  std::array<std::optional<std::string>, kNames.size()> old_;
};

TEST_F(LocaleEnvironment, LocaleCodePage_is_1252_without_a_locale) {
  EXPECT_EQ(LocaleCodePage(), 1252);
  setenv("LC_ALL", "C.UTF-8", 1);
  EXPECT_EQ(LocaleCodePage(), 1252);
  setenv("LC_ALL", "xx_XX.no-such-locale", 1);
  EXPECT_EQ(LocaleCodePage(), 1252);
}

// Ends the process with 0 when the page is found and the host's own locale is left alone.
[[noreturn]] void ExitWithWhetherFound(int page) {
  const bool found = LocaleCodePage() == page;
  const bool untouched =
      std::string(setlocale(LC_ALL, nullptr)) == "C" && uselocale(locale_t{}) == LC_GLOBAL_LOCALE;
  _exit(found && untouched ? 0 : 1);
}

// Each question in a process of its own: newlocale never frees its copy of LOCPATH.
TEST_F(LocaleEnvironment, LocaleCodePage_follows_the_installed_locale) {
  if (std::system("command -v localedef >/dev/null") != 0) GTEST_SKIP() << "no localedef here";
  std::string folder = (std::filesystem::temp_directory_path() / "locales-XXXXXX").string();
  ASSERT_NE(mkdtemp(folder.data()), nullptr);
  // localedef exits with 1 when it only warns, so its result is looked at instead.
  const auto built = [&](const std::string& charset) {
    const std::string place = folder + "/" + charset;
    const std::string command = "localedef -i POSIX -c -f " + charset + " '" + place + "'";
    return std::system((command + " >/dev/null 2>&1").c_str()) != -1 &&
           std::filesystem::exists(place + "/LC_CTYPE");
  };
  const bool all_built = built("GBK") && built("CP1251");
  if (all_built) {
    setenv("LOCPATH", folder.c_str(), 1);
    setenv("LANG", "GBK", 1);
    EXPECT_EXIT(ExitWithWhetherFound(936), ::testing::ExitedWithCode(0), "");
    setenv("LC_CTYPE", "CP1251", 1);
    EXPECT_EXIT(ExitWithWhetherFound(1251), ::testing::ExitedWithCode(0), "") << "before LANG";
    setenv("LC_ALL", "C", 1);
    EXPECT_EXIT(ExitWithWhetherFound(1252), ::testing::ExitedWithCode(0), "") << "before both";
  }
  std::filesystem::remove_all(folder);
  if (!all_built) GTEST_SKIP() << "localedef lacks its sources (Debian: package locales)";
}

}  // namespace
}  // namespace vandpublic
