// Lines over file descriptors, without the buffers of a stream: a line is answered as soon as it
// is there, whatever follows it.
#include "cli/pipe.h"

#include <cstring>

#include "cli/system_streams.h"

namespace vandpublic {
namespace {

constexpr std::size_t kReadSize = 64 * 1024;
// A buffer that one long line made larger than this is given back afterwards.
constexpr std::size_t kKeptBuffer = 1024 * 1024;

}  // namespace

LineReader::Fill LineReader::ReadMore() {
  if (start_ > 0) {
    // What is left of the last read moves to the front.
    std::memmove(buffer_.data(), buffer_.data() + start_, end_ - start_);
    end_ -= start_;
    start_ = 0;
    if (buffer_.size() > kKeptBuffer && end_ < kReadSize) {
      buffer_.resize(end_);
      buffer_.shrink_to_fit();
    }
  }
  if (buffer_.size() - end_ < kReadSize) buffer_.resize(2 * end_ + kReadSize);
  const std::ptrdiff_t count = ReadSome(descriptor_, buffer_.data() + end_, buffer_.size() - end_);
  if (count > 0) end_ += static_cast<std::size_t>(count);
  if (count == 0) return Fill::End;
  return count > 0 ? Fill::Some : Fill::Failed;
}

LineReader::Outcome LineReader::DiscardLine() {
  for (;;) {
    const void* const found = std::memchr(buffer_.data() + start_, '\n', end_ - start_);
    if (found != nullptr) {
      start_ = static_cast<std::size_t>(static_cast<const char*>(found) - buffer_.data()) + 1;
      return Outcome::TooLong;
    }
    start_ = end_;
    const Fill fill = ReadMore();
    if (fill == Fill::Failed) return Outcome::Failed;
    if (fill == Fill::End) return Outcome::TooLong;
  }
}

LineReader::Outcome LineReader::Next(std::string_view& line) {
  std::size_t searched = start_;
  for (;;) {
    const void* const found = std::memchr(buffer_.data() + searched, '\n', end_ - searched);
    if (found != nullptr) {
      const auto at = static_cast<std::size_t>(static_cast<const char*>(found) - buffer_.data());
      line = std::string_view(buffer_).substr(start_, at - start_);
      start_ = at + 1;
      return line.size() > longest_line_ ? Outcome::TooLong : Outcome::Line;
    }
    if (end_ - start_ > longest_line_) return DiscardLine();
    const std::size_t pending = end_ - start_;
    const Fill fill = ReadMore();
    if (fill == Fill::Failed) return Outcome::Failed;
    if (fill == Fill::End) break;
    searched = start_ + pending;
  }
  if (start_ == end_) return Outcome::End;
  line = std::string_view(buffer_).substr(start_, end_ - start_);
  start_ = end_;
  return Outcome::Line;
}

bool WriteAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const std::ptrdiff_t written = WriteSome(descriptor, bytes.data(), bytes.size());
    if (written < 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

int RunPipe(PipeSession& session, int input, int output) {
  constexpr int kFailed = 2;
  LineReader reader(input);
  for (;;) {
    std::string_view line;
    const LineReader::Outcome outcome = reader.Next(line);
    if (outcome == LineReader::Outcome::End) return 0;
    if (outcome == LineReader::Outcome::Failed) return kFailed;
    std::string reply = outcome == LineReader::Outcome::TooLong
                            ? R"({"protocol_error":"the line is too long"})"
                            : session.HandleLine(line);
    reply += '\n';
    if (!WriteAll(output, reply)) return kFailed;
  }
}

}  // namespace vandpublic
