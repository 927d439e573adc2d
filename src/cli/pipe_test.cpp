#include "cli/pipe.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <thread>

#include "support/tool_platform.h"

namespace vandpublic {
namespace {

// Both ends of a system pipe.
class SystemPipe {
 public:
  SystemPipe() {
    if (pipe(ends_) != 0) throw std::runtime_error("pipe");
  }
  SystemPipe(const SystemPipe&) = delete;
  SystemPipe& operator=(const SystemPipe&) = delete;
  ~SystemPipe() {
    CloseRead();
    CloseWrite();
  }

  int read_end() const { return ends_[0]; }
  int write_end() const { return ends_[1]; }
  void CloseRead() { Close(ends_[0]); }
  void CloseWrite() { Close(ends_[1]); }

 private:
  static void Close(int& end) {
    if (end >= 0) close(end);
    end = -1;
  }
  int ends_[2] = {-1, -1};
};

// All that a reader makes of an input: lines in brackets, "!" for one that is too long.
std::string Cut(const std::string& input, std::size_t longest = kLongestLine) {
  SystemPipe in;
  std::thread writer([&] {
    WriteAll(in.write_end(), input);
    in.CloseWrite();
  });
  LineReader reader(in.read_end(), longest);
  std::string seen;
  for (;;) {
    std::string_view line;
    const auto outcome = reader.Next(line);
    if (outcome == LineReader::Outcome::End) break;
    if (outcome == LineReader::Outcome::Failed) return "failed";
    seen += outcome == LineReader::Outcome::TooLong ? "!" : "[" + std::string(line) + "]";
  }
  writer.join();
  return seen;
}

TEST(LineReader, cuts_at_line_feeds) {
  EXPECT_EQ(Cut(""), "");
  EXPECT_EQ(Cut("a\nbc\n"), "[a][bc]");
  EXPECT_EQ(Cut("a\nbc"), "[a][bc]");
  EXPECT_EQ(Cut("\n\na\r\n"), "[][][a\r]");
  EXPECT_EQ(Cut(std::string("a\0b\n", 4)), "[" + std::string("a\0b", 3) + "]");
}

TEST(LineReader, takes_lines_longer_than_one_read) {
  const std::string line(300000, 'x');
  EXPECT_EQ(Cut(line + "\n" + line + "\ny"), "[" + line + "][" + line + "][y]");
}

TEST(LineReader, leaves_out_a_line_that_is_too_long) {
  EXPECT_EQ(Cut("abcd\nabcde\nx\n", 4), "[abcd]![x]");
  EXPECT_EQ(Cut(std::string(500000, 'y') + "\nx\n", 4), "![x]");
  EXPECT_EQ(Cut("x\n" + std::string(500000, 'y'), 4), "[x]!");
}

TEST(LineReader, reports_a_descriptor_that_cannot_be_read) {
  LineReader reader(-1);
  std::string_view line;
  EXPECT_EQ(reader.Next(line), LineReader::Outcome::Failed);
  EXPECT_EQ(errno, EBADF);
}

// A peer that goes away with something unread resets the connection behind what it sent.
TEST(LineReader, reports_a_connection_that_breaks_inside_a_line) {
  for (const std::size_t longest : {std::size_t{4}, kLongestLine}) {
    int ends[2];
    ASSERT_EQ(socketpair(AF_UNIX, SOCK_STREAM, 0, ends), 0);
    ASSERT_TRUE(WriteAll(ends[0], "unread"));
    ASSERT_TRUE(WriteAll(ends[1], "more than four"));
    close(ends[1]);
    LineReader reader(ends[0], longest);
    std::string_view line;
    EXPECT_EQ(reader.Next(line), LineReader::Outcome::Failed) << longest;
    EXPECT_EQ(errno, ECONNRESET);
    close(ends[0]);
  }
}

// What is left behind a long line may be more than one read, and is moved as it is.
TEST(LineReader, goes_on_behind_lines_of_any_length) {
  std::string input;
  std::string seen;
  for (const std::size_t length : {2000000u, 100u, 1500000u, 0u, 300000u, 1u}) {
    const std::string line(length, static_cast<char>('a' + length % 26));
    input += line + "\n";
    seen += "[" + line + "]";
  }
  EXPECT_TRUE(Cut(input) == seen);
}

TEST(Pipe, answers_each_line_before_it_reads_the_next) {
  SystemPipe in;
  SystemPipe out;
  int status = -1;
  std::thread tool([&] {
    PipeSession session(TestPlatform());
    status = RunPipe(session, in.read_end(), out.write_end());
    out.CloseWrite();
  });
  LineReader replies(out.read_end());
  for (int i = 0; i < 3; ++i) {
    WriteAll(in.write_end(), "{\"member\":\"BitToHex\"}\n");
    std::string_view reply;
    EXPECT_EQ(replies.Next(reply), LineReader::Outcome::Line);
    EXPECT_EQ(reply, R"({"result":"0","refs":{}})");
  }
  in.CloseWrite();
  tool.join();
  EXPECT_EQ(status, 0);
}

TEST(Pipe, a_line_that_is_too_long_is_answered_and_the_next_one_read) {
  SystemPipe in;
  SystemPipe out;
  int status = -1;
  std::thread tool([&] {
    PipeSession session(TestPlatform());
    status = RunPipe(session, in.read_end(), out.write_end());
    out.CloseWrite();
  });
  WriteAll(in.write_end(), std::string(kLongestLine + 1, ' ') + "\n{\"member\":\"BitToHex\"}\n");
  in.CloseWrite();
  LineReader replies(out.read_end());
  std::string_view reply;
  replies.Next(reply);
  EXPECT_EQ(reply, R"({"protocol_error":"the line is too long"})");
  replies.Next(reply);
  EXPECT_EQ(reply, R"({"result":"0","refs":{}})");
  tool.join();
  EXPECT_EQ(status, 0);
}

TEST(Pipe, a_reader_that_goes_away_ends_it_with_status_2) {
  const auto before = std::signal(SIGPIPE, SIG_IGN);
  SystemPipe in;
  SystemPipe out;
  WriteAll(in.write_end(), "{}\n");
  out.CloseRead();
  PipeSession session(TestPlatform());
  EXPECT_EQ(RunPipe(session, in.read_end(), out.write_end()), 2);
  EXPECT_EQ(errno, EPIPE);
  std::signal(SIGPIPE, before);
}

TEST(Pipe, descriptors_that_do_not_block_are_waited_for) {
  SystemPipe in;
  SystemPipe out;
  fcntl(in.read_end(), F_SETFL, O_NONBLOCK);
  fcntl(out.write_end(), F_SETFL, O_NONBLOCK);
  int status = -1;
  std::thread tool([&] {
    PipeSession session(TestPlatform());
    status = RunPipe(session, in.read_end(), out.write_end());
    out.CloseWrite();
  });
  // More replies than the pipe holds before anybody reads one.
  constexpr int kCount = 20000;
  for (int i = 0; i < kCount; ++i) {
    if (i == 1) std::this_thread::sleep_for(std::chrono::milliseconds(20));
    if (i < kCount / 2) WriteAll(in.write_end(), "{}\n");
  }
  in.CloseWrite();
  LineReader replies(out.read_end());
  int seen = 0;
  std::string_view reply;
  while (replies.Next(reply) == LineReader::Outcome::Line)
    ++seen;
  tool.join();
  EXPECT_EQ(seen, kCount / 2);
  EXPECT_EQ(status, 0);
}

}  // namespace
}  // namespace vandpublic
