// Files that tables are kept in, read and written at any position without a buffer.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_DBF_REGULAR_FILE_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_DBF_REGULAR_FILE_H

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "platform/posix/descriptor.h"

namespace vandpublic::ado {

enum class FileAccess { Read, ReadAndWrite };

class RegularFile {
 public:
  // Permission denied, or another system error, for a file that cannot be opened so, or written
  // though nobody has the permission to; what is no regular file is "Not a table.".
  RegularFile(std::string path, FileAccess access);

  // Without the folder.
  std::string_view Name() const noexcept;
  std::uint64_t Size() const;

  // Up to size bytes from the position on: fewer only where the file ends.
  std::string Read(std::uint64_t position, std::size_t size) const;
  // The same into memory of the caller's; the number of bytes.
  std::size_t Read(std::uint64_t position, std::span<char> bytes) const;
  void Write(std::uint64_t position, std::string_view bytes) const;

  // Makes the file shorter; what fails is left to the next writer.
  void Truncate(std::uint64_t size) const noexcept;

  // Keeps other programs from writing or locking these bytes until the file is closed or Unlock is
  // called. Waits up to two seconds for others to finish; then "timed out".
  void Lock(std::uint64_t position, std::uint64_t size) const;
  void Unlock(std::uint64_t position, std::uint64_t size) const noexcept;

 private:
  std::string path_;
  Descriptor descriptor_;
};

}  // namespace vandpublic::ado

#endif
