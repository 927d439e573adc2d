// Writes the files that follow from the member table: the class declaration, the Member
// enumeration, the list of late-bound calls, the type library's source, the vtable's functions and
// the reference pages.
//
//   vandpublic-generate SOURCE_FOLDER    writes them in place
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>

#include "class_header.h"
#include "interface_idl.h"
#include "member_lists.h"
#include "reference_pages.h"

namespace {

// Leaves a file that is current untouched, so that nothing is rebuilt for it.
void WriteIfChanged(const std::filesystem::path& path, const std::string& text) {
  std::ifstream current(path, std::ios::binary);
  const std::string old{std::istreambuf_iterator<char>(current), {}};
  if (current.is_open() && old == text) return;
  std::filesystem::create_directories(path.parent_path());
  std::ofstream out(path, std::ios::binary);
  out << text;
  out.close();
  if (!out) throw std::runtime_error("cannot write " + path.string());
  std::cout << "wrote " << path.string() << '\n';
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: vandpublic-generate SOURCE_FOLDER\n";
    return 2;
  }
  using namespace vandpublic::generate;
  const std::filesystem::path root = argv[1];
  try {
    WriteIfChanged(root / "src/frame/clsPublic.h", ClassHeader());
    WriteIfChanged(root / "src/members/member_ids.h", MemberIds());
    WriteIfChanged(root / "src/invoke/bindings.inc", Bindings());
    WriteIfChanged(root / "src/com/public_module.idl", InterfaceIdl());
    WriteIfChanged(root / "src/com/vtable_members.inc", VtableMembers());
    for (const Page& page : ReferencePages()) {
      WriteIfChanged(root / "docs/reference" / page.file_name, page.text);
    }
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
  return 0;
}
