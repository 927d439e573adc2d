// Joins the text of initialisation files to the files.
#include "platform/posix/ini_files.h"

#include <utility>

#include "platform/posix/atomic_edit.h"
#include "platform/posix/c_text.h"
#include "platform/posix/ini_text.h"
#include "platform/posix/posix_paths.h"
#include "platform/posix/whole_file.h"

namespace vandpublic {
PosixIniFiles::PosixIniFiles(std::shared_ptr<const CodePage> page, std::shared_ptr<FileCalls> calls)
    : page_(std::move(page)), calls_(std::move(calls)) {}

std::string PosixIniFiles::Read(std::string_view file, std::string_view section,
                                std::string_view key, std::string_view default_value) {
  const std::optional<std::string> name = FileName(file);
  std::optional<FileContent> content;
  if (name) content = ReadFile(*calls_, *name, kIniFileLimit);
  const std::string_view text = content ? std::string_view(content->bytes) : std::string_view();
  return ReadIniText(text, {UpToZero(section), UpToZero(key)}, UpToZero(default_value), *page_);
}

bool PosixIniFiles::Write(std::string_view file, std::string_view section, std::string_view key,
                          std::string_view value) {
  const std::optional<std::string> name = FileName(file);
  if (!name) return false;
  return EditFile(*calls_, *name, kIniFileLimit, [&](std::string_view text) {
    return EditIniText(text, {UpToZero(section), UpToZero(key)}, UpToZero(value), *page_);
  });
}

// Nothing for a name that no file can have. A character outside the page has come as a "?".
std::optional<std::string> PosixIniFiles::FileName(std::string_view file) const {
  const std::u16string name = page_->Decode(UpToZero(file));
  if (name.empty() || name.find_first_of(u"*?") != std::u16string::npos) return std::nullopt;
  return NativePath(name);
}

}  // namespace vandpublic
