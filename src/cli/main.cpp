// The program.
#include "cli/tool.h"

int main(int argc, char** argv) {
  const std::span<const char* const> arguments(argv, static_cast<std::size_t>(argc));
  return vandpublic::RunTool(arguments.subspan(arguments.empty() ? 0 : 1));
}
