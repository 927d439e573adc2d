// Comma-separated values (RFC 4180): fields that hold the separator, a quotation mark or a line end
// stand in quotation marks, a quotation mark inside is doubled. Lines end with LF or CR LF.
#ifndef VANDPUBLIC_CLI_BATCH_CSV_H
#define VANDPUBLIC_CLI_BATCH_CSV_H

#include <string>
#include <string_view>
#include <vector>

namespace vandpublic {

// Where fields and records end, byte by byte, so that a text can come in pieces. A quotation mark
// opens a quoted part only at the start of a field; text behind a closing one belongs to the field.
class CsvScanner {
 public:
  enum class Found { Nothing, FieldEnd, RecordEnd };

  explicit CsvScanner(char separator) noexcept : separator_(separator) {}

  // What ends with this byte, a separator or a line feed.
  Found Next(char c) noexcept {
    if (state_ == State::Quoted) {
      if (c == '"') state_ = State::Closing;
      return Found::Nothing;
    }
    if (c == '"' && state_ != State::Plain) {
      state_ = State::Quoted;  // it starts the field, or is the second of a pair
      return Found::Nothing;
    }
    const bool ends = c == separator_ || c == '\n';
    state_ = ends ? State::Start : State::Plain;
    if (!ends) return Found::Nothing;
    return c == '\n' ? Found::RecordEnd : Found::FieldEnd;
  }

 private:
  enum class State { Start, Plain, Quoted, Closing };
  char separator_;
  State state_ = State::Start;
};

// The fields of a record as they are written, without its line end.
void SplitCsvRecord(std::string_view record, char separator, std::vector<std::string_view>& fields);

// What a field stands for: without its quotation marks.
std::string CsvFieldText(std::string_view field);

// Adds a text as a field, in quotation marks where it needs them.
void AppendCsvField(std::string& record, std::string_view text, char separator);

// Without the LF or CR LF at its end.
std::string_view WithoutLineEnd(std::string_view record) noexcept;

}  // namespace vandpublic

#endif
