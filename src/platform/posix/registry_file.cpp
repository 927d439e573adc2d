// Keeps the parsed file for as long as the file on the disk is surely the same.
#include "platform/posix/registry_file.h"

#include <chrono>
#include <utility>

#include "platform/posix/c_text.h"
#include "platform/posix/registry_text.h"

namespace vandpublic {
namespace {

time_t Now() noexcept {
  return std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
}

}  // namespace

RegistryFile::RegistryFile(std::shared_ptr<const CodePage> page, std::string path,
                           std::shared_ptr<FileCalls> calls)
    : page_(std::move(page)), path_(std::move(path)), calls_(std::move(calls)) {}

std::optional<std::string> RegistryFile::Read(std::string_view key_path,
                                              std::string_view value_name) {
  const std::u16string path = page_->Decode(UpToZero(key_path));
  const std::u16string name = page_->Decode(UpToZero(value_name));
  const std::lock_guard lock(mutex_);
  Refresh();
  return values_.Find(path, name);
}

void RegistryFile::Refresh() {
  if (state_ && StateOfFile(*calls_, path_) == state_) return;
  const time_t before = Now();
  state_.reset();
  values_ = {};
  const std::optional<FileContent> file = ReadFile(*calls_, path_, kRegistryFileLimit);
  if (!file) return;
  values_ = ParseRegistryText(file->bytes, *page_);
  // A file that changed a moment ago can change again without showing it; read it once more then.
  if (file->state.IsSettled(before)) state_ = file->state;
}

}  // namespace vandpublic
