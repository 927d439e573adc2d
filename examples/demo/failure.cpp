// An error as a client catches it, and the log entries that it leaves.
#include <fstream>
#include <iostream>

#include "demo.h"

using vandpublic::AutomationError;
using vandpublic::clsPublic;
using vandpublic::String;

namespace {

void FailAndCatch(clsPublic& component) {
  String bad_key = "0123456789ABCDEFFEDCBA987654321G";
  String data = "0123456789ABCDE7";
  std::cout << "FstrDES3 with a key text that is not hexadecimal\n";
  Show("istr_Key", bad_key);
  try {
    component.FstrDES3(bad_key, data);
    std::cout << "    no error?\n";
  } catch (const AutomationError& error) {
    std::cout << "    caught: number " << error.number() << " (0x" << std::hex << std::uppercase
              << static_cast<unsigned>(error.number()) << std::dec << ")\n";
    Show("source     ", error.source());
    Show("description", error.description());
  }
  std::cout << '\n';
}

}  // namespace

void ShowFailure(clsPublic& component, const std::string& folder) {
  FailAndCatch(component);
  const std::string file_name = folder + "/LOG/ERROR.log";
  std::cout << "The error log, " << file_name << "\n";
  std::ifstream log(file_name);
  for (std::string line; std::getline(log, line);)
    std::cout << "    " << line << '\n';
}
