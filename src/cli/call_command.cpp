// A command line turned into a request of the pipe, and the reply into text.
#include "cli/call_command.h"

#include <optional>

#include "cli/pipe_session.h"
#include "cli/suggestion.h"
#include "cli/text_values.h"
#include "invoke/late_call.h"
#include "members/member_table.h"

namespace vandpublic {
namespace {

// A method, or a property to read. Writing one would be lost when the tool ends.
const MemberInfo& FindMember(const std::string& name) {
  for (const SlotKind kind : {SlotKind::Method, SlotKind::PropertyGet}) {
    if (const auto slot = FindSlot(name, kind)) return MemberTable()[*slot];
  }
  std::vector<std::string_view> names;
  for (const MemberInfo& member : MemberTable())
    names.push_back(member.name);
  throw UsageError("unknown member '" + Quoted(name) + "'" + DidYouMean(name, names));
}

// The words behind the member's name, each with the parameter it is for.
class ArgumentWords {
 public:
  explicit ArgumentWords(const MemberInfo& member) : member_(member) {}

  void Add(const std::string& word) {
    const std::size_t equals = word.find('=');
    const auto named = equals == word.npos
                           ? std::optional<std::size_t>()
                           : FindParameter(member_, std::string_view(word).substr(0, equals));
    const std::size_t index = named ? *named : NextFree();
    if (index >= member_.parameters.size()) {
      throw UsageError("too many arguments: '" + std::string(member_.name) + "' takes " +
                       std::to_string(member_.parameters.size()));
    }
    const Parameter& parameter = member_.parameters[index];
    const std::string name(parameter.name);
    if (arguments_.contains(name)) throw UsageError("argument '" + name + "' is given twice");
    try {
      const std::string text = reader_.Read(named ? word.substr(equals + 1) : word);
      arguments_[name] = JsonFromWord(text, parameter.type);
    } catch (const UsageError& misfit) {
      throw UsageError("argument '" + name + "': " + misfit.what());
    }
  }

  Json Take() { return std::move(arguments_); }

 private:
  // The first parameter that has no value yet.
  std::size_t NextFree() const {
    std::size_t index = 0;
    while (index < member_.parameters.size() &&
           arguments_.contains(std::string(member_.parameters[index].name)))
      ++index;
    return index;
  }

  const MemberInfo& member_;
  WordReader reader_;
  Json arguments_ = Json::object();
};

// A request that only the command line can have spoilt.
Json Ask(PipeSession& session, const Json& request) {
  Json reply = session.Handle(request);
  if (!reply.contains("protocol_error")) return reply;
  throw UsageError(reply["protocol_error"].get<std::string>());
}

Json DebugModeFromWord(const std::string& word) {
  return JsonFromWord(word, InterfaceType::DebugMode);
}

void ApplySettings(PipeSession& session, const CommandLine& line) {
  const auto mode = line.Value("--debug-mode");
  if (const auto folder = line.Value("--app-path")) {
    Ask(session, {{"member", "Init"}, {"args", Json::array({*folder})}});
  }
  if (mode) Ask(session, {{"set", "DebugMode"}, {"value", DebugModeFromWord(*mode)}});
  if (const auto folder = line.Value("--log-path")) {
    Ask(session, {{"set", "LogFilePath"}, {"value", *folder}});
  }
  if (const auto name = line.Value("--log-name")) {
    Ask(session, {{"set", "LogFileName"}, {"value", *name}});
  }
}

// The members' own numbers as the reference lists them, plain faults in decimal.
std::string ErrorLine(const Json& error) {
  const bool own = error["number"].get<std::int64_t>() < 0;
  return (own ? error["hex"].get<std::string>() : error["number"].dump()) + " " +
         TextFromJson(error["source"]) + " " + TextFromJson(error["description"]) + "\n";
}

std::string ReferenceLines(const Json& references) {
  std::string lines;
  for (const auto& [name, value] : references.items())
    lines += name + " = " + TextFromJson(value) + "\n";
  return lines;
}

}  // namespace

CommandResult RunCall(const CommandLine& line, std::shared_ptr<const Platform> platform) {
  if (line.words.empty()) throw UsageError("the member's name is missing");
  const MemberInfo& member = FindMember(line.words.front());
  if (!member.available) {
    throw UsageError("'" + std::string(member.name) + "' is not available in this build");
  }
  ArgumentWords words(member);
  for (std::size_t i = 1; i < line.words.size(); ++i)
    words.Add(line.words[i]);

  PipeSession session(std::move(platform));
  ApplySettings(session, line);
  const char* const verb = member.kind == SlotKind::Method ? "member" : "get";
  const Json reply = Ask(session, {{verb, std::string(member.name)}, {"args", words.Take()}});
  const bool failed = reply.contains("error");

  CommandResult result{failed ? 1 : 0};
  if (failed) result.errors = ErrorLine(reply["error"]);
  if (line.Has("--json")) {
    result.output = reply.dump() + "\n";
    return result;
  }
  const bool has_result = !failed && member.result != InterfaceType::None;
  if (has_result) result.output = TextFromJson(reply["result"]) + "\n";
  const bool show_references = line.Has("--refs") && reply.contains("refs");
  if (show_references) result.output += ReferenceLines(reply["refs"]);
  return result;
}

}  // namespace vandpublic
