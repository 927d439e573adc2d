// The component's main jobs as a client sees them: encipher, decipher, manage keys, look a value
// up in a database, fail, read the log.
//
//   demo FOLDER    the log is written to FOLDER/LOG, the database to FOLDER
#include <iostream>

#include "demo.h"

void Show(const std::string& what, const vandpublic::String& value) {
  std::cout << "    " << what << " = \"" << value.ToUtf8() << "\"\n";
}

void Show(vandpublic::clsPublic& component, const std::string& what, vandpublic::ByteArray& bytes) {
  Show(what, component.DispBytes(bytes));
}

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: demo FOLDER\n";
    return 2;
  }
  const std::string folder = argv[1];
  vandpublic::clsPublic component;
  component.Init(folder);
  std::cout << "clsPublic created, Init(\"" << folder << "\")\n";
  Show("LogFileFullName", component.LogFileFullName());
  std::cout << '\n';

  ShowCiphers(component);
  ShowKeys(component);
  const bool databases_work = ShowDatabases(component, folder);
  ShowFailure(component, folder);
  return databases_work ? 0 : 1;
}
