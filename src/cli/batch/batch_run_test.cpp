// Rows through a member, with streams and services that fail.
#include "cli/batch/batch_run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <new>
#include <stdexcept>
#include <system_error>
#include <thread>

#include "cli/pipe.h"
#include "cli/system_streams.h"
#include "support/tool_platform.h"

namespace vandpublic {
namespace {

using testing::HasSubstr;

BatchPlan Plan(std::vector<const char*> arguments) {
  arguments.insert(arguments.begin(), "batch");
  return ReadBatchPlan(ParseCommandLine(arguments));
}

// A pipe that another thread fills: the rows, in blocks with a pause between them.
class SlowInput {
 public:
  SlowInput(std::vector<std::string> blocks, std::chrono::milliseconds pause) {
    int ends[2];
    if (pipe(ends) != 0) throw std::runtime_error("no pipe");
    descriptor_ = ends[0];
    writer_ = std::jthread([to = ends[1], blocks = std::move(blocks), pause] {
      const Stream output(to);
      for (const std::string& block : blocks) {
        if (!WriteAll(output.get(), block)) return;
        std::this_thread::sleep_for(pause);
      }
    });
  }
  SlowInput(const SlowInput&) = delete;
  SlowInput& operator=(const SlowInput&) = delete;
  ~SlowInput() { CloseFile(descriptor_); }
  int get() const { return descriptor_; }

 private:
  int descriptor_;
  std::jthread writer_;
};

// What a run leaves in a pipe.
struct Captured {
  Captured() {
    if (pipe(ends) != 0) throw std::runtime_error("no pipe");
  }
  Captured(const Captured&) = delete;
  Captured& operator=(const Captured&) = delete;
  ~Captured() {
    CloseFile(ends[0]);
    if (ends[1] >= 0) CloseFile(ends[1]);
  }
  std::string Take() {
    CloseFile(ends[1]);
    ends[1] = -1;
    std::string text;
    char bytes[4096];
    for (std::ptrdiff_t count = 0; (count = ReadSome(ends[0], bytes, sizeof bytes)) > 0;)
      text.append(bytes, static_cast<std::size_t>(count));
    return text;
  }

  int ends[2] = {-1, -1};
};

BatchTotals RunRows(const BatchPlan& plan, int input, const BatchStreams& streams, int jobs,
                    const std::shared_ptr<const Platform>& platform = TestPlatform()) {
  const CsvRows rows(plan, "");
  RecordReader reader(input, plan.format);
  return RunBatch(
      plan, rows, reader, [&platform] { return std::make_unique<clsPublic>(platform); }, jobs,
      streams);
}

const std::vector<const char*> kHexRows = {"HexToDec", "--column", "istr_HexNumber=1",
                                           "--no-header", "--drop-input"};

TEST(BatchRun, Shows_how_far_it_is_twice_a_second_and_at_the_end) {
  const BatchPlan plan = Plan(kHexRows);
  SlowInput input({"A\nB\n", "G\n", "C\n"}, std::chrono::milliseconds(600));
  Captured output;
  Captured messages;
  const BatchTotals totals =
      RunRows(plan, input.get(), {output.ends[1], messages.ends[1], true}, 1);
  EXPECT_EQ(totals.rows, 4u);
  EXPECT_EQ(totals.bad, 1u);
  EXPECT_THAT(output.Take(), HasSubstr("10,\n11,\n"));
  const std::string shown = messages.Take();
  EXPECT_THAT(shown, HasSubstr("vandpublic: line 3: "));
  EXPECT_THAT(shown, HasSubstr("\r4 rows, "));
  EXPECT_THAT(shown, HasSubstr(" a second, 1 bad \n"));
  // The first block comes at once and is not shown; the others come late enough, on a machine that
  // keeps up.
  EXPECT_LE(std::count(shown.begin(), shown.end(), '\r'), 3);
  EXPECT_GE(std::count(shown.begin(), shown.end(), '\r'), 2);
}

TEST(BatchRun, Shows_nothing_where_it_is_not_asked_to) {
  const BatchPlan plan = Plan(kHexRows);
  SlowInput input({"A\n"}, {});
  Captured output;
  Captured messages;
  RunRows(plan, input.get(), {output.ends[1], messages.ends[1], false}, 1);
  EXPECT_EQ(messages.Take(), "");
}

TEST(BatchRun, An_output_that_fails_ends_all_threads) {
  const auto before = std::signal(SIGPIPE, SIG_IGN);
  const BatchPlan plan = Plan(kHexRows);
  std::string rows;
  for (int i = 0; i < 20000; ++i)
    rows += "7FFFFFFF\n";
  for (const int jobs : {1, 2, 8}) {
    SlowInput input(std::vector<std::string>(50, rows), {});
    Captured gone;
    CloseFile(gone.ends[0]);
    try {
      RunRows(plan, input.get(), {gone.ends[1], gone.ends[1], true}, jobs);
      FAIL() << "nothing is raised with " << jobs;
    } catch (const std::system_error& error) {
      EXPECT_EQ(error.code().value(), EPIPE) << jobs;
    }
    gone.ends[0] = dup(gone.ends[1]);  // for its end
  }
  std::signal(SIGPIPE, before);
}

TEST(BatchRun, An_input_that_fails_is_raised_whatever_the_number_of_threads) {
  const BatchPlan plan = Plan(kHexRows);
  for (const int jobs : {1, 4})
    EXPECT_THROW(RunRows(plan, -1, {}, jobs), std::system_error) << jobs;
}

// A clock that takes more memory than there is, at every second look more than there can be.
class GreedyClock final : public Clock {
 public:
  LocalTime Now() override {
    if (++looks_ % 2 == 0) throw std::length_error("too long");
    throw std::bad_alloc();
  }

 private:
  int looks_ = 0;
};

TEST(BatchRun, A_row_that_takes_too_much_memory_is_a_bad_row) {
  auto platform = std::make_shared<Platform>(*TestPlatform());
  platform->clock = std::make_shared<GreedyClock>();
  const BatchPlan plan = Plan({"EnableTimer", "--column", "iint_TimerNnum=1", "--no-header"});
  SlowInput input({"1\n2\n17\n"}, {});
  Captured output;
  Captured messages;
  const BatchTotals totals =
      RunRows(plan, input.get(), {output.ends[1], messages.ends[1]}, 1, platform);
  EXPECT_EQ(totals.bad, 3u);
  EXPECT_EQ(output.Take(),
            "1,out of memory\n2,out of memory\n17,9 Public_Module Subscript out of range\n");
}

}  // namespace
}  // namespace vandpublic
