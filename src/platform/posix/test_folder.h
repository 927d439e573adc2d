// For tests: a folder of their own that goes with them, and files in it.
#ifndef VANDPUBLIC_PLATFORM_POSIX_TEST_FOLDER_H
#define VANDPUBLIC_PLATFORM_POSIX_TEST_FOLDER_H

#include <gtest/gtest.h>
#include <stdlib.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace vandpublic {

class TestFolder {
 public:
  TestFolder() : path_(testing::TempDir() + "vandpublic-XXXXXX") {
    if (mkdtemp(path_.data()) == nullptr) throw std::runtime_error("no folder for the test");
  }
  TestFolder(const TestFolder&) = delete;
  TestFolder& operator=(const TestFolder&) = delete;
  ~TestFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  const std::string& path() const noexcept { return path_; }
  std::string File(std::string_view name) const { return path_ + '/' + std::string(name); }

  // Creates or replaces the bytes of a file; gives its full name.
  std::string Put(std::string_view name, std::string_view bytes) const {
    std::ofstream file(File(name), std::ios::binary | std::ios::trunc);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return File(name);
  }

  // "(missing)" for a file that cannot be opened.
  std::string Get(std::string_view name) const {
    std::ifstream file(File(name), std::ios::binary);
    if (!file) return "(missing)";
    return {std::istreambuf_iterator<char>(file), {}};
  }

  // All names, sorted, hidden ones too.
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(path_)) {
      names.push_back(entry.path().filename());
    }
    std::sort(names.begin(), names.end());
    return names;
  }

 private:
  std::string path_;
};

}  // namespace vandpublic

#endif
