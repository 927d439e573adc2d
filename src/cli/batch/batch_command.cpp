// Files, resumption and threads of a batch.
#include "cli/batch/batch_command.h"

#include <cerrno>
#include <memory>
#include <system_error>
#include <thread>

#include "cli/batch/batch_run.h"
#include "cli/component_settings.h"
#include "cli/pipe.h"
#include "cli/system_streams.h"
#include "cli/tool.h"

namespace vandpublic {
namespace {

constexpr int kMostJobs = 256;

std::unique_ptr<Stream> Open(const std::string& path, FileUse use) {
  auto stream = std::make_unique<Stream>(OpenFile(path, use));
  if (stream->get() < 0) throw std::system_error(errno, std::generic_category(), path);
  return stream;
}

std::unique_ptr<Stream> OpenInput(const CommandLine& line) {
  const auto path = line.Value("--input");
  if (!path || *path == "-") return std::make_unique<Stream>(kStandardInput);
  return Open(*path, FileUse::Read);
}

std::unique_ptr<Stream> OpenOutput(const CommandLine& line) {
  const auto path = line.Value("--output");
  const bool resumes = line.Has("--resume");
  if (!path) return std::make_unique<Stream>(kStandardOutput);
  try {
    return Open(*path, resumes ? FileUse::GoOn : FileUse::Create);
  } catch (const std::system_error& error) {
    if (error.code().value() != EEXIST) throw;
    throw UsageError("'" + *path + "' exists; --resume goes on with it");
  }
}

[[noreturn]] void RaiseOutputError() {
  throw std::system_error(errno, std::generic_category(), "the output");
}

// What an interrupted run has left: its complete rows and where they end, and the first row as far
// as it is there.
struct Left {
  std::uint64_t records = 0;
  std::int64_t complete_to = 0;
  std::string first;
};

// Keeps no more of the first row than shows that it is longer than it should be.
Left ReadLeft(int output, RecordFormat format, std::size_t first_size) {
  Left left;
  RecordScanner scanner(format);
  std::int64_t read_to = 0;
  char buffer[1 << 16];
  for (;;) {
    const std::ptrdiff_t count = ReadSome(output, buffer, sizeof buffer);
    if (count < 0) RaiseOutputError();
    if (count == 0) return left;
    std::string_view bytes(buffer, static_cast<std::size_t>(count));
    while (!bytes.empty()) {
      const std::size_t size = scanner.Take(bytes);
      const std::string_view taken = bytes.substr(0, size);
      const bool of_first = left.records == 0 && left.first.size() <= first_size;
      if (of_first) left.first += taken;
      read_to += static_cast<std::int64_t>(taken.size());
      bytes.remove_prefix(taken.size());
      if (size == bytes.npos) continue;
      left.complete_to = read_to;
      ++left.records;
    }
  }
}

// The rows that need no work any more; cuts off what is left of one that is not complete. A file
// that is not from such a run is refused as it is.
std::uint64_t GoOn(int output, const BatchPlan& plan, const std::string& header) {
  const Left left = ReadLeft(output, plan.format, header.size());
  const bool fits = left.records == 0 ? header.starts_with(left.first) : left.first == header;
  if (plan.has_header && !fits) {
    throw UsageError("the output to go on with has other columns");
  }
  if (!CutFile(output, left.complete_to)) RaiseOutputError();
  return left.records;
}

// The rows to leave out; writes the header where there is none yet.
std::uint64_t Begin(int output, const BatchPlan& plan, const std::string& header, bool resumes) {
  const std::uint64_t records = resumes ? GoOn(output, plan, header) : 0;
  if (records == 0 && !WriteAll(output, header)) RaiseOutputError();
  const bool behind_header = plan.has_header && records > 0;
  return behind_header ? records - 1 : records;
}

int ReadJobs(const CommandLine& line) {
  const auto wanted = line.Value("--jobs");
  if (!wanted) return static_cast<int>(std::max(1U, std::thread::hardware_concurrency()));
  const auto number = ParseDecimal(*wanted);
  if (!number || *number < 1 || *number > kMostJobs) {
    throw UsageError("'--jobs' takes a number from 1 to " + std::to_string(kMostJobs));
  }
  return *number;
}

BatchTotals Run(const CommandLine& line, const BatchPlan& plan) {
  if (line.Has("--resume") && !line.Has("--output")) {
    throw UsageError("--resume needs the --output to go on with");
  }
  const auto platform = ChosenPlatform(line);
  const int jobs = ReadJobs(line);
  const auto make_object = [&] {
    auto object = std::make_unique<clsPublic>(platform);
    // A log entry for each bad row is not what a batch is run for; --debug-mode turns it on.
    object->DebugMode(DEBUG_MODE_OFF);
    ApplySettings(*object, line);
    return object;
  };
  make_object();  // what the settings raise comes before any file is touched

  const auto input = OpenInput(line);
  RecordReader reader(input->get(), plan.format);
  const std::string first = plan.has_header ? reader.TakeFirst() : std::string();
  if (plan.has_header && first.empty()) return {};
  if (first.size() > kLongestRecord) throw UsageError("the header has more than 1 MB");
  std::unique_ptr<RowFormat> format;
  std::string header;
  if (plan.format.separator) {
    auto rows = std::make_unique<CsvRows>(plan, first);
    header = rows->OutputHeader();
    format = std::move(rows);
  } else {
    format = std::make_unique<JsonRows>(plan);
  }

  const auto output = OpenOutput(line);
  reader.Skip(Begin(output->get(), plan, header, line.Has("--resume")));
  BatchStreams streams;
  streams.output = output->get();
  streams.shows_progress = IsTerminal(streams.messages);
  return RunBatch(plan, *format, reader, make_object, jobs, streams);
}

}  // namespace

CommandResult RunBatchCommand(const CommandLine& line) {
  const BatchPlan plan = ReadBatchPlan(line);
  try {
    return {Run(line, plan).bad == 0 ? 0 : 1};
  } catch (const std::system_error& error) {
    return {2, "", "vandpublic: " + std::string(error.what()) + "\n"};
  }
}

}  // namespace vandpublic
