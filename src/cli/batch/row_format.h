// Rows in, rows out: CSV records and JSON lines.
#ifndef VANDPUBLIC_CLI_BATCH_ROW_FORMAT_H
#define VANDPUBLIC_CLI_BATCH_ROW_FORMAT_H

#include <string>
#include <string_view>
#include <vector>

#include "cli/batch/batch_plan.h"
#include "cli/batch/row_call.h"

namespace vandpublic {

// Turns rows into calls and outcomes into rows, each row into exactly one: also a row that cannot
// be used, which has its error in the column for it. Shared by all threads.
class RowFormat {
 public:
  virtual ~RowFormat() = default;

  // Adds the outcome's row to the output; the error that the row has there, "" when there is none.
  virtual std::string Process(std::string_view record, RowCall& call,
                              std::string& output) const = 0;
  // Adds the row that stands for one that was not even read.
  virtual void AddUnread(const std::string& error, std::string& output) const = 0;
};

class CsvRows final : public RowFormat {
 public:
  // The header is the first record, empty where the input has none. Raises UsageError for a column
  // that is not there.
  CsvRows(const BatchPlan& plan, std::string_view header);

  // The header of the output with its line end, "" where the input has none.
  const std::string& OutputHeader() const { return output_header_; }

  std::string Process(std::string_view record, RowCall& call, std::string& output) const override;
  void AddUnread(const std::string& error, std::string& output) const override;

 private:
  void AddOutcome(const std::string& error, const RowCall* call, std::string& output) const;

  const BatchPlan& plan_;
  char separator_;
  std::vector<std::size_t> positions_;  // of the plan's inputs
  std::size_t width_ = 0;               // the number of columns; 0: that of each record
  std::size_t least_width_ = 0;
  std::string output_header_;
};

class JsonRows final : public RowFormat {
 public:
  explicit JsonRows(const BatchPlan& plan) : plan_(plan) {}

  std::string Process(std::string_view record, RowCall& call, std::string& output) const override;
  void AddUnread(const std::string& error, std::string& output) const override;

 private:
  Json Results(const RowCall& call) const;
  void AddRow(std::string_view text, const Json& row, const Json& results,
              std::string& output) const;
  bool IsOfEarlierRun(const std::string& key, const Json& results) const;

  const BatchPlan& plan_;
};

}  // namespace vandpublic

#endif
