// A command line turned into a request of the pipe, and the reply into text.
#include "cli/call_command.h"

#include "cli/argument_words.h"
#include "cli/component_settings.h"
#include "cli/pipe_session.h"
#include "cli/text_values.h"
#include "members/member_table.h"

namespace vandpublic {
namespace {

// A request that only the command line can have spoilt.
Json Ask(PipeSession& session, const Json& request) {
  Json reply = session.Handle(request);
  if (!reply.contains("protocol_error")) return reply;
  throw UsageError(reply["protocol_error"].get<std::string>());
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
  const MemberInfo& member = MemberTable()[FindCallableSlot(line.words.front())];
  ArgumentWords words(member);
  for (std::size_t i = 1; i < line.words.size(); ++i)
    words.Add(line.words[i]);

  PipeSession session(platform, [&] {
    auto component = std::make_unique<LocalComponent>(platform);
    ApplySettings(component->object(), line);
    return component;
  });
  const char* const verb = member.kind == SlotKind::Method ? "member" : "get";
  const Json reply = Ask(session, {{verb, std::string(member.name)}, {"args", words.Take()}});
  const bool failed = reply.contains("error");

  CommandResult result{failed ? 1 : 0};
  if (failed) result.errors = TextFromError(reply["error"]) + "\n";
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
