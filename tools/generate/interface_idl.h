// The interface in the language of type libraries, and its functions in C++, from the member table.
#ifndef VANDPUBLIC_TOOLS_GENERATE_INTERFACE_IDL_H
#define VANDPUBLIC_TOOLS_GENERATE_INTERFACE_IDL_H

#include <string>

namespace vandpublic::generate {

// com/public_module.idl: library, enumerations, the dual interface and the class.
std::string InterfaceIdl();

// com/vtable_members.inc: the 78 functions that vtable clients call, in the order of the slots.
std::string VtableMembers();

}  // namespace vandpublic::generate

#endif
