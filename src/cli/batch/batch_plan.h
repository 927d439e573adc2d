// What a batch does with each row: which member it calls, where the arguments come from, what is
// written.
#ifndef VANDPUBLIC_CLI_BATCH_BATCH_PLAN_H
#define VANDPUBLIC_CLI_BATCH_BATCH_PLAN_H

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "cli/batch/record_reader.h"
#include "cli/command_line.h"
#include "members/member_table.h"
#include "runtime/variant.h"

namespace vandpublic {

// A parameter and the column that gives or takes its value.
struct ColumnUse {
  std::size_t parameter;
  std::string column;
};

struct BatchPlan {
  std::size_t slot = 0;
  std::vector<ColumnUse> inputs;
  // Arguments that are the same for every row; nothing for those that columns give or that are left
  // out.
  std::array<std::optional<Variant>, kMostParameters> fixed;
  std::vector<ColumnUse> outputs;  // by-reference parameters that are written
  std::string result_column = "result";
  RecordFormat format{','};
  bool has_header = true;  // CSV: the first record names the columns; else they are numbers from 1
  bool keeps_input = true;

  const MemberInfo& Member() const { return MemberTable()[slot]; }
  bool WritesResult() const { return Member().result != InterfaceType::None; }
};

inline constexpr std::string_view kErrorColumn = "error";

// The plan of a command line: the member's name and fixed arguments as words, --column,
// --reference, --result, --format, --separator, --no-header, --drop-input. Raises UsageError.
BatchPlan ReadBatchPlan(const CommandLine& line);

}  // namespace vandpublic

#endif
