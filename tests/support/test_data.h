// The data files below tests/data.
#ifndef VANDPUBLIC_TESTS_SUPPORT_TEST_DATA_H
#define VANDPUBLIC_TESTS_SUPPORT_TEST_DATA_H

#include <string>
#include <vector>

namespace vandpublic {

// The path of a data file or folder.
std::string SamplePath(const std::string& name);

// A whole file; throws std::runtime_error when there is none.
std::string ReadSample(const std::string& name);

// The lines of a data file without empty ones and those that start with "#". Throws
// std::runtime_error when there is no such file or nothing in it.
std::vector<std::string> ReadLines(const std::string& name);

// The same, each line split at blanks.
//
//   for (const auto& row : ReadTable("nist/variable_key.txt")) ... row[0], row[1]
std::vector<std::vector<std::string>> ReadTable(const std::string& name);

}  // namespace vandpublic

#endif
