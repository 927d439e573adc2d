// The program.
#include "cli/system_streams.h"
#include "cli/tool.h"

int main(int argc, char** argv) {
  const std::vector<std::string> words = vandpublic::CommandLineWords(argc, argv);
  std::vector<const char*> arguments;
  for (const std::string& word : words)
    arguments.push_back(word.c_str());
  return vandpublic::RunTool(arguments);
}
