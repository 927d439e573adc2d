// The plain lists that follow the table: one line a slot.
#ifndef VANDPUBLIC_TOOLS_GENERATE_MEMBER_LISTS_H
#define VANDPUBLIC_TOOLS_GENERATE_MEMBER_LISTS_H

#include <string>

namespace vandpublic::generate {

// members/member_ids.h: the enumeration that names each slot.
std::string MemberIds();

// invoke/bindings.inc: the late-bound call of each slot.
std::string Bindings();

}  // namespace vandpublic::generate

#endif
