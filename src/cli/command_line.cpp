// Options against words.
#include "cli/command_line.h"

#include <algorithm>
#include <charconv>

#include "cli/suggestion.h"

namespace vandpublic {
namespace {

// "-" is a word, as a name of standard input, and so is a negative number.
bool LooksLikeOption(std::string_view text) {
  constexpr std::string_view kNumberStart = ".0123456789";
  return text.size() > 1 && text[0] == '-' && kNumberStart.find(text[1]) == kNumberStart.npos;
}

const Command& FindCommand(std::string_view name) {
  std::vector<std::string_view> names;
  for (const Command& command : Commands().subspan(1)) {
    if (command.name == name) return command;
    names.push_back(command.name);
  }
  throw UsageError("unknown command '" + std::string(name) + "'" + DidYouMean(name, names));
}

bool Owns(const Command& command, std::string_view option) {
  return std::any_of(command.options.begin(), command.options.end(),
                     [option](const Option& own) { return own.name == option; });
}

// An option means the same in every command that has it, so it can be read before the command is
// known.
const Option& FindOption(std::string_view name) {
  if (name == "-h") name = "--help";
  std::vector<std::string_view> names;
  for (const Command& command : Commands()) {
    for (const Option& option : command.options) {
      if (option.name == name) return option;
      names.push_back(option.name);
    }
  }
  const std::string advice = name.starts_with("--")
                                 ? DidYouMean(name, names)
                                 : "; write -- in front of values that start with '-'";
  throw UsageError("unknown option '" + std::string(name) + "'" + advice);
}

class Parser {
 public:
  explicit Parser(std::span<const char* const> arguments) : rest_(arguments) {}

  CommandLine Parse() {
    while (!rest_.empty()) {
      const std::string_view text = Take();
      if (words_only_ || !LooksLikeOption(text)) {
        TakeWord(text);
      } else if (text == "--") {
        words_only_ = true;
      } else {
        TakeOption(text);
      }
    }
    CheckOwners();
    return std::move(line_);
  }

 private:
  std::string_view Take() {
    const std::string_view text = rest_.front();
    rest_ = rest_.subspan(1);
    return text;
  }

  void TakeWord(std::string_view text) {
    if (line_.command == nullptr) {
      line_.command = &FindCommand(text);
    } else {
      line_.words.emplace_back(text);
    }
  }

  void TakeOption(std::string_view text) {
    const std::size_t equals = text.find('=');
    const Option& option = FindOption(text.substr(0, equals));
    const std::string name(option.name);
    if (option.value.empty() && equals != text.npos) {
      throw UsageError("option '" + name + "' takes no value");
    }
    std::string value;
    if (!option.value.empty()) {
      const bool missing = equals == text.npos && rest_.empty();
      if (missing) throw UsageError("option '" + name + "' needs " + std::string(option.value));
      value = equals == text.npos ? Take() : text.substr(equals + 1);
    }
    if (!option.repeats && line_.Has(option.name)) {
      throw UsageError("option '" + name + "' is given twice");
    }
    line_.options.emplace(option.name, std::move(value));
  }

  void CheckOwners() const {
    const Command& tool = Commands().front();
    for (const auto& [name, value] : line_.options) {
      if (Owns(tool, name) || (line_.command != nullptr && Owns(*line_.command, name))) continue;
      const std::string where = line_.command == nullptr
                                    ? "without a command"
                                    : "with " + std::string(line_.command->name);
      throw UsageError("option '" + std::string(name) + "' does not go " + where);
    }
  }

  std::span<const char* const> rest_;
  CommandLine line_;
  bool words_only_ = false;
};

std::string OptionsText(std::span<const Option> options) {
  constexpr std::size_t kHelpColumn = 22;
  std::string text;
  for (const Option& option : options) {
    std::string head = "  " + std::string(option.name);
    if (!option.value.empty()) head += " " + std::string(option.value);
    head.resize(std::max(head.size() + 1, kHelpColumn), ' ');
    text += head + std::string(option.help) + "\n";
  }
  return text;
}

std::string CommandsText() {
  constexpr std::size_t kSummaryColumn = 12;
  std::string text;
  for (const Command& command : Commands().subspan(1)) {
    std::string head = "  " + std::string(command.name);
    head.resize(kSummaryColumn, ' ');
    text += head + std::string(command.summary) + "\n";
  }
  return text;
}

}  // namespace

std::optional<std::string> CommandLine::Value(std::string_view option) const {
  const auto found = options.find(option);
  if (found == options.end()) return std::nullopt;
  return found->second;
}

std::vector<std::string> CommandLine::Values(std::string_view option) const {
  std::vector<std::string> values;
  const auto [first, last] = options.equal_range(option);
  for (auto found = first; found != last; ++found)
    values.push_back(found->second);
  return values;
}

CommandLine ParseCommandLine(std::span<const char* const> arguments) {
  return Parser(arguments).Parse();
}

std::string HelpText(const Command* command) {
  const Command& tool = Commands().front();
  const Command& shown = command == nullptr ? tool : *command;
  std::string text = std::string(shown.summary) + "\n\nExamples:\n" + std::string(shown.examples) +
                     "\nUsage: vandpublic " + std::string(shown.usage) + "\n\n" +
                     std::string(shown.notes);
  if (command == nullptr) text += "Commands:\n" + CommandsText() + "\n";
  text += "Options:\n";
  if (command != nullptr) text += OptionsText(command->options);
  return text + OptionsText(tool.options);
}

std::optional<int> ParseDecimal(std::string_view text) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
  return number;
}

}  // namespace vandpublic
