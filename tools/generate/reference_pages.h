// The reference for users, from the member table.
#ifndef VANDPUBLIC_TOOLS_GENERATE_REFERENCE_PAGES_H
#define VANDPUBLIC_TOOLS_GENERATE_REFERENCE_PAGES_H

#include <string>
#include <vector>

namespace vandpublic::generate {

struct Page {
  std::string file_name;
  std::string text;
};

// docs/reference: members.md, errors.md.
std::vector<Page> ReferencePages();

}  // namespace vandpublic::generate

#endif
