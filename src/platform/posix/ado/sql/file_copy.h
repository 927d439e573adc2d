// For tests: copies of sample files that may be changed.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_SQL_FILE_COPY_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_SQL_FILE_COPY_H

#include <string>
#include <vector>

namespace vandpublic::ado {

// A folder of its own, removed with all it holds when the object goes.
class TestFolder {
 public:
  // With copies of these files below tests/data.
  explicit TestFolder(const std::vector<std::string>& samples = {});
  TestFolder(const TestFolder&) = delete;
  TestFolder& operator=(const TestFolder&) = delete;
  ~TestFolder();

  const std::string& path() const noexcept { return path_; }
  // The path of a file in the folder.
  std::string File(const std::string& name) const { return path_ + "/" + name; }

  std::string Content(const std::string& name) const;
  void Write(const std::string& name, const std::string& content) const;

 private:
  std::string path_;
};

}  // namespace vandpublic::ado

#endif
