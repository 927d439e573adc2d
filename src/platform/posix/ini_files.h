// Initialisation files on Linux: ordinary files, edited so that concurrent writers lose nothing.
#ifndef VANDPUBLIC_PLATFORM_POSIX_INI_FILES_H
#define VANDPUBLIC_PLATFORM_POSIX_INI_FILES_H

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/code_page.h"
#include "platform/posix/file_calls.h"
#include "platform/settings_stores.h"

namespace vandpublic {

// A larger file reads as if it were missing and is never written.
inline constexpr std::size_t kIniFileLimit = std::size_t{256} << 20;

// What a file says is told in ini_text.h, how it is replaced in atomic_edit.h.
//
// File names are texts in the ANSI page: they are decoded, a "\" becomes a "/", and the UTF-8 form
// is opened. Nothing else changes: blanks count, case counts, a drive letter is part of the name.
// A name without a folder is taken in the current folder. A name with "*" or "?" is no file: it
// reads as missing, and a write is refused. The same goes for folders, pipes and devices.
//
// As with the platform's functions, every text ends at its first zero byte.
//
// Safe in any thread; nothing is kept between calls. A read takes the file as it is at that moment
// and never waits for a writer.
class PosixIniFiles final : public IniFiles {
 public:
  explicit PosixIniFiles(std::shared_ptr<const CodePage> page,
                         std::shared_ptr<FileCalls> calls = SystemFileCalls());

  std::string Read(std::string_view file, std::string_view section, std::string_view key,
                   std::string_view default_value) override;
  bool Write(std::string_view file, std::string_view section, std::string_view key,
             std::string_view value) override;

 private:
  std::optional<std::string> FileName(std::string_view file) const;

  std::shared_ptr<const CodePage> page_;
  std::shared_ptr<FileCalls> calls_;
};

}  // namespace vandpublic

#endif
