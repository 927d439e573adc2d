// Runs case files through one surface of the component.
//
//   case_runner --surface cpp [--case NAME] FILE...
//   case_runner --surface pipe --tool PATH [--case NAME] FILE...
//   case_runner --surface com --style STYLE [--case NAME] FILE...    (Windows)
//
// --skip-list LIST names a file with cases that this system cannot show: lines "NAME REASON".
//
// Prints each failing case with what was expected and what came, each skipped one with its reason,
// and a closing line with counts. Exit status 0 when all is well, 1 when a case failed, 2 when
// something cannot be read, 77 when every case was skipped.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <map>

#include "platform/code_page.h"
#include "runners/case_file.h"
#include "runners/expectation.h"
#include "runners/surface.h"
#include "support/temp_folder.h"

namespace vandpublic {
namespace {

namespace fs = std::filesystem;

struct Options {
  std::string surface;
  std::string argument;  // the tool's path, the style of the calls
  std::string only_case;
  std::map<std::string, std::string> elsewhere;  // cases that cannot run here, and why
  std::vector<std::string> files;
};

std::unique_ptr<Surface> MakeSurface(const Options& options, const Surroundings& surroundings) {
  if (options.surface == "cpp") return MakeCppSurface(surroundings);
  auto surface = MakeSystemSurface(options.surface, options.argument, surroundings);
  if (surface == nullptr) throw std::runtime_error("no surface '" + options.surface + "'");
  return surface;
}

std::string BytesOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

// Files and folders that the case wants to find; what surrounds the component then.
Surroundings Prepare(const Case& test, const fs::path& folder) {
  for (const std::string& name : test.folders)
    fs::create_directories(folder / name);
  for (const auto& [name, content] : test.files)
    std::ofstream(folder / name, std::ios::binary) << FileBytes(content, {folder.string(), {}});
  Surroundings surroundings;
  surroundings.code_page = test.code_page;
  if (!test.registry_file.empty()) {
    surroundings.registry_file = (folder / test.registry_file).string();
  }
  return surroundings;
}

std::string RunSteps(const Case& test, Surface& surface, const Places& places) {
  const Json settings[] = {
      {{"set", "LogFilePath"}, {"value", places.log_folder}},
      {{"set", "DebugMode"}, {"value", test.debug_mode}},
  };
  for (const Json& setting : settings) {
    const std::string problem = ReplyProblem(surface.Ask(setting), std::nullopt);
    if (!problem.empty()) return "before the first step: " + problem;
  }
  for (std::size_t i = 0; i < test.steps.size(); ++i) {
    const Step& step = test.steps[i];
    const Json reply = surface.Ask(Expanded(step.request, places));
    const auto expected =
        step.expected ? std::optional(Expanded(*step.expected, places)) : std::optional<Json>();
    const std::string problem = ReplyProblem(reply, expected);
    if (!problem.empty()) {
      return "step " + std::to_string(i + 1) + ": " + problem + "\n    request  " +
             Quoted(step.request.dump());
    }
  }
  return surface.Finish();
}

std::vector<std::vector<std::string>> ExpectedLog(const Case& test, const Places& places) {
  std::vector<std::vector<std::string>> entries;
  for (const auto& entry : test.log) {
    entries.emplace_back();
    for (const Json& line : entry)
      entries.back().push_back(Expanded(line, places).get<std::string>());
  }
  return entries;
}

// Files that must be in the log folder with their content, and whatever must not be there.
std::string FilesProblem(const Case& test, const Places& places) {
  const fs::path folder = places.log_folder;
  for (const auto& [name, content] : test.left) {
    if (!fs::exists(folder / name)) return "'" + name + "' should be there";
    const std::string expected = FileBytes(content, places);
    const std::string bytes = BytesOf(folder / name);
    if (bytes != expected) {
      return "'" + name + "' should hold " + Quoted(expected) + " and holds " + Quoted(bytes);
    }
  }
  for (const auto& found : fs::recursive_directory_iterator(folder)) {
    const std::string name = fs::relative(found.path(), folder).generic_string();
    const bool wanted =
        test.left.contains(name) || (!test.log.empty() && name == test.log_file) ||
        std::find(test.folders.begin(), test.folders.end(), name) != test.folders.end();
    if (!wanted) return "'" + name + "' should not be there";
  }
  return {};
}

std::string LogFileProblem(const Case& test, const Places& places, const std::string& earliest) {
  const std::string files = FilesProblem(test, places);
  if (!files.empty() || test.log.empty()) return files;
  const fs::path file = fs::path(places.log_folder) / test.log_file;
  if (!fs::exists(file)) return "log: no file was written";
  return LogProblem(BytesOf(file), ExpectedLog(test, places), *FindCodePage(test.code_page),
                    earliest, Now());
}

// What is wrong, or nothing. Raises CannotRunHere.
std::string RunCase(const Case& test, const Options& options) {
  try {
    const TempFolder folder;
    const Surroundings surroundings = Prepare(test, folder.path());
    const std::string earliest = Now();
    const auto surface = MakeSurface(options, surroundings);
    const Places places{folder.path().string(), surface->ComponentFolder()};
    const std::string problem = RunSteps(test, *surface, places);
    return problem.empty() ? LogFileProblem(test, places, earliest) : problem;
  } catch (const CannotRunHere&) {
    throw;
  } catch (const std::exception& error) {
    return error.what();
  }
}

// What became of the cases.
struct Counts {
  int passed = 0;
  int failed = 0;
  int skipped = 0;
};

void RunAndCount(const Case& test, const Options& options, Counts& counts) {
  std::string reason = test.RunsOn(options.surface) ? "" : test.skip_reason;
  const auto elsewhere_only = options.elsewhere.find(test.name);
  if (elsewhere_only != options.elsewhere.end()) reason = elsewhere_only->second;
  std::string problem;
  try {
    if (reason.empty()) problem = RunCase(test, options);
  } catch (const CannotRunHere& elsewhere) {
    reason = elsewhere.what();
  }
  if (!reason.empty()) {
    std::cout << "SKIPPED " << test.name << ": " << reason << "\n";
    ++counts.skipped;
  } else if (!problem.empty()) {
    std::cout << "FAILED " << test.name << ": " << problem << "\n";
    ++counts.failed;
  } else {
    ++counts.passed;
  }
}

int RunFiles(const Options& options) {
  Counts counts;
  for (const std::string& file : options.files) {
    for (const Case& test : ReadCaseFile(file)) {
      if (!options.only_case.empty() && test.name != options.only_case) continue;
      RunAndCount(test, options, counts);
    }
  }
  std::cout << options.surface << ": " << counts.passed << " passed, " << counts.failed
            << " failed, " << counts.skipped << " skipped\n";
  if (counts.failed > 0) return 1;
  if (counts.passed > 0) return 0;
  return counts.skipped > 0 ? 77 : 2;
}

std::map<std::string, std::string> ReadSkipList(const std::string& path) {
  std::map<std::string, std::string> reasons;
  std::ifstream file(path);
  if (!file) throw std::runtime_error(path + ": cannot be opened");
  for (std::string name, reason; file >> name && std::getline(file >> std::ws, reason);) {
    if (!name.starts_with("#")) reasons.emplace(name, reason);
  }
  return reasons;
}

Options ReadOptions(int argc, char** argv) {
  Options options;
  for (int i = 1; i < argc; ++i) {
    const std::string text = argv[i];
    const auto value = [&] { return i + 1 < argc ? std::string(argv[++i]) : std::string(); };
    if (text == "--surface") {
      options.surface = value();
    } else if (text == "--tool" || text == "--style") {
      options.argument = value();
    } else if (text == "--skip-list") {
      options.elsewhere = ReadSkipList(value());
    } else if (text == "--case") {
      options.only_case = value();
    } else {
      options.files.push_back(text);
    }
  }
  if (options.surface.empty() || options.files.empty()) {
    throw std::runtime_error(
        "usage: case_runner --surface cpp|pipe|com [--tool PATH | --style STYLE] [--case NAME] "
        "FILE...");
  }
  return options;
}

}  // namespace
}  // namespace vandpublic

int main(int argc, char** argv) {
  try {
    return vandpublic::RunFiles(vandpublic::ReadOptions(argc, argv));
  } catch (const std::exception& error) {
    std::cerr << error.what() << "\n";
    return 2;
  }
}
