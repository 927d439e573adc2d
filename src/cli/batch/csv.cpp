// Fields of CSV records.
#include "cli/batch/csv.h"

#include <algorithm>

namespace vandpublic {

std::string_view WithoutLineEnd(std::string_view record) noexcept {
  if (record.ends_with('\n')) record.remove_suffix(1);
  if (record.ends_with('\r')) record.remove_suffix(1);
  return record;
}

void SplitCsvRecord(std::string_view record, char separator,
                    std::vector<std::string_view>& fields) {
  fields.clear();
  record = WithoutLineEnd(record);
  CsvScanner scanner(separator);
  std::size_t start = 0;
  for (std::size_t at = 0; at < record.size(); ++at) {
    if (scanner.Next(record[at]) == CsvScanner::Found::Nothing) continue;
    fields.push_back(record.substr(start, at - start));
    start = at + 1;
  }
  fields.push_back(record.substr(start));
}

std::string CsvFieldText(std::string_view field) {
  if (!field.starts_with('"')) return std::string(field);
  std::string text;
  text.reserve(field.size());
  std::size_t at = 1;
  for (; at < field.size(); ++at) {
    if (field[at] == '"') {
      const bool doubled = at + 1 < field.size() && field[at + 1] == '"';
      if (!doubled) break;
      ++at;
    }
    text += field[at];
  }
  if (at < field.size()) text += field.substr(at + 1);
  return text;
}

void AppendCsvField(std::string& record, std::string_view text, char separator) {
  const bool plain = std::none_of(text.begin(), text.end(), [separator](char c) {
    return c == separator || c == '"' || c == '\n' || c == '\r';
  });
  if (plain) {
    record += text;
    return;
  }
  record += '"';
  for (const char c : text) {
    if (c == '"') record += '"';
    record += c;
  }
  record += '"';
}

}  // namespace vandpublic
