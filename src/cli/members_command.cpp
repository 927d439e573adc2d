// The member table as a list, as a page and as JSON.
#include "cli/members_command.h"

#include <vector>

#include "cli/json_text.h"
#include "cli/suggestion.h"
#include "members/member_examples.h"
#include "members/member_table.h"
#include "members/member_text.h"
#include "runtime/object.h"
#include "runtime/utf8.h"

namespace vandpublic {
namespace {

constexpr std::size_t kColumns = 79;

bool RaisesNumber(const MemberInfo& member) {
  return member.failure == FailureStyle::Raise || member.failure == FailureStyle::RaiseOwn;
}

// The slots with that name, or all of them.
std::vector<std::size_t> ChosenSlots(const CommandLine& line) {
  std::vector<std::size_t> slots;
  std::vector<std::string_view> names;
  for (std::size_t i = 0; i < kSlotCount; ++i) {
    names.push_back(MemberTable()[i].name);
    if (line.words.empty() || SameName(names.back(), line.words.front())) slots.push_back(i);
  }
  if (!slots.empty()) return slots;
  const std::string& name = line.words.front();
  throw UsageError("unknown member '" + Quoted(name) + "'" + DidYouMean(name, names));
}

std::string Page(std::size_t slot) {
  const MemberInfo& member = MemberTable()[slot];
  std::string page = MemberSignature(member) + "\n\nSlot " + std::to_string(slot + 1) +
                     ", dispatch id " + std::to_string(DispatchId(slot)) + ".\n";
  for (const std::string& paragraph : DescribeMember(member)) {
    page += "\n";
    for (const std::string& line : Wrap(paragraph, kColumns))
      page += line + "\n";
  }
  const auto examples = ExampleLines(member);
  if (!examples.empty()) page += "\n";
  for (const std::string& line : examples)
    page += "  " + line + "\n";
  return page;
}

Json DefaultJson(const DefaultValue& value) {
  switch (value.kind) {
    case DefaultValue::Kind::Number:
      return value.number;
    case DefaultValue::Kind::Truth:
      return value.number != 0;
    case DefaultValue::Kind::Text:
      return ToUtf8(value.text);
    default:
      return nullptr;
  }
}

Json ParameterJson(const Parameter& parameter) {
  Json json = JsonObject("name", std::string(parameter.name));
  json["type"] = std::string(TypeName(parameter.type));
  json["by_reference"] = parameter.by_reference;
  json["optional"] = parameter.IsOptional();
  if (parameter.IsOptional()) json["default"] = DefaultJson(parameter.default_value);
  return json;
}

Json ResultJson(const MemberInfo& member) {
  if (member.result == InterfaceType::None) return nullptr;
  return std::string(TypeName(member.result));
}

Json MemberJson(std::size_t slot) {
  const MemberInfo& member = MemberTable()[slot];
  Json json = JsonObject("slot", slot + 1);
  json["dispatch_id"] = DispatchId(slot);
  json["name"] = std::string(member.name);
  const bool method = member.kind == SlotKind::Method;
  json["use"] = method ? "member" : member.kind == SlotKind::PropertyGet ? "get" : "set";
  json["signature"] = MemberSignature(member);
  json["parameters"] = Json::array();
  for (const Parameter& parameter : member.parameters)
    json["parameters"].push_back(ParameterJson(parameter));
  json["result"] = ResultJson(member);
  json["error"] = RaisesNumber(member) ? Json(ErrorNumber(member.code)) : Json();
  json["messages"] = Json::array();
  for (const std::u16string_view message : member.messages)
    json["messages"].push_back(ToUtf8(message));
  json["description"] = DescribeMember(member);
  json["examples"] = Json::array();
  for (const MemberExample& example : ExamplesOf(member)) {
    json["examples"].push_back({{"command", example.command}, {"output", example.output}});
  }
  return json;
}

}  // namespace

CommandResult RunMembers(const CommandLine& line) {
  if (line.words.size() > 1) throw UsageError("one member at a time");
  const std::vector<std::size_t> slots = ChosenSlots(line);
  CommandResult result;
  if (line.Has("--json")) {
    Json list = Json::array();
    for (const std::size_t slot : slots)
      list.push_back(MemberJson(slot));
    result.output = list.dump(1) + "\n";
    return result;
  }
  for (const std::size_t slot : slots) {
    if (!line.words.empty() && !result.output.empty()) result.output += "\n";
    result.output += line.words.empty() ? MemberSignature(MemberTable()[slot]) + "\n" : Page(slot);
  }
  return result;
}

}  // namespace vandpublic
