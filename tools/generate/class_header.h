// The declaration of clsPublic from the member table.
#ifndef VANDPUBLIC_TOOLS_GENERATE_CLASS_HEADER_H
#define VANDPUBLIC_TOOLS_GENERATE_CLASS_HEADER_H

#include <string>

#include "members/member_table.h"

namespace vandpublic::generate {

// The whole of frame/clsPublic.h.
std::string ClassHeader();

// A member's C++ result type and parameter list with defaults: "String", "const String& a, ...".
std::string CppResult(const MemberInfo& member);
std::string CppParameters(const MemberInfo& member);

}  // namespace vandpublic::generate

#endif
