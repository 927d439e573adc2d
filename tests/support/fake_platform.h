// Stand-ins for the platform's services: a clock that stands still, files in memory, message boxes
// that only note what they would have shown. Each can fail on demand.
//
//   FakePlatform services;
//   services.files->FailWrite(1, FaultNumber::DiskFull);
//   clsPublic component(services.Make());
#ifndef VANDPUBLIC_TESTS_SUPPORT_FAKE_PLATFORM_H
#define VANDPUBLIC_TESTS_SUPPORT_FAKE_PLATFORM_H

#include <array>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "platform/platform.h"
#include "runtime/errors.h"

namespace vandpublic {

class FakeClock final : public Clock {
 public:
  LocalTime Now() override { return now; }

  LocalTime now{.year = 2024, .month = 3, .day = 5, .hour = 14, .minute = 7, .second = 9};
};

class FakeMessageBoxes final : public MessageBoxes {
 public:
  struct Shown {
    std::u16string text;
    std::u16string title;
    int style;
  };

  // The next of `answers`, or 1 (OK) when none is left.
  int Show(std::u16string_view text, std::u16string_view title, int style) override;

  std::vector<Shown> shown;
  std::deque<int> answers;
  bool fails = false;  // Show raises fault 51 and notes nothing
};

// Files by the exact text of their path: no folders, no rules for names, no wildcards.
class FakeFiles final : public Files {
 public:
  std::unique_ptr<OutputFile> Open(std::u16string_view path, OpenMode mode) override;
  // Fault 53 for a path that is not among the contents.
  std::string ReadAll(std::u16string_view path) override;
  std::unique_ptr<InputFile> OpenToRead(std::u16string_view path) override;
  void DeleteIfThere(std::u16string_view path) override;
  bool FindsNormalFile(std::u16string_view path) override;
  // True for the contents and the folders.
  bool FindsFileOrFolder(std::u16string_view path) override;

  // The n-th call from now on, counted from 1 over all files, raises the fault instead. ReadAll
  // and OpenToRead count as an open.
  void FailOpen(int call, FaultNumber fault) { Fail(kOpen, call, fault); }
  void FailWrite(int call, FaultNumber fault) { Fail(kWrite, call, fault); }
  void FailClose(int call, FaultNumber fault) { Fail(kClose, call, fault); }
  // Of files opened by OpenToRead.
  void FailRead(int call, FaultNumber fault) { Fail(kRead, call, fault); }

  std::map<std::u16string, std::string, std::less<>> contents;
  std::set<std::u16string, std::less<>> folders;
  // Paths in the order of the calls.
  std::vector<std::u16string> opened;
  std::vector<std::u16string> closed;
  std::vector<std::u16string> given_up;
  // Called at the start of every Open, where set.
  std::function<void()> on_open;

 private:
  friend class FakeOutputFile;
  friend class FakeInputFile;
  enum Step { kOpen, kWrite, kClose, kRead, kStepCount };
  struct PlannedFailure {
    int calls_left = 0;  // 0: none is planned
    FaultNumber fault = FaultNumber::InternalError;
  };

  void Fail(Step step, int call, FaultNumber fault);
  // Raises the planned fault when its call has come.
  void Count(Step step);

  std::array<PlannedFailure, kStepCount> failures_;
};

class FakeRandom final : public RandomSource {
 public:
  // The next of `values`; fault 51 when none is left, so that every draw is expected.
  double Next() override;
  void Seed(std::uint64_t seed) override { seeds.push_back(seed); }

  std::deque<double> values;
  std::vector<std::uint64_t> seeds;
};

// The services of one test, to be changed before or after objects are made on them.
struct FakePlatform {
  std::shared_ptr<FakeClock> clock = std::make_shared<FakeClock>();
  std::shared_ptr<FakeFiles> files = std::make_shared<FakeFiles>();
  std::shared_ptr<DatabaseObjects> database = nullptr;
  std::shared_ptr<FakeMessageBoxes> message_boxes = std::make_shared<FakeMessageBoxes>();
  std::shared_ptr<FakeRandom> random = std::make_shared<FakeRandom>();
  std::shared_ptr<RegExpEngine> regexp = nullptr;  // none unless the test sets one
  int code_page = 1252;
  std::u16string component_folder = u"C:\\Component";

  // The table as objects take it; it shares the stand-ins. Ports without one here are not set.
  std::shared_ptr<const Platform> Make() const;
};

}  // namespace vandpublic

#endif
