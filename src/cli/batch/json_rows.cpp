// JSON lines: each row is an object, and so is its outcome.
#include <algorithm>

#include "cli/batch/csv.h"
#include "cli/batch/row_format.h"

namespace vandpublic {
namespace {

void AddLine(const Json& row, std::string& output) {
  output += row.dump(-1, ' ', false, Json::error_handler_t::replace);
  output += '\n';
}

}  // namespace

void JsonRows::AddUnread(const std::string& error, std::string& output) const {
  AddLine(JsonObject(kErrorColumn, error), output);
}

std::string JsonRows::Process(std::string_view record, RowCall& call, std::string& output) const {
  Json row = Json::object();
  std::string error;
  call.Begin();
  try {
    const Json parsed = ParseJson(WithoutLineEnd(record));
    if (!parsed.is_object()) throw ProtocolError("the row is no JSON object");
    if (plan_.keeps_input) row = parsed;
    for (std::size_t i = 0; i < plan_.inputs.size(); ++i) {
      const auto found = parsed.find(plan_.inputs[i].column);
      if (found == parsed.end()) {
        throw ProtocolError("the row has no '" + plan_.inputs[i].column + "'");
      }
      call.SetJson(i, *found);
    }
    error = call.Run();
  } catch (const ProtocolError& misfit) {
    error = misfit.what();
  }
  if (error.empty()) {
    row.erase(kErrorColumn);
    if (plan_.WritesResult()) row[plan_.result_column] = call.ResultJson();
    for (std::size_t i = 0; i < plan_.outputs.size(); ++i)
      row[plan_.outputs[i].column] = call.OutputJson(i);
  } else {
    DropResults(row);
    row[std::string(kErrorColumn)] = error;
  }
  AddLine(row, output);
  return error;
}

// What an earlier run has left in the row is no result of this one.
void JsonRows::DropResults(Json& row) const {
  const auto drop = [&](const std::string& column) {
    const auto is_input = [&](const ColumnUse& use) { return use.column == column; };
    if (std::none_of(plan_.inputs.begin(), plan_.inputs.end(), is_input)) row.erase(column);
  };
  if (plan_.WritesResult()) drop(plan_.result_column);
  for (const ColumnUse& use : plan_.outputs)
    drop(use.column);
}

}  // namespace vandpublic
