// Reads the data files.
#include "support/test_data.h"

#include <fstream>
#include <sstream>
#include <stdexcept>

namespace vandpublic {

std::vector<std::string> ReadLines(const std::string& name) {
  std::ifstream file(std::string(VANDPUBLIC_TEST_DATA "/") + name);
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
