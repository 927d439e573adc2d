// Memo files: where the long texts and bytes of a table are kept, in numbered blocks.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_DBF_MEMO_FILE_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_DBF_MEMO_FILE_H

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/posix/ado/dbf/dbf_layout.h"
#include "platform/posix/ado/dbf/regular_file.h"

namespace vandpublic::ado {

class MemoFile {
 public:
  MemoFile(const std::string& path, MemoKind kind, FileAccess access);

  // The content that starts at the block; "Memo file ... is invalid." where there is none.
  std::string Read(std::uint32_t block) const;

  // What the blocks hold, as the format marks it.
  enum class Content : std::uint32_t { Bytes = 0, Text = 1 };

  // Adds blocks behind all others and returns the number of the first one. Nothing that is there
  // is overwritten, so a reader sees the old content until the record points to the new one.
  // FoxPro's format only; opened for reading and writing. Locks the file while it writes.
  std::uint32_t Append(std::string_view content, Content kind) const;

 private:
  [[noreturn]] void Fail() const;
  std::uint32_t BlockSize() const;
  std::string ReadToEndMark(std::uint64_t position) const;
  std::string ReadCounted(std::uint64_t position, std::uint64_t length) const;

  RegularFile file_;
  MemoKind kind_;
  std::uint32_t block_size_;
};

}  // namespace vandpublic::ado

#endif
