// The component's main job as a client sees it: encipher, decipher, fail, look a value up in a
// database, read the log.
//
//   demo FOLDER    the log is written to FOLDER/LOG, the database to FOLDER
#include <vandpublic/clsPublic.h>

#include <fstream>
#include <iostream>
#include <string>

#include "databases.h"

using vandpublic::AutomationError;
using vandpublic::clsPublic;
using vandpublic::Integer;
using vandpublic::String;

namespace {

void Show(const std::string& what, const String& value) {
  std::cout << "    " << what << " = \"" << value.ToUtf8() << "\"\n";
}

// Display text holds a blank after every byte; FstrUDES3 takes it as it is.
String Encipher(clsPublic& component, String key, String data) {
  Integer length = 0;
  std::cout << "FstrDES3(istr_Key, istr_Src, iDataLen)   two-key triple DES\n";
  Show("istr_Key", key);
  Show("istr_Src", data);
  String result = component.FstrDES3(key, data, length);
  Show("-> result  ", result);
  std::cout << "    -> iDataLen   = " << length << "   (by reference: the bytes enciphered)\n\n";
  return result;
}

void Decipher(clsPublic& component, String key, String data) {
  Integer length = 0;
  std::cout << "FstrUDES3(istr_Key, istr_Src, iDataLen)\n";
  const String result = component.FstrUDES3(key, data, length);
  Show("-> result  ", result);
  Show("-> istr_Src", data);
  std::cout << "    (by reference: the member removed the blanks)\n\n";
}

void FailAndCatch(clsPublic& component, String data) {
  String bad_key = "0123456789ABCDEFFEDCBA987654321G";
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

void ShowLog(const std::string& file_name) {
  std::cout << "The error log, " << file_name << "\n";
  std::ifstream log(file_name);
  for (std::string line; std::getline(log, line);)
    std::cout << "    " << line << '\n';
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: demo FOLDER\n";
    return 2;
  }
  const std::string folder = argv[1];
  clsPublic component;
  component.Init(folder);
  std::cout << "clsPublic created, Init(\"" << folder << "\")\n";
  Show("LogFileFullName", component.LogFileFullName());
  std::cout << '\n';

  const String key = "0123456789ABCDEFFEDCBA9876543210";
  const String data = "0123456789ABCDE7";
  const String enciphered = Encipher(component, key, data);
  Decipher(component, key, enciphered);
  FailAndCatch(component, data);
  const bool databases_work = ShowDatabases(component, folder);
  ShowLog(folder + "/LOG/ERROR.log");
  return databases_work ? 0 : 1;
}
