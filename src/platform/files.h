// The port for files: sequential texts, and binary files that are read in pieces. Paths are the
// caller's texts; a "\" in them separates folders.
#ifndef VANDPUBLIC_PLATFORM_FILES_H
#define VANDPUBLIC_PLATFORM_FILES_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "runtime/basic_types.h"

namespace vandpublic {

enum class OpenMode {
  Output,  // creates the file or empties it; a hidden one that exists is refused with fault 75
  Append,  // creates the file or writes at its end
  Binary,  // creates the file or writes over it from its start on, leaving what is behind
};

// An open file. Its faults are those of the classic runtime: 57, 61 and the like.
class OutputFile {
 public:
  // Closes the file, unless Close or GiveUp came first.
  virtual ~OutputFile() = default;

  virtual void Write(std::string_view bytes) = 0;
  // Everything written is handed to the system; a full device shows here at the latest.
  virtual void Close() = 0;
  // Leaves the handle open for the rest of the process.
  virtual void GiveUp() noexcept = 0;
};

// A file that is being read. Its faults are those of OutputFile.
class InputFile {
 public:
  // Closes the file.
  virtual ~InputFile() = default;

  // The bytes the file has now.
  virtual std::int64_t Size() = 0;
  // Reads the next bytes, fewer than asked for at the end only; how many.
  virtual std::size_t Read(std::span<Byte> bytes) = 0;
};

class Files {
 public:
  virtual ~Files() = default;

  // Faults: 52 a name with "*", "?" or a zero character, or one that is too long; 67 no handle
  // left; 70 locked; 75 a folder, a read-only file, an empty name; 76 no such folder.
  virtual std::unique_ptr<OutputFile> Open(std::u16string_view path, OpenMode mode) = 0;

  // The whole file. Faults as in Open, and 53 where there is no such file. A file that fails after
  // it was opened is given up, as in WriteFile.
  virtual std::string ReadAll(std::u16string_view path) = 0;

  // Opens a file to read it from its start. Faults as in ReadAll.
  virtual std::unique_ptr<InputFile> OpenToRead(std::u16string_view path) = 0;

  // Removes the ordinary file of exactly this name, hidden or not, where there is one; a folder is
  // left alone. Faults: 52 as in Open; 70 a read-only file; 75 no right to remove it.
  virtual void DeleteIfThere(std::u16string_view path) = 0;

  // Whether the path names an ordinary file: no folder, not hidden. "*" and "?" in the last part
  // match any such file there; a path that ends in a separator stands for any file in the folder.
  virtual bool FindsNormalFile(std::u16string_view path) = 0;

  // The same for ordinary files and folders, hidden ones too. A path that ends in a separator
  // stands for the folder itself.
  virtual bool FindsFileOrFolder(std::u16string_view path) = 0;
};

// Opens, writes and closes. A file whose write fails after it was opened is not closed: its handle
// is given up, on purpose, as clients of these files have always had it.
void WriteFile(Files& files, std::u16string_view path, OpenMode mode, std::string_view bytes);

}  // namespace vandpublic

#endif
