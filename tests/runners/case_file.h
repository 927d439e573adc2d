// Test cases as data: files of tests/cases, described in its README.md.
#ifndef VANDPUBLIC_TESTS_RUNNERS_CASE_FILE_H
#define VANDPUBLIC_TESTS_RUNNERS_CASE_FILE_H

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "cli/json_text.h"

namespace vandpublic {

struct Step {
  Json request;
  std::optional<Json> expected;  // nothing: the step must succeed
};

struct Case {
  std::string name;
  int code_page = 1252;
  int debug_mode = 1;
  std::vector<Step> steps;
  std::vector<std::vector<Json>> log;      // the entries, each a list of lines
  std::string log_file = "ERROR.log";      // where they are, below the log folder
  std::vector<std::string> folders;        // made below the log folder beforehand
  std::map<std::string, Json> files;       // made there beforehand, with their content
  std::map<std::string, Json> left;        // which of them, and others, must be there afterwards
  std::string registry_file = {};          // one of them, instead of the system's registry
  std::vector<std::string> surfaces = {};  // empty: all
  std::string skip_reason = {};            // why it is skipped, everywhere or elsewhere

  bool RunsOn(const std::string& surface) const;
};

// Reads a file. Raises std::runtime_error, which names file and case, for anything that is not as
// the format says: a key that is not known could otherwise leave something unchecked.
std::vector<Case> ReadCaseFile(const std::string& path);

// What the placeholders in a case stand for.
struct Places {
  std::string log_folder;
  std::string component_folder;
};

// The bytes of a file: a text in UTF-8, or {"$hex":"0D0A"}.
std::string FileBytes(const Json& content, const Places& places);

// The value with {"$repeat":[text,count]}, {"$concat":[text,...]}, {"$log_folder":true} and
// {"$component_folder":true} replaced by the texts that they stand for.
Json Expanded(const Json& value, const Places& places);

}  // namespace vandpublic

#endif
