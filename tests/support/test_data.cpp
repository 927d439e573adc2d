// Reads the data files.
#include "support/test_data.h"

#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>

namespace vandpublic {

std::string SamplePath(const std::string& name) { return VANDPUBLIC_TEST_DATA "/" + name; }

std::string ReadSample(const std::string& name) {
  std::ifstream file(SamplePath(name), std::ios::binary);
  if (!file) throw std::runtime_error("no data file " + name);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> ReadLines(const std::string& name) {
  std::ifstream file(SamplePath(name));
  std::vector<std::string> lines;
  for (std::string line; std::getline(file, line);) {
    if (!line.empty() && line.front() != '#') lines.push_back(line);
  }
  if (lines.empty()) throw std::runtime_error("no data in " + name);
  return lines;
}

std::vector<std::vector<std::string>> ReadTable(const std::string& name) {
  std::vector<std::vector<std::string>> rows;
  for (const std::string& line : ReadLines(name)) {
    std::istringstream words(line);
    std::vector<std::string>& row = rows.emplace_back();
    for (std::string word; words >> word;)
      row.push_back(word);
  }
  return rows;
}

}  // namespace vandpublic
