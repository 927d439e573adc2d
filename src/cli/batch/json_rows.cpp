// JSON lines: each row is an object, and so is its outcome.
#include <algorithm>

#include "cli/batch/csv.h"
#include "cli/batch/row_format.h"

namespace vandpublic {
namespace {

std::string TextOf(const Json& value) {
  return value.dump(-1, ' ', false, Json::error_handler_t::replace);
}

}  // namespace

void JsonRows::AddUnread(const std::string& error, std::string& output) const {
  output += TextOf(JsonObject(kErrorColumn, error)) + '\n';
}

std::string JsonRows::Process(std::string_view record, RowCall& call, std::string& output) const {
  const std::string_view text = WithoutLineEnd(record);
  Json row = Json::object();
  std::string error;
  call.Begin();
  try {
    Json parsed = ParseJson(text);
    if (!parsed.is_object()) throw ProtocolError("the row is no JSON object");
    row = std::move(parsed);
    for (std::size_t i = 0; i < plan_.inputs.size(); ++i) {
      const auto found = row.find(plan_.inputs[i].column);
      if (found == row.end()) {
        throw ProtocolError("the row has no '" + plan_.inputs[i].column + "'");
      }
      call.SetJson(i, *found);
    }
    error = call.Run();
  } catch (const ProtocolError& misfit) {
    error = misfit.what();
  }
  if (!plan_.keeps_input) row = Json::object();
  if (error.empty()) {
    AddRow(text, row, Results(call), output);
  } else {
    AddRow(text, row, JsonObject(kErrorColumn, error), output);
  }
  return error;
}

Json JsonRows::Results(const RowCall& call) const {
  Json results = Json::object();
  if (plan_.WritesResult()) results[plan_.result_column] = call.ResultJson();
  for (std::size_t i = 0; i < plan_.outputs.size(); ++i)
    results[plan_.outputs[i].column] = call.OutputJson(i);
  return results;
}

// What the row keeps stands as it is written: to read a number and write it again can cost digits.
void JsonRows::AddRow(std::string_view text, const Json& row, const Json& results,
                      std::string& output) const {
  std::string line;
  const auto add = [&line](std::string_view key, std::string_view value) {
    line += line.empty() ? '{' : ',';
    line.append(key).append(1, ':').append(value);
  };
  if (!row.empty()) {
    const std::vector<WrittenMember> members = WrittenMembers(text);
    auto written = members.begin();
    for (const auto& [key, value] : row.items()) {
      const WrittenMember& member = *written++;
      if (results.contains(key)) {
        add(member.key, TextOf(results[key]));
      } else if (!IsOfEarlierRun(key, results)) {
        add(member.key, member.value);
      }
    }
  }
  for (const auto& [key, value] : results.items()) {
    if (!row.contains(key)) add(TextOf(key), TextOf(value));
  }
  output += line.empty() ? "{" : line;
  output += "}\n";
}

// An error has no place beside results. Results have none beside an error, but for those that are
// inputs as well.
bool JsonRows::IsOfEarlierRun(const std::string& key, const Json& results) const {
  if (!results.contains(kErrorColumn)) return key == kErrorColumn;
  const auto is_key = [&key](const ColumnUse& use) { return use.column == key; };
  if (std::any_of(plan_.inputs.begin(), plan_.inputs.end(), is_key)) return false;
  const bool is_result = plan_.WritesResult() && plan_.result_column == key;
  return is_result || std::any_of(plan_.outputs.begin(), plan_.outputs.end(), is_key);
}

}  // namespace vandpublic
