// The enumeration of the slots and their late-bound calls.
#include "member_lists.h"

#include <sstream>

#include "class_header.h"
#include "members/member_table.h"

namespace vandpublic::generate {
namespace {

constexpr std::string_view kNotice =
    "// Generated from members/member_table.cpp by scripts/generate.sh; edit the table instead.\n";

std::string EnumeratorName(const MemberInfo& member) {
  const std::string name(member.name);
  if (member.kind == SlotKind::PropertyGet) return "Get" + name;
  return member.kind == SlotKind::PropertyPut ? "Put" + name : name;
}

}  // namespace

std::string MemberIds() {
  std::ostringstream out;
  out << "// The slots of the interface by name: the value is the index into MemberTable().\n"
      << kNotice
      << "#ifndef VANDPUBLIC_MEMBERS_MEMBER_IDS_H\n"
         "#define VANDPUBLIC_MEMBERS_MEMBER_IDS_H\n"
         "\n"
         "#include <cstdint>\n"
         "\n"
         "namespace vandpublic {\n"
         "\n"
         "enum class Member : std::uint8_t {\n";
  for (const MemberInfo& member : MemberTable())
    out << "  " << EnumeratorName(member) << ",\n";
  out << "};\n"
         "\n"
         "}  // namespace vandpublic\n"
         "\n"
         "#endif\n";
  return out.str();
}

std::string Bindings() {
  std::ostringstream out;
  out << "// One late-bound call a slot, in the order of the slots.\n" << kNotice;
  for (const MemberInfo& member : MemberTable()) {
    if (member.kind == SlotKind::PropertyGet) {
      out << "&Call<Getter<" << CppResult(member) << ">(&clsPublic::" << member.name << ")>,\n";
    } else if (member.kind == SlotKind::PropertyPut) {
      const std::string parameters = CppParameters(member);
      const std::string type = parameters.substr(0, parameters.rfind(' '));
      out << "&Call<Setter<" << type << ">(&clsPublic::" << member.name << ")>,\n";
    } else {
      out << "&Call<&clsPublic::" << member.name << ">,\n";
    }
  }
  return out.str();
}

}  // namespace vandpublic::generate
