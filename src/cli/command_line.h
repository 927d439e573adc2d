// The tool's command line, taken apart: a command, options, and words that are data.
//
// Words are the user's texts and stay exactly as they are, which is why no general parser reads
// them: a value may well look like "[a,b]", "++" or the name of a command.
#ifndef VANDPUBLIC_CLI_COMMAND_LINE_H
#define VANDPUBLIC_CLI_COMMAND_LINE_H

#include <map>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace vandpublic {

// A command line that cannot be carried out; exit status 2.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct Option {
  std::string_view name;   // "--codepage"
  std::string_view value;  // what stands for its value in the help text; empty: it takes none
  std::string_view help;
  bool repeats = false;  // may be given more than once
};

struct Command {
  std::string_view name;     // "call"; empty for the tool itself
  std::string_view summary;  // one line
  std::string_view usage;    // what follows the tool's name
  std::string_view examples;
  std::string_view notes;
  std::span<const Option> options;
};

// What this system's tool has. The first is the tool itself, with the options that go with every
// command.
std::span<const Command> Commands();

struct CommandLine {
  const Command* command = nullptr;  // null when none was named
  std::multimap<std::string_view, std::string> options;
  std::vector<std::string> words;

  bool Has(std::string_view option) const { return options.contains(option); }
  std::optional<std::string> Value(std::string_view option) const;
  // All values of an option that may be repeated, in their order.
  std::vector<std::string> Values(std::string_view option) const;
};

// Takes the arguments behind the program's name apart. Options may stand anywhere, as "--name
// value" or "--name=value"; everything behind "--" is a word, and so are "-" and negative numbers.
// --help, --version, --codepage and --registry go with every command. Raises UsageError.
CommandLine ParseCommandLine(std::span<const char* const> arguments);

// The help text of a command, or of the tool when it is null.
std::string HelpText(const Command* command);

// A 32-bit number in decimal, or nothing.
std::optional<int> ParseDecimal(std::string_view text);

}  // namespace vandpublic

#endif
