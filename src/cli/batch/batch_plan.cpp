// A plan from a command line.
#include "cli/batch/batch_plan.h"

#include <algorithm>

#include "cli/argument_words.h"
#include "cli/call_arguments.h"
#include "cli/json_values.h"
#include "cli/suggestion.h"
#include "invoke/late_call.h"

namespace vandpublic {
namespace {

std::size_t ParameterIndex(const MemberInfo& member, const std::string& name) {
  if (const auto index = FindParameter(member, name)) return *index;
  throw UsageError("'" + std::string(member.name) + "' has no parameter '" + name + "'" +
                   DidYouMean(name, ParameterNames(member)));
}

// "PARAMETER=COLUMN", or a parameter alone whose column has its name.
ColumnUse ReadColumnUse(const MemberInfo& member, const std::string& text) {
  const std::size_t equals = text.find('=');
  const std::string name = text.substr(0, equals);
  const std::size_t index = ParameterIndex(member, name);
  return {index, equals == text.npos ? name : text.substr(equals + 1)};
}

bool IsObject(InterfaceType type) {
  return type == InterfaceType::Connection || type == InterfaceType::Recordset ||
         type == InterfaceType::Field;
}

// The words behind the member's name.
void ReadFixed(const CommandLine& line, BatchPlan& plan) {
  const MemberInfo& member = plan.Member();
  ArgumentWords words(member);
  for (std::size_t i = 1; i < line.words.size(); ++i)
    words.Add(line.words[i]);
  const bool rows_are_gone =
      words.HaveReadStandardInput() && line.Value("--input").value_or("-") == "-";
  if (rows_are_gone) throw UsageError("standard input gives the rows; name a file for the value");
  const Json arguments = words.Take();
  for (const auto& [name, json] : arguments.items()) {
    const std::size_t index = ParameterIndex(member, name);
    try {
      plan.fixed[index] = DecodeValue(json, member.parameters[index].type);
    } catch (const ProtocolError& misfit) {
      throw UsageError("argument '" + name + "': " + misfit.what());
    }
  }
}

void CheckArguments(const BatchPlan& plan) {
  const MemberInfo& member = plan.Member();
  for (std::size_t p = 0; p < member.parameters.size(); ++p) {
    const std::string name(member.parameters[p].name);
    const auto count = std::count_if(plan.inputs.begin(), plan.inputs.end(),
                                     [p](const ColumnUse& use) { return use.parameter == p; });
    if (count + (plan.fixed[p] ? 1 : 0) > 1) {
      throw UsageError("argument '" + name + "' is given twice");
    }
    if (IsObject(member.parameters[p].type)) {
      throw UsageError("'" + std::string(member.name) + "' works on objects, which need the pipe");
    }
    const bool given = count > 0 || plan.fixed[p] || member.parameters[p].IsOptional();
    if (!given) throw UsageError("argument '" + name + "' has neither a value nor a column");
  }
}

void ReadColumns(const CommandLine& line, BatchPlan& plan) {
  const MemberInfo& member = plan.Member();
  for (const std::string& text : line.Values("--column"))
    plan.inputs.push_back(ReadColumnUse(member, text));
  if (plan.inputs.empty()) throw UsageError("batch needs a column: --column PARAMETER=COLUMN");
  for (const std::string& text : line.Values("--reference")) {
    plan.outputs.push_back(ReadColumnUse(member, text));
    const Parameter& parameter = member.parameters[plan.outputs.back().parameter];
    if (!parameter.by_reference) {
      throw UsageError("'" + std::string(parameter.name) + "' is not by reference");
    }
  }
}

RecordFormat ReadFormat(const CommandLine& line) {
  const std::string format = line.Value("--format").value_or("csv");
  if (format == "jsonl") return {std::nullopt};
  if (format != "csv")
    throw UsageError("there are the formats csv and jsonl, not '" + format + "'");
  const std::string separator = line.Value("--separator").value_or(",");
  if (separator == "\\t") return {'\t'};
  const bool usable =
      separator.size() == 1 && separator != "\"" && separator != "\n" && separator != "\r";
  if (!usable) throw UsageError("a separator is one character, or \\t");
  return {separator.front()};
}

}  // namespace

BatchPlan ReadBatchPlan(const CommandLine& line) {
  if (line.words.empty()) throw UsageError("the member's name is missing");
  BatchPlan plan;
  plan.slot = FindCallableSlot(line.words.front());
  if (plan.Member().kind != SlotKind::Method) throw UsageError("a property has no rows");
  ReadColumns(line, plan);
  ReadFixed(line, plan);
  CheckArguments(plan);
  plan.result_column = line.Value("--result").value_or(plan.result_column);
  plan.format = ReadFormat(line);
  plan.has_header = plan.format.separator && !line.Has("--no-header");
  plan.keeps_input = !line.Has("--drop-input");
  return plan;
}

}  // namespace vandpublic
