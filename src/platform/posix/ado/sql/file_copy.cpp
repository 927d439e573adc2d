// Folders for tests.
#include "platform/posix/ado/sql/file_copy.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "platform/posix/ado/sql/expected_rows.h"

namespace vandpublic::ado {

TestFolder::TestFolder(const std::vector<std::string>& samples) {
  std::string name = testing::TempDir() + "/vandpublic-XXXXXX";
  EXPECT_NE(mkdtemp(name.data()), nullptr);
  path_ = name;
  for (const std::string& sample : samples) {
    Write(sample.substr(sample.find_last_of('/') + 1), FileContent(SamplePath(sample)));
  }
}

TestFolder::~TestFolder() {
  std::error_code error;
  std::filesystem::remove_all(path_, error);
}

std::string TestFolder::Content(const std::string& name) const { return FileContent(File(name)); }

void TestFolder::Write(const std::string& name, const std::string& content) const {
  std::ofstream file(File(name), std::ios::binary | std::ios::trunc);
  file << content;
  EXPECT_TRUE(file.good()) << File(name);
}

}  // namespace vandpublic::ado
