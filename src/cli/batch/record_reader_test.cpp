// Records of an input that comes in pieces.
#include "cli/batch/record_reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <stdexcept>
#include <system_error>
#include <thread>

namespace vandpublic {
namespace {

using testing::ElementsAre;

constexpr RecordFormat kCsv{','};
constexpr RecordFormat kLines{};

// A pipe that another thread fills in the given pieces.
class PipedInput {
 public:
  explicit PipedInput(std::vector<std::string> pieces) {
    int ends[2];
    if (pipe(ends) != 0) throw std::runtime_error("no pipe");
    descriptor_ = ends[0];
    writer_ = std::jthread([to = ends[1], pieces = std::move(pieces)] {
      for (std::string_view piece : pieces) {
        while (!piece.empty()) {
          const ssize_t count = write(to, piece.data(), piece.size());
          if (count <= 0) break;
          piece.remove_prefix(static_cast<std::size_t>(count));
        }
      }
      close(to);
    });
  }
  PipedInput(const PipedInput&) = delete;
  PipedInput& operator=(const PipedInput&) = delete;
  ~PipedInput() {
    writer_.join();
    close(descriptor_);
  }
  int descriptor() const { return descriptor_; }

 private:
  int descriptor_;
  std::jthread writer_;
};

// "LINE:TEXT" of every record, "LINE:too long" for those.
std::vector<std::string> ReadAll(RecordReader& reader) {
  std::vector<std::string> all;
  RecordBlock block;
  while (reader.Next(block)) {
    EXPECT_FALSE(block.records.empty());
    for (const Record& record : block.records) {
      all.push_back(std::to_string(record.line) + ":" +
                    (record.too_long ? "too long" : std::string(record.text)));
    }
  }
  return all;
}

std::vector<std::string> Records(std::vector<std::string> pieces, RecordFormat format) {
  PipedInput input(std::move(pieces));
  RecordReader reader(input.descriptor(), format);
  return ReadAll(reader);
}

TEST(RecordReader, Lines_come_with_their_numbers) {
  EXPECT_THAT(Records({"a\nb\n", "c"}, kLines), ElementsAre("1:a\n", "2:b\n", "3:c"));
  EXPECT_THAT(Records({}, kLines), ElementsAre());
  EXPECT_THAT(Records({"\n\n"}, kLines), ElementsAre("1:\n", "2:\n"));
  EXPECT_THAT(Records({"\xEF\xBB\xBF"
                       "a\n"},
                      kLines),
              ElementsAre("1:a\n"));
}

TEST(RecordReader, A_quoted_line_end_does_not_end_a_record) {
  EXPECT_THAT(Records({"a,\"b\nc\"\nd\n"}, kCsv), ElementsAre("1:a,\"b\nc\"\n", "3:d\n"));
  EXPECT_THAT(Records({"a,\"b\nc\"\nd\n"}, kLines), ElementsAre("1:a,\"b\n", "2:c\"\n", "3:d\n"));
}

TEST(RecordReader, Pieces_may_end_anywhere) {
  const std::string text = "a,\"b\"\"\n\"\r\nc,d\n\"e\"";
  const auto whole = Records({text}, kCsv);
  ASSERT_EQ(whole.size(), 3U);
  for (std::size_t cut = 1; cut < text.size(); ++cut)
    EXPECT_EQ(Records({text.substr(0, cut), text.substr(cut)}, kCsv), whole) << cut;
}

TEST(RecordReader, Records_above_the_limit_are_left_out) {
  const std::string fits(kLongestRecord - 1, 'x');
  const std::string long_one(3 * kLongestRecord, 'x');
  const auto records = Records({"a\n" + fits + "\n" + long_one + "\nb\n"}, kLines);
  ASSERT_EQ(records.size(), 4U);
  EXPECT_EQ(records[1].size(), 2 + kLongestRecord);
  EXPECT_EQ(records[2], "3:too long");
  EXPECT_EQ(records[3], "4:b\n");
  EXPECT_THAT(Records({long_one}, kLines), ElementsAre("1:too long"));
  // Line ends inside the long quoted field count as lines, not as records.
  std::string quoted = "\"";
  for (std::size_t i = 0; i < kLongestRecord; ++i)
    quoted += "x\n";
  const auto after = Records({quoted + "\"\nb\n"}, kCsv);
  EXPECT_THAT(after, ElementsAre("1:too long", std::to_string(kLongestRecord + 2) + ":b\n"));
}

TEST(RecordReader, The_first_record_can_be_taken_and_others_left_out) {
  PipedInput input({"h1,\"h\n2\"\n1\n", "2\n3\n4\n"});
  RecordReader reader(input.descriptor(), kCsv);
  EXPECT_EQ(reader.TakeFirst(), "h1,\"h\n2\"\n");
  reader.Skip(2);
  EXPECT_THAT(ReadAll(reader), ElementsAre("5:3\n", "6:4\n"));
}

TEST(RecordReader, An_empty_input_has_no_first_record) {
  PipedInput input({});
  RecordReader reader(input.descriptor(), kCsv);
  EXPECT_EQ(reader.TakeFirst(), "");
  EXPECT_THAT(ReadAll(reader), ElementsAre());
}

TEST(RecordReader, More_can_be_left_out_than_there_is) {
  PipedInput input({"1\n2\n"});
  RecordReader reader(input.descriptor(), kLines);
  reader.Skip(5);
  EXPECT_THAT(ReadAll(reader), ElementsAre());
}

TEST(RecordReader, A_read_that_fails_is_raised) {
  RecordReader reader(-1, kLines);
  RecordBlock block;
  EXPECT_THROW(reader.Next(block), std::system_error);
}

}  // namespace
}  // namespace vandpublic
