// Blocks are what one read gives, cut behind their last complete record.
#include "cli/batch/record_reader.h"

#include <algorithm>
#include <cerrno>
#include <system_error>

#include "cli/system_streams.h"

namespace vandpublic {
namespace {

constexpr std::size_t kReadSize = 128 * 1024;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::uint64_t LinesIn(std::string_view text) {
  return static_cast<std::uint64_t>(std::count(text.begin(), text.end(), '\n'));
}

}  // namespace

std::size_t RecordScanner::Take(std::string_view bytes) noexcept {
  if (lines_) {
    const std::size_t end = bytes.find('\n');
    return end == bytes.npos ? end : end + 1;
  }
  for (std::size_t at = 0; at < bytes.size(); ++at) {
    if (fields_.Next(bytes[at]) == CsvScanner::Found::RecordEnd) return at + 1;
  }
  return bytes.npos;
}

void RecordReader::ReadMore(std::string& bytes) {
  const std::size_t size = bytes.size();
  bytes.resize(size + kReadSize);
  const std::ptrdiff_t count = ReadSome(descriptor_, bytes.data() + size, kReadSize);
  if (count < 0) throw std::system_error(errno, std::generic_category(), "the input");
  bytes.resize(size + static_cast<std::size_t>(count));
  at_end_ = count == 0;
  if (at_start_ && bytes.starts_with(kByteOrderMark)) bytes.erase(0, kByteOrderMark.size());
  at_start_ = false;
}

void RecordReader::Add(RecordBlock& block, const Record& record) {
  if (to_skip_ == 0) {
    block.records.push_back(record);
  } else {
    --to_skip_;
  }
}

// Puts what is no complete record aside.
void RecordReader::CutRecords(RecordBlock& block) {
  std::string_view left = block.bytes;
  while (!left.empty()) {
    std::size_t size = RecordScanner(format_).Take(left);
    if (size == left.npos && !at_end_) break;
    size = std::min(size, left.size());
    const std::string_view text = left.substr(0, size);
    const bool too_long = size > kLongestRecord;
    Add(block, {too_long ? std::string_view() : text, line_, too_long});
    line_ += LinesIn(text);
    left.remove_prefix(size);
  }
  rest_.assign(left);
}

// Reads to the end of the record, piece by piece.
void RecordReader::DiscardRecord(RecordBlock& block) {
  Add(block, {{}, line_, true});
  RecordScanner scanner(format_);
  std::string piece = std::move(rest_);
  rest_.clear();
  for (;;) {
    const std::size_t size = scanner.Take(piece);
    line_ += LinesIn(std::string_view(piece).substr(0, size));
    if (size != piece.npos) {
      rest_ = piece.substr(size);
      return;
    }
    if (at_end_) return;
    piece.clear();
    ReadMore(piece);
  }
}

std::string RecordReader::TakeFirst() {
  RecordScanner scanner(format_);
  std::string first;
  while (!at_end_ && first.size() <= kLongestRecord) {
    std::string piece;
    ReadMore(piece);
    const std::size_t size = scanner.Take(piece);
    first += std::string_view(piece).substr(0, size);
    if (size != piece.npos) {
      rest_ = piece.substr(size);
      break;
    }
  }
  line_ += LinesIn(first);
  return first;
}

bool RecordReader::Next(RecordBlock& block) {
  block.records.clear();
  while (block.records.empty()) {
    block.bytes = std::move(rest_);
    rest_.clear();
    if (!at_end_) ReadMore(block.bytes);
    if (at_end_ && block.bytes.empty()) return false;
    CutRecords(block);
    if (rest_.size() > kLongestRecord) DiscardRecord(block);
  }
  return true;
}

}  // namespace vandpublic
