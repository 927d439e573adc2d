// CSV: what the row brought, the result, the by-reference values, the error.
#include <algorithm>

#include "cli/batch/csv.h"
#include "cli/batch/row_format.h"
#include "cli/suggestion.h"

namespace vandpublic {
namespace {

// Where the column is in a header, or its number where there is none.
std::size_t ColumnPosition(const std::string& column, const std::vector<std::string>& names,
                           bool has_header) {
  if (!has_header) {
    const auto number = ParseDecimal(column);
    if (number && *number > 0) return static_cast<std::size_t>(*number - 1);
    throw UsageError("without a header, columns are numbers from 1, not '" + column + "'");
  }
  const auto found = std::find(names.begin(), names.end(), column);
  if (found != names.end()) return static_cast<std::size_t>(found - names.begin());
  const std::vector<std::string_view> known(names.begin(), names.end());
  throw UsageError("the input has no column '" + column + "'" + DidYouMean(column, known));
}

}  // namespace

CsvRows::CsvRows(const BatchPlan& plan, std::string_view header)
    : plan_(plan), separator_(*plan.format.separator) {
  std::vector<std::string> names;
  if (plan.has_header) {
    std::vector<std::string_view> fields;
    SplitCsvRecord(header, separator_, fields);
    for (const std::string_view field : fields)
      names.push_back(CsvFieldText(field));
    width_ = names.size();
  }
  for (const ColumnUse& use : plan.inputs) {
    positions_.push_back(ColumnPosition(use.column, names, plan.has_header));
    least_width_ = std::max(least_width_, positions_.back() + 1);
  }
  if (!plan.has_header) return;
  if (plan.keeps_input) output_header_ = WithoutLineEnd(header);
  const auto add = [this](std::string_view name) {
    if (!output_header_.empty()) output_header_ += separator_;
    AppendCsvField(output_header_, name, separator_);
  };
  if (plan.WritesResult()) add(plan.result_column);
  for (const ColumnUse& use : plan.outputs)
    add(use.column);
  add(kErrorColumn);
  output_header_ += '\n';
}

// The columns behind those of the input. Without a call, or after one that failed, they are empty.
void CsvRows::AddOutcome(const std::string& error, const RowCall* call, std::string& output) const {
  bool first = !plan_.keeps_input;
  const auto add = [&](std::string_view text) {
    if (!first) output += separator_;
    first = false;
    AppendCsvField(output, text, separator_);
  };
  const bool good = call != nullptr && error.empty();
  if (plan_.WritesResult()) add(good ? call->ResultText() : "");
  for (std::size_t i = 0; i < plan_.outputs.size(); ++i)
    add(good ? call->OutputText(i) : "");
  add(error);
  output += '\n';
}

void CsvRows::AddUnread(const std::string& error, std::string& output) const {
  if (plan_.keeps_input) output.append(std::max(width_, least_width_) - 1, separator_);
  AddOutcome(error, nullptr, output);
}

std::string CsvRows::Process(std::string_view record, RowCall& call, std::string& output) const {
  std::vector<std::string_view> fields;
  SplitCsvRecord(record, separator_, fields);
  const bool fits = width_ == 0 ? fields.size() >= least_width_ : fields.size() == width_;
  if (!fits) {
    const std::string error = "the row has " + std::to_string(fields.size()) +
                              " columns instead of " +
                              std::to_string(std::max(width_, least_width_));
    AddUnread(error, output);
    return error;
  }
  std::string error;
  call.Begin();
  try {
    for (std::size_t i = 0; i < positions_.size(); ++i) {
      const std::string_view field = fields[positions_[i]];
      if (field.starts_with('"')) {
        call.SetText(i, CsvFieldText(field));
      } else {
        call.SetText(i, field);
      }
    }
    error = call.Run();
  } catch (const ProtocolError& misfit) {
    error = misfit.what();
  }
  if (plan_.keeps_input) output += WithoutLineEnd(record);
  AddOutcome(error, &call, output);
  return error;
}

}  // namespace vandpublic
