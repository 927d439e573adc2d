// Runs case files through one surface of the component.
//
//   case_runner --surface cpp [--case NAME] FILE...
//   case_runner --surface pipe --tool PATH [--case NAME] FILE...
//
// Prints each failing case with what was expected and what came, each skipped one with its reason,
// and a closing line with counts. Exit status 0 when all is well, 1 when a case failed, 2 when
// something cannot be read, 77 when every case was skipped.
#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

#include "platform/posix/code_pages.h"
#include "runners/case_file.h"
#include "runners/expectation.h"
#include "runners/surface.h"

namespace vandpublic {
namespace {

namespace fs = std::filesystem;

struct Options {
  std::string surface;
  std::string tool;
  std::string only_case;
  std::vector<std::string> files;
};

// A folder of our own that is gone when the case is over.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string pattern = (fs::temp_directory_path() / "vandpublic-case-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
    path_ = pattern;
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
  }
  const fs::path& path() const { return path_; }

 private:
  fs::path path_;
};

std::unique_ptr<Surface> MakeSurface(const Options& options, int code_page) {
  if (options.surface == "cpp") return MakeCppSurface(code_page);
  return MakePipeSurface(options.tool, code_page);
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

// Whatever the component made in the log folder besides the log file.
std::string StrayProblem(const Case& test, const fs::path& folder) {
  for (const auto& found : fs::recursive_directory_iterator(folder)) {
    const std::string name = fs::relative(found.path(), folder).string();
    const bool made_before =
        std::find(test.folders.begin(), test.folders.end(), name) != test.folders.end();
    const bool is_log = !test.log.empty() && name == test.log_file;
    if (!made_before && !is_log) return "log: '" + name + "' should not be there";
  }
  return {};
}

std::string LogFileProblem(const Case& test, const Places& places, const std::string& earliest) {
  const std::string stray = StrayProblem(test, places.log_folder);
  if (!stray.empty()) return stray;
  if (test.log.empty()) return {};
  std::ifstream file(fs::path(places.log_folder) / test.log_file, std::ios::binary);
  if (!file) return "log: no file was written";
  const std::string bytes{std::istreambuf_iterator<char>(file), {}};
  return LogProblem(bytes, ExpectedLog(test, places), *FindCodePage(test.code_page), earliest,
                    Now());
}

std::string RunCase(const Case& test, const Options& options) {
  try {
    const TemporaryFolder folder;
    for (const std::string& name : test.folders)
      fs::create_directories(folder.path() / name);
    const std::string earliest = Now();
    const auto surface = MakeSurface(options, test.code_page);
    const Places places{folder.path().string(), surface->ComponentFolder()};
    const std::string problem = RunSteps(test, *surface, places);
    return problem.empty() ? LogFileProblem(test, places, earliest) : problem;
  } catch (const std::exception& error) {
    return error.what();
  }
}

int RunFiles(const Options& options) {
  int passed = 0;
  int failed = 0;
  int skipped = 0;
  for (const std::string& file : options.files) {
    for (const Case& test : ReadCaseFile(file)) {
      if (!options.only_case.empty() && test.name != options.only_case) continue;
      if (!test.RunsOn(options.surface)) {
        std::cout << "SKIPPED " << test.name << ": " << test.skip_reason << "\n";
        ++skipped;
        continue;
      }
      const std::string problem = RunCase(test, options);
      if (!problem.empty()) std::cout << "FAILED " << test.name << ": " << problem << "\n";
      ++(problem.empty() ? passed : failed);
    }
  }
  std::cout << options.surface << ": " << passed << " passed, " << failed << " failed, " << skipped
            << " skipped\n";
  if (failed > 0) return 1;
  if (passed > 0) return 0;
  return skipped > 0 ? 77 : 2;
}

Options ReadOptions(int argc, char** argv) {
  Options options;
  for (int i = 1; i < argc; ++i) {
    const std::string text = argv[i];
    const auto value = [&] { return i + 1 < argc ? std::string(argv[++i]) : std::string(); };
    if (text == "--surface") {
      options.surface = value();
    } else if (text == "--tool") {
      options.tool = value();
    } else if (text == "--case") {
      options.only_case = value();
    } else {
      options.files.push_back(text);
    }
  }
  const bool known_surface =
      options.surface == "cpp" || (options.surface == "pipe" && !options.tool.empty());
  if (!known_surface || options.files.empty()) {
    throw std::runtime_error(
        "usage: case_runner --surface cpp|pipe [--tool PATH] [--case NAME] FILE...");
  }
  return options;
}

}  // namespace
}  // namespace vandpublic

int main(int argc, char** argv) {
  std::signal(SIGPIPE, SIG_IGN);  // a tool that ends early is a failing case
  try {
    return vandpublic::RunFiles(vandpublic::ReadOptions(argc, argv));
  } catch (const std::exception& error) {
    std::cerr << error.what() << "\n";
    return 2;
  }
}
