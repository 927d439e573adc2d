// Temporary folders.
#include "support/temp_folder.h"

#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>

#include "runtime/utf8.h"
#include "support/test_data.h"

namespace vandpublic {

TempFolder::TempFolder() {
  const std::filesystem::path parent = std::filesystem::temp_directory_path();
  std::random_device random;
  constexpr int kTries = 100;
  for (int i = 0; i < kTries; ++i) {
    path_ = parent / ("vandpublic-test-" + std::to_string(random()));
    if (std::filesystem::create_directory(path_)) return;
  }
  throw std::runtime_error("no temporary folder");
}

TempFolder::TempFolder(const std::vector<std::string>& samples) : TempFolder() {
  for (const std::string& sample : samples)
    Write(sample.substr(sample.find_last_of('/') + 1), ReadSample(sample));
}

TempFolder::~TempFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

std::u16string TempFolder::Inside(std::string_view name) const {
  return (path_ / name).u16string();
}

void TempFolder::Write(std::string_view name, std::string_view bytes) const {
  std::ofstream file(path_ / name, std::ios::binary);
  file << bytes;
  if (!file.flush()) throw std::runtime_error("cannot write a test file");
}

std::string TempFolder::WriteScript(std::string_view name, std::string_view commands) const {
  Write(name, std::string("#!/bin/sh\nPATH=/usr/bin:/bin\n").append(commands).append("\n"));
  std::filesystem::permissions(path_ / name, std::filesystem::perms::owner_all);
  return (path_ / name).string();
}

std::string TempFolder::Read(std::string_view name) const {
  std::ifstream file(path_ / name, std::ios::binary);
  if (!file) return "<none>";
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace vandpublic
