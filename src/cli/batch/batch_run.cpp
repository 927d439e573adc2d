// Every thread reads a block, works on it, and writes it when the blocks before it are written.
#include "cli/batch/batch_run.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <system_error>
#include <thread>
#include <vector>

#include "cli/pipe.h"

namespace vandpublic {
namespace {

using Clock = std::chrono::steady_clock;

// One line on a terminal that is written over.
class Progress {
 public:
  Progress(int terminal, bool shown) : terminal_(terminal), shown_(shown) {}

  void Update(const BatchTotals& totals, bool at_end) {
    if (!shown_) return;
    const Clock::time_point now = Clock::now();
    if (!at_end && now - last_ < std::chrono::milliseconds(500)) return;
    last_ = now;
    // A clock of coarse steps may not have moved yet.
    const auto elapsed = std::max<Clock::duration>(now - start_, std::chrono::milliseconds(1));
    const double seconds = std::chrono::duration<double>(elapsed).count();
    const auto rate = static_cast<std::uint64_t>(static_cast<double>(totals.rows) / seconds);
    WriteAll(terminal_, "\r" + std::to_string(totals.rows) + " rows, " + std::to_string(rate) +
                            " a second, " + std::to_string(totals.bad) + " bad " +
                            (at_end ? "\n" : ""));
  }

 private:
  int terminal_;
  bool shown_;
  Clock::time_point start_ = Clock::now();
  Clock::time_point last_ = start_;
};

// A block on its way.
struct Work {
  std::uint64_t turn = 0;
  RecordBlock block;
  std::string output;
  std::string messages;
  BatchTotals totals;
};

class Batch {
 public:
  Batch(const RowFormat& format, RecordReader& reader, const BatchStreams& streams)
      : format_(format),
        reader_(reader),
        streams_(streams),
        progress_(streams.messages, streams.shows_progress) {}

  // What one thread does. Its failure ends all of them.
  void Serve(RowCall call) noexcept {
    try {
      Work work;
      while (Read(work)) {
        Process(call, work);
        if (!Write(work)) return;
      }
    } catch (...) {
      Stop(std::current_exception());
    }
  }

  // The totals when all threads are done; raises what one of them met.
  BatchTotals Finish() {
    progress_.Update(totals_, true);
    if (failure_) std::rethrow_exception(failure_);
    return totals_;
  }

 private:
  bool Read(Work& work) {
    const std::lock_guard lock(reading_);
    if (!reader_.Next(work.block)) return false;
    work.turn = turns_given_++;
    return true;
  }

  void Process(RowCall& call, Work& work) const {
    work.output.clear();
    work.messages.clear();
    work.totals = {};
    for (const Record& record : work.block.records) {
      std::string error;
      if (record.too_long) {
        error = "the row has more than 1 MB";
        format_.AddUnread(error, work.output);
      } else {
        error = format_.Process(record.text, call, work.output);
      }
      ++work.totals.rows;
      if (error.empty()) continue;
      ++work.totals.bad;
      work.messages += "vandpublic: line " + std::to_string(record.line) + ": " + error + "\n";
    }
  }

  // False when another thread has failed.
  bool Write(const Work& work) {
    std::unique_lock lock(writing_);
    turn_passed_.wait(lock, [&] { return turn_ == work.turn || failure_; });
    if (failure_) return false;
    if (!WriteAll(streams_.output, work.output)) {
      throw std::system_error(errno, std::generic_category(), "the output");
    }
    WriteAll(streams_.messages, work.messages);
    totals_.rows += work.totals.rows;
    totals_.bad += work.totals.bad;
    progress_.Update(totals_, false);
    ++turn_;
    lock.unlock();
    turn_passed_.notify_all();
    return true;
  }

  void Stop(std::exception_ptr failure) noexcept {
    {
      const std::lock_guard lock(writing_);
      if (!failure_) failure_ = std::move(failure);
    }
    turn_passed_.notify_all();
  }

  const RowFormat& format_;
  RecordReader& reader_;
  BatchStreams streams_;

  std::mutex reading_;
  std::uint64_t turns_given_ = 0;

  std::mutex writing_;
  std::condition_variable turn_passed_;
  std::uint64_t turn_ = 0;
  BatchTotals totals_;
  Progress progress_;
  std::exception_ptr failure_;
};

}  // namespace

BatchTotals RunBatch(const BatchPlan& plan, const RowFormat& format, RecordReader& reader,
                     const std::function<std::unique_ptr<clsPublic>()>& make_object, int jobs,
                     const BatchStreams& streams) {
  Batch batch(format, reader, streams);
  std::vector<std::jthread> threads;
  for (int i = 1; i < jobs; ++i)
    threads.emplace_back(
        [&batch, call = RowCall(plan, make_object())]() mutable { batch.Serve(std::move(call)); });
  batch.Serve(RowCall(plan, make_object()));
  threads.clear();  // joins
  return batch.Finish();
}

}  // namespace vandpublic
