// A folder of its own for a test that needs real files.
#ifndef VANDPUBLIC_TESTS_SUPPORT_TEMP_FOLDER_H
#define VANDPUBLIC_TESTS_SUPPORT_TEMP_FOLDER_H

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace vandpublic {

// Made empty below the system's folder for such things; removed with all it holds at the end.
class TempFolder {
 public:
  TempFolder();
  // With copies of these files below tests/data.
  explicit TempFolder(const std::vector<std::string>& samples);
  ~TempFolder();
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  const std::filesystem::path& path() const noexcept { return path_; }
  // The path of something inside, as the members take it.
  std::u16string Inside(std::string_view name) const;
  std::string File(std::string_view name) const { return (path_ / name).string(); }

  void Write(std::string_view name, std::string_view bytes) const;
  // Writes an executable script for /bin/sh that finds the usual tools. Its path.
  std::string WriteScript(std::string_view name, std::string_view commands) const;
  // The bytes of a file, or "<none>" when there is no such file.
  std::string Read(std::string_view name) const;

 private:
  std::filesystem::path path_;
};

}  // namespace vandpublic

#endif
