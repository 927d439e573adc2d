// Checks a registry file with the reader that the component itself uses.
#include "cli/registry_command.h"

#include <sys/stat.h>

#include <cerrno>
#include <cstring>
#include <vector>

#include "cli/suggestion.h"
#include "cli/tool.h"
#include "platform/posix/registry_file.h"
#include "platform/posix/registry_text.h"
#include "platform/posix/whole_file.h"

namespace vandpublic {
namespace {

std::string ChosenFile(const CommandLine& line) {
  if (line.words.size() == 2) return line.words[1];
  return line.Value("--registry").value_or(kRegistryFilePath);
}

// Why the component finds no value in a file that it cannot read.
std::string ReadProblem(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0) return std::strerror(errno);
  if (!S_ISREG(status.st_mode)) return "is no regular file";
  if (static_cast<std::size_t>(status.st_size) > kRegistryFileLimit) {
    return "is larger than " + std::to_string(kRegistryFileLimit >> 20) + " MB";
  }
  return "cannot be read";
}

}  // namespace

CommandResult RunRegistry(const CommandLine& line) {
  if (line.words.empty()) throw UsageError("registry needs what to do: check");
  if (line.words[0] != "check") {
    const std::vector<std::string_view> known = {"check"};
    throw UsageError("registry cannot '" + line.words[0] + "'" + DidYouMean(line.words[0], known));
  }
  if (line.words.size() > 2) throw UsageError("registry check takes one file");

  const auto platform = ChosenPlatform(line);
  const std::string path = ChosenFile(line);
  FileCalls calls;
  const auto file = ReadFile(calls, path, kRegistryFileLimit);
  if (!file) return {2, "", "vandpublic: " + path + ": " + ReadProblem(path) + "\n"};
  CommandResult result;
  for (const RegistryDiagnostic& problem : CheckRegistryText(file->bytes, *platform->code_page)) {
    result.output += path + ":" + std::to_string(problem.line) + ": " + problem.message + "\n";
  }
  result.status = result.output.empty() ? 0 : 1;
  if (result.output.empty()) result.output = path + ": no problem\n";
  return result;
}

}  // namespace vandpublic
