// Uses the installed headers and library: one result, one error, one log entry.
#include <vandpublic/clsPublic.h>

#include <fstream>
#include <iostream>
#include <string>

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  vandpublic::clsPublic component;
  component.Init(std::string(argv[1]));
  component.LogFileName("consumer.log");
  vandpublic::String key = "0123456789ABCDEFFEDCBA9876543210";
  vandpublic::String data = "0123456789ABCDE7";
  if (!(component.FstrDES3(key, data) == "7F 1D 0A 77 82 6B 8A FF ")) return 1;
  try {
    component.HexToDec("G");
    return 1;
  } catch (const vandpublic::AutomationError& error) {
    if (error.number() != static_cast<vandpublic::Long>(0x80040013u)) return 1;
  }
  std::ifstream log(std::string(argv[1]) + "/LOG/consumer.log");
  const std::string text{std::istreambuf_iterator<char>(log), {}};
  if (text.find("VandPublic.clsCommon.HexToDec\r\n") == std::string::npos) return 1;
  std::cout << "ok\n";
  return 0;
}
