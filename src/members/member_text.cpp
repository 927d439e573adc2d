// Words and signatures from the member table.
#include "members/member_text.h"

#include <cstdio>

#include "members/member_examples.h"
#include "runtime/utf8.h"

namespace vandpublic {
namespace {

std::string RaisesText(const MemberInfo& member) {
  std::string text;
  if (member.failure == FailureStyle::Raise || member.failure == FailureStyle::RaiseOwn) {
    text = "Raises " + HexNumber(ErrorNumber(member.code)) + " (clsCommon." +
           std::string(member.LogName()) + "): ";
  } else if (!member.raises.empty()) {
    text = "Raises: ";
  }
  text += member.raises.empty() ? "" : std::string(member.raises);
  if (text.ends_with(": ")) text += "only for want of memory.";
  return text;
}

std::string MessagesText(const MemberInfo& member) {
  std::string text;
  for (const std::u16string_view message : member.messages) {
    text += (text.empty() ? "Messages: \"" : ", \"") + ToUtf8(message) + "\"";
  }
  return text.empty() ? text : text + ".";
}

}  // namespace

std::string HexNumber(std::int32_t number) {
  char buffer[16];
  std::snprintf(buffer, sizeof buffer, "0x%08X", static_cast<unsigned>(number));
  return buffer;
}

std::string DefaultText(const Parameter& parameter) {
  const DefaultValue& value = parameter.default_value;
  if (value.kind == DefaultValue::Kind::Truth) return value.number != 0 ? "True" : "False";
  if (value.kind == DefaultValue::Kind::Text) return "\"" + ToUtf8(value.text) + "\"";
  if (value.kind != DefaultValue::Kind::Number) return "";
  if (const Enumeration* enumeration = FindEnumeration(parameter.type)) {
    for (const EnumerationValue& member : enumeration->values) {
      if (member.value == value.number) return std::string(member.name);
    }
  }
  return std::to_string(value.number);
}

std::string MemberSignature(const MemberInfo& member) {
  std::string text = std::string(member.name);
  if (member.kind == SlotKind::PropertyGet)
    return text + " As " + std::string(TypeName(member.result));
  text += "(";
  for (const Parameter& parameter : member.parameters) {
    if (&parameter != member.parameters.begin()) text += ", ";
    std::string one = std::string(parameter.name) + " As " + std::string(TypeName(parameter.type));
    if (parameter.by_reference) one += " ByRef";
    const std::string value = DefaultText(parameter);
    if (!value.empty()) one += " = " + value;
    text += parameter.IsOptional() ? "[" + one + "]" : one;
  }
  text += ")";
  if (member.result != InterfaceType::None) text += " As " + std::string(TypeName(member.result));
  return text;
}

std::vector<std::string> DescribeMember(const MemberInfo& member) {
  std::vector<std::string> paragraphs{std::string(member.does)};
  for (std::string paragraph : {RaisesText(member), MessagesText(member)}) {
    if (!paragraph.empty()) paragraphs.push_back(std::move(paragraph));
  }
  if (!member.leaves.empty()) {
    paragraphs.push_back("After a failure: " + std::string(member.leaves));
  }
  return paragraphs;
}

std::vector<std::string> ExampleLines(const MemberInfo& member) {
  std::vector<std::string> lines;
  for (const MemberExample& example : ExamplesOf(member)) {
    lines.push_back("$ vandpublic call " + std::string(example.member) + " " +
                    std::string(example.command));
    for (std::string_view rest = example.output; !rest.empty();) {
      const std::size_t end = rest.find('\n');
      lines.emplace_back(rest.substr(0, end));
      rest.remove_prefix(end + 1);
    }
  }
  return lines;
}

std::vector<std::string> Wrap(const std::string& text, std::size_t columns) {
  std::vector<std::string> lines;
  std::size_t start = 0;
  while (text.size() - start > columns) {
    std::size_t cut = text.rfind(' ', start + columns);
    if (cut == std::string::npos || cut <= start) cut = text.find(' ', start + columns);
    if (cut == std::string::npos) break;
    lines.push_back(text.substr(start, cut - start));
    start = cut + 1;
  }
  lines.push_back(text.substr(start));
  return lines;
}

}  // namespace vandpublic
