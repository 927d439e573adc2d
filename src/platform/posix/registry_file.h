// The machine-wide registry on Linux: a file in the text form of the registry.
#ifndef VANDPUBLIC_PLATFORM_POSIX_REGISTRY_FILE_H
#define VANDPUBLIC_PLATFORM_POSIX_REGISTRY_FILE_H

#include <cstddef>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

#include "platform/code_page.h"
#include "platform/posix/file_calls.h"
#include "platform/posix/registry_values.h"
#include "platform/posix/whole_file.h"
#include "platform/settings_stores.h"

namespace vandpublic {

// Where the machine's administrator puts the file, for example an export from Windows.
inline constexpr char kRegistryFilePath[] = "/etc/vandpublic/registry.reg";

inline constexpr std::size_t kRegistryFileLimit = std::size_t{64} << 20;

// Reads the values of a file; registry_text.h tells what one looks like. The file is read when the
// first value is asked for, and again whenever it has changed. A missing file, a file that cannot
// be read, one above the limit and one that is no regular file hold no value.
//
// Key path and value name are texts in the ANSI page and end at their first zero byte; a "\" at
// the end of the path does not count. The value name "" is the key's default value.
//
// Safe in any thread.
class RegistryFile final : public Registry {
 public:
  explicit RegistryFile(std::shared_ptr<const CodePage> page, std::string path = kRegistryFilePath,
                        std::shared_ptr<FileCalls> calls = SystemFileCalls());

  std::optional<std::string> Read(std::string_view key_path, std::string_view value_name) override;

 private:
  void Refresh();

  const std::shared_ptr<const CodePage> page_;
  const std::string path_;
  const std::shared_ptr<FileCalls> calls_;

  std::mutex mutex_;                // guards what follows
  std::optional<FileState> state_;  // of the file that the values are from, once it is settled
  RegistryValues values_;
};

}  // namespace vandpublic

#endif
