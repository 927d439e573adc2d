#include "cli/command_line.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vandpublic {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

CommandLine Parse(std::vector<const char*> arguments) { return ParseCommandLine(arguments); }

std::string Problem(std::vector<const char*> arguments) {
  try {
    Parse(std::move(arguments));
    return "";
  } catch (const UsageError& error) {
    return error.what();
  }
}

TEST(CommandLine, words_stay_as_they_are) {
  const CommandLine line =
      Parse({"call", "IsHex", "[a,b]", "++", "pipe", "", " ", "-5", "-1.5", "-", "a=b"});
  EXPECT_EQ(line.command->name, "call");
  EXPECT_THAT(line.words,
              ElementsAre("IsHex", "[a,b]", "++", "pipe", "", " ", "-5", "-1.5", "-", "a=b"));
}

TEST(CommandLine, options_stand_anywhere) {
  const CommandLine line =
      Parse({"--codepage", "936", "call", "--json", "IsHex", "--log-path=/x=y", "1F", "--refs"});
  EXPECT_THAT(line.words, ElementsAre("IsHex", "1F"));
  EXPECT_EQ(line.Value("--codepage"), "936");
  EXPECT_EQ(line.Value("--log-path"), "/x=y");
  EXPECT_TRUE(line.Has("--json"));
  EXPECT_TRUE(line.Has("--refs"));
  EXPECT_EQ(line.Value("--log-name"), std::nullopt);
}

TEST(CommandLine, everything_behind_two_dashes_is_a_word) {
  EXPECT_THAT(Parse({"call", "IsHex", "--", "--json", "-x", "--"}).words,
              ElementsAre("IsHex", "--json", "-x", "--"));
  EXPECT_EQ(Parse({"--", "members"}).command->name, "members");
}

TEST(CommandLine, an_empty_one_has_no_command) {
  EXPECT_EQ(Parse({}).command, nullptr);
  EXPECT_TRUE(Parse({"-h"}).Has("--help"));
  EXPECT_THAT(Parse({"--version"}).words, IsEmpty());
}

TEST(CommandLine, explains_what_is_wrong) {
  EXPECT_EQ(Problem({"cal"}), "unknown command 'cal'; did you mean 'call'?");
  EXPECT_EQ(Problem({""}), "unknown command ''");
  EXPECT_EQ(Problem({"call", "--jsn"}), "unknown option '--jsn'; did you mean '--json'?");
  EXPECT_EQ(Problem({"call", "IsHex", "-x"}),
            "unknown option '-x'; write -- in front of values that start with '-'");
  EXPECT_EQ(Problem({"pipe", "--codepage"}), "option '--codepage' needs N");
  EXPECT_EQ(Problem({"call", "--json=1"}), "option '--json' takes no value");
  EXPECT_EQ(Problem({"call", "--json", "--json"}), "option '--json' is given twice");
  EXPECT_EQ(Problem({"pipe", "--refs"}), "option '--refs' does not go with pipe");
  EXPECT_EQ(Problem({"--refs"}), "option '--refs' does not go without a command");
}

TEST(CommandLine, an_option_has_one_meaning_in_all_commands) {
  std::map<std::string_view, bool> takes_value;
  for (const Command& command : Commands()) {
    for (const Option& option : command.options) {
      const auto known = takes_value.emplace(option.name, !option.value.empty()).first;
      EXPECT_EQ(known->second, !option.value.empty()) << option.name;
    }
  }
}

TEST(CommandLine, every_help_text_starts_with_examples_and_fits_the_page) {
  for (const Command& command : Commands()) {
    const std::string text = HelpText(command.name.empty() ? nullptr : &command);
    EXPECT_LT(text.find("Examples:"), text.find("Usage:")) << command.name;
    EXPECT_THAT(text, HasSubstr("Exit status:"));
    for (const Option& option : command.options)
      EXPECT_THAT(text, HasSubstr(std::string(option.name)));
    std::size_t start = 0;
    for (std::size_t end = 0; (end = text.find('\n', start)) != text.npos; start = end + 1)
      EXPECT_LE(end - start, 100u) << text.substr(start, end - start);
  }
}

}  // namespace
}  // namespace vandpublic
