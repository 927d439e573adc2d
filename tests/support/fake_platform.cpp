// The stand-ins' behaviour.
#include "support/fake_platform.h"

#include <utility>

#include "platform/posix/code_pages.h"

namespace vandpublic {

int FakeMessageBoxes::Show(std::u16string_view text, std::u16string_view title, int style) {
  if (fails) RaiseFault(FaultNumber::InternalError);
  shown.push_back({std::u16string(text), std::u16string(title), style});
  if (answers.empty()) return 1;
  const int answer = answers.front();
  answers.pop_front();
  return answer;
}

class FakeOutputFile final : public OutputFile {
 public:
  FakeOutputFile(FakeFiles& files, std::u16string path) : files_(files), path_(std::move(path)) {}

  void Write(std::string_view bytes) override {
    files_.Count(FakeFiles::kWrite);
    files_.contents[path_] += bytes;
  }
  void Close() override {
    files_.Count(FakeFiles::kClose);
    files_.closed.push_back(path_);
  }
  void GiveUp() noexcept override { files_.given_up.push_back(path_); }

 private:
  FakeFiles& files_;
  std::u16string path_;
};

std::unique_ptr<OutputFile> FakeFiles::Open(std::u16string_view path, OpenMode mode) {
  if (on_open) on_open();
  Count(kOpen);
  opened.emplace_back(path);
  std::string& content = contents[std::u16string(path)];
  if (mode == OpenMode::Output) content.clear();
  return std::make_unique<FakeOutputFile>(*this, std::u16string(path));
}

std::string FakeFiles::ReadAll(std::u16string_view path) {
  if (on_open) on_open();
  Count(kOpen);
  opened.emplace_back(path);
  const auto file = contents.find(path);
  if (file == contents.end()) RaiseFault(FaultNumber::FileNotFound);
  return file->second;
}

bool FakeFiles::FindsNormalFile(std::u16string_view path) { return contents.contains(path); }

void FakeFiles::Fail(Step step, int call, FaultNumber fault) { failures_[step] = {call, fault}; }

void FakeFiles::Count(Step step) {
  PlannedFailure& planned = failures_[step];
  if (planned.calls_left > 0 && --planned.calls_left == 0) RaiseFault(planned.fault);
}

double FakeRandom::Next() {
  if (values.empty()) RaiseFault(FaultNumber::InternalError);
  const double value = values.front();
  values.pop_front();
  return value;
}

std::shared_ptr<const Platform> FakePlatform::Make() const {
  auto platform = std::make_shared<Platform>();
  platform->clock = clock;
  platform->code_page = FindCodePage(code_page);
  platform->files = files;
  platform->message_boxes = message_boxes;
  platform->random = random;
  platform->regexp = regexp;
  platform->component_folder = component_folder;
  return platform;
}

}  // namespace vandpublic
