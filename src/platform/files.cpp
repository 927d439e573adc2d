// What every adapter of the file port shares.
#include "platform/files.h"

namespace vandpublic {

void WriteFile(Files& files, std::u16string_view path, OpenMode mode, std::string_view bytes) {
  const std::unique_ptr<OutputFile> file = files.Open(path, mode);
  try {
    file->Write(bytes);
    file->Close();
  } catch (...) {
    file->GiveUp();
    throw;
  }
}

}  // namespace vandpublic
