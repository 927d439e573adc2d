// Reads the data files.
#include "support/test_data.h"

#include <fstream>
#include <sstream>
#include <stdexcept>

namespace vandpublic {

std::vector<std::vector<std::string>> ReadTable(const std::string& name) {
  std::ifstream file(std::string(VANDPUBLIC_TEST_DATA "/") + name);
  std::vector<std::vector<std::string>> rows;
  for (std::string line; std::getline(file, line);) {
    if (line.empty() || line.front() == '#') continue;
    std::istringstream words(line);
    std::vector<std::string>& row = rows.emplace_back();
    for (std::string word; words >> word;)
      row.push_back(word);
  }
  if (rows.empty()) throw std::runtime_error("no data in " + name);
  return rows;
}

}  // namespace vandpublic
