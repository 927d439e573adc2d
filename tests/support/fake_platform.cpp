// The stand-ins' behaviour.
#include "support/fake_platform.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "platform/code_page.h"

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
  FakeOutputFile(FakeFiles& files, std::u16string path, OpenMode mode)
      : files_(files), path_(std::move(path)) {
    if (mode == OpenMode::Binary) position_ = 0;
  }

  void Write(std::string_view bytes) override {
    files_.Count(FakeFiles::kWrite);
    std::string& content = files_.contents[path_];
    const std::size_t start = std::min(position_.value_or(content.size()), content.size());
    content.replace(start, bytes.size(), bytes);
    if (position_) *position_ += bytes.size();
  }
  void Close() override {
    files_.Count(FakeFiles::kClose);
    files_.closed.push_back(path_);
  }
  void GiveUp() noexcept override { files_.given_up.push_back(path_); }

 private:
  FakeFiles& files_;
  std::u16string path_;
  std::optional<std::size_t> position_;  // none: at the end
};

class FakeInputFile final : public InputFile {
 public:
  FakeInputFile(FakeFiles& files, std::u16string path) : files_(files), path_(std::move(path)) {}
  ~FakeInputFile() override { files_.closed.push_back(path_); }

  std::int64_t Size() override { return std::ssize(files_.contents[path_]); }
  std::size_t Read(std::span<Byte> bytes) override {
    files_.Count(FakeFiles::kRead);
    const std::string_view rest = std::string_view(files_.contents[path_]).substr(position_);
    const std::size_t count = std::min(rest.size(), bytes.size());
    std::copy_n(rest.begin(), count, bytes.begin());
    position_ += count;
    return count;
  }

 private:
  FakeFiles& files_;
  std::u16string path_;
  std::size_t position_ = 0;
};

std::unique_ptr<OutputFile> FakeFiles::Open(std::u16string_view path, OpenMode mode) {
  if (on_open) on_open();
  Count(kOpen);
  opened.emplace_back(path);
  std::string& content = contents[std::u16string(path)];
  if (mode == OpenMode::Output) content.clear();
  return std::make_unique<FakeOutputFile>(*this, std::u16string(path), mode);
}

std::string FakeFiles::ReadAll(std::u16string_view path) {
  if (on_open) on_open();
  Count(kOpen);
  opened.emplace_back(path);
  const auto file = contents.find(path);
  if (file == contents.end()) RaiseFault(FaultNumber::FileNotFound);
  return file->second;
}

std::unique_ptr<InputFile> FakeFiles::OpenToRead(std::u16string_view path) {
  ReadAll(path);  // the same faults, and noted alike
  return std::make_unique<FakeInputFile>(*this, std::u16string(path));
}

void FakeFiles::DeleteIfThere(std::u16string_view path) {
  const auto file = contents.find(path);
  if (file != contents.end()) contents.erase(file);
}

bool FakeFiles::FindsNormalFile(std::u16string_view path) { return contents.contains(path); }

bool FakeFiles::FindsFileOrFolder(std::u16string_view path) {
  return contents.contains(path) || folders.contains(path);
}

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
  platform->database = database;
  platform->message_boxes = message_boxes;
  platform->random = random;
  platform->regexp = regexp;
  platform->component_folder = component_folder;
  return platform;
}

}  // namespace vandpublic
