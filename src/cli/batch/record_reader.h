// The rows of an input of any length, a block of them at a time.
#ifndef VANDPUBLIC_CLI_BATCH_RECORD_READER_H
#define VANDPUBLIC_CLI_BATCH_RECORD_READER_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/batch/csv.h"

namespace vandpublic {

// What a row is: a CSV record with that separator of its fields, whose quoted fields may hold line
// ends, or a line where there is no separator.
struct RecordFormat {
  std::optional<char> separator;
};

// Finds the end of the record that starts with the first byte it is shown.
class RecordScanner {
 public:
  explicit RecordScanner(RecordFormat format) noexcept
      : lines_(!format.separator), fields_(format.separator.value_or(',')) {}

  // How many of the bytes belong to the record, its line end included; npos when it goes on.
  std::size_t Take(std::string_view bytes) noexcept;

 private:
  bool lines_;
  CsvScanner fields_;
};

inline constexpr std::size_t kLongestRecord = std::size_t{1024} * 1024;

struct Record {
  std::string_view text;  // with its line end, which only the last one of an input may lack
  std::uint64_t line;     // where it starts, from 1
  bool too_long = false;  // above kLongestRecord: nothing of it is kept
};

// Records and the bytes that they stand in.
struct RecordBlock {
  std::string bytes;
  std::vector<Record> records;
};

class RecordReader {
 public:
  RecordReader(int descriptor, RecordFormat format) : descriptor_(descriptor), format_(format) {}

  // The first record, its line end included; "" for an empty input. To be called before Next. Of
  // one above kLongestRecord only so much is read that it shows.
  std::string TakeFirst();

  // Leaves the next records out.
  void Skip(std::uint64_t count) noexcept { to_skip_ += count; }

  // Fills the block with the next records, at least one; false at the end of the input. Waits no
  // longer than for the first one. A byte-order mark at the start of the input is no part of it.
  // Raises std::system_error when reading fails.
  bool Next(RecordBlock& block);

 private:
  void ReadMore(std::string& bytes);
  void CutRecords(RecordBlock& block);
  void DiscardRecord(RecordBlock& block);
  void Add(RecordBlock& block, const Record& record);

  int descriptor_;
  RecordFormat format_;
  std::string rest_;  // read, but of a record that is not complete
  std::uint64_t line_ = 1;
  std::uint64_t to_skip_ = 0;
  bool at_start_ = true;
  bool at_end_ = false;
};

}  // namespace vandpublic

#endif
