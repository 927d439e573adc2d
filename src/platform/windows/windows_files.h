// Files on Windows.
#ifndef VANDPUBLIC_PLATFORM_WINDOWS_WINDOWS_FILES_H
#define VANDPUBLIC_PLATFORM_WINDOWS_WINDOWS_FILES_H

#include "platform/files.h"

namespace vandpublic {

// Paths go to the system as they are. Files are opened for full sharing, so that a log that
// somebody holds open still gets its entries, and are never inherited by child processes.
//
// Hidden and system files are hidden; a file with the read-only attribute is read-only, also where
// the user's rights would do (under Wine as the superuser). Pipes are refused (75), so that no open
// blocks; a device such as NUL can be written.
class WindowsFiles final : public Files {
 public:
  std::unique_ptr<OutputFile> Open(std::u16string_view path, OpenMode mode) override;
  std::string ReadAll(std::u16string_view path) override;
  std::unique_ptr<InputFile> OpenToRead(std::u16string_view path) override;
  void DeleteIfThere(std::u16string_view path) override;
  bool FindsNormalFile(std::u16string_view path) override;
  bool FindsFileOrFolder(std::u16string_view path) override;
};

}  // namespace vandpublic

#endif
