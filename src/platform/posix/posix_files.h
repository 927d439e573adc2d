// Files on Linux.
#ifndef VANDPUBLIC_PLATFORM_POSIX_POSIX_FILES_H
#define VANDPUBLIC_PLATFORM_POSIX_POSIX_FILES_H

#include "platform/files.h"

namespace vandpublic {

// A file without any write permission is read-only for everybody, the superuser included, as it
// is where these programs come from. Pipes and sockets are refused (75), so that no open blocks.
class PosixFiles final : public Files {
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
