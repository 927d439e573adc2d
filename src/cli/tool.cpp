// Commands, exit statuses and the standard streams.
#include "cli/tool.h"

#include <cerrno>
#include <cstring>
#include <exception>
#include <new>

#include "cli/batch/batch_command.h"
#include "cli/call_command.h"
#include "cli/members_command.h"
#include "cli/pipe.h"
#include "cli/pipe_session.h"
#include "cli/system_commands.h"
#include "cli/system_streams.h"
#include "cli/version.h"
#include "platform/host_settings.h"

namespace vandpublic {
namespace {

constexpr int kUnusable = 2;

CommandResult RunPipeCommand(const CommandLine& line) {
  if (!line.words.empty()) throw UsageError("pipe takes no arguments");
  PipeSession session(ChosenPlatform(line));
  const int status = RunPipe(session, kStandardInput, kStandardOutput);
  if (status == 0) return {};
  return {status, "", "vandpublic: pipe: " + std::string(std::strerror(errno)) + "\n"};
}

CommandResult Run(const CommandLine& line) {
  if (line.Has("--help")) return {0, HelpText(line.command)};
  if (line.Has("--version")) return {0, "vandpublic " + std::string(kVersion) + "\n"};
  if (line.command == nullptr) return {kUnusable, "", HelpText(nullptr)};
  if (line.command->name == "pipe") return RunPipeCommand(line);
  if (line.command->name == "batch") return RunBatchCommand(line);
  if (line.command->name == "members") return RunMembers(line);
  if (auto result = RunSystemCommand(line)) return std::move(*result);
  return RunCall(line, ChosenPlatform(line));
}

CommandResult RunAndExplain(std::span<const char* const> arguments) {
  std::string help = "vandpublic --help";
  try {
    const CommandLine line = ParseCommandLine(arguments);
    if (line.command != nullptr) help = "vandpublic " + std::string(line.command->name) + " --help";
    return Run(line);
  } catch (const UsageError& error) {
    return {kUnusable, "", "vandpublic: " + std::string(error.what()) + "\nSee '" + help + "'.\n"};
  } catch (const std::bad_alloc&) {
    return {kUnusable, "", "vandpublic: out of memory\n"};
  } catch (const std::exception& error) {
    return {kUnusable, "", "vandpublic: " + std::string(error.what()) + "\n"};
  }
}

}  // namespace

std::shared_ptr<const Platform> ChosenPlatform(const CommandLine& line) {
  if (const auto wanted = line.Value("--codepage")) {
    const auto number = ParseDecimal(*wanted);
    if (!number || !SelectCodePage(*number)) {
      throw UsageError("there is no code page '" + *wanted +
                       "'; there are 874, 932, 936, 949, 950 and 1250 to 1258");
    }
  }
  if (const auto file = line.Value("--registry")) ChooseRegistryFile(*file);
  return SystemPlatform();
}

int RunTool(std::span<const char* const> arguments) {
  const ByteStreams streams;
  const CommandResult result = RunAndExplain(arguments);
  WriteAll(kStandardError, result.errors);
  if (WriteAll(kStandardOutput, result.output)) return result.status;
  WriteAll(kStandardError,
           "vandpublic: standard output: " + std::string(std::strerror(errno)) + "\n");
  return kUnusable;
}

}  // namespace vandpublic
