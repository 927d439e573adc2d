// Turns each slot into a method of the dual interface.
#include "interface_idl.h"

#include <sstream>

#include "members/identity.h"
#include "members/member_table.h"
#include "members/member_text.h"
#include "runtime/utf8.h"

namespace vandpublic::generate {
namespace {

// No parameter has this name in any case: a type library keeps one spelling of each name.
constexpr std::string_view kReturned = "returned";

constexpr std::string_view kHead = R"idl(// The component's type library.
//
// Generated from members/member_table.cpp by scripts/generate.sh; edit the table, not this file.
//
// Database objects are plain IDispatch references, so that any version of ADO and any stand-in
// fits. Byte arrays may have any lower bound. A by-reference text or variant that is optional has
// no default value here: an omitted one reads as "" or as the default in docs/reference.
import "oaidl.idl";

)idl";

// The type as a parameter by value; `cpp` asks for the spelling of the C++ header.
std::string TypeText(InterfaceType type, bool cpp) {
  switch (type) {
    case InterfaceType::Boolean:
      return "VARIANT_BOOL";
    case InterfaceType::Byte:
      return "unsigned char";
    case InterfaceType::Integer:
      return "short";
    case InterfaceType::Long:
    case InterfaceType::LockType:  // an enumeration of ADO's library
      return cpp ? "LONG" : "long";
    case InterfaceType::String:
      return "BSTR";
    case InterfaceType::Variant:
      return "VARIANT";
    case InterfaceType::ByteArray:
    case InterfaceType::ByteTable:
      return cpp ? "SAFEARRAY*" : "SAFEARRAY(unsigned char)";
    case InterfaceType::ErrObject:
    case InterfaceType::Connection:
    case InterfaceType::Recordset:
    case InterfaceType::Field:
      return "IDispatch*";
    default:
      // The library's enumerations stand outside of the component's own namespace.
      return (cpp ? "::" : "") + std::string(TypeName(type));
  }
}

// A default that has a name in the library stands there by its name: the C++ header needs it.
std::string NumberText(const Parameter& parameter) {
  const Enumeration* const enumeration = FindEnumeration(parameter.type);
  const std::int32_t number = parameter.default_value.number;
  if (enumeration != nullptr && parameter.type != InterfaceType::LockType) {
    for (const EnumerationValue& value : enumeration->values) {
      if (value.value == number) return std::string(value.name);
    }
  }
  return std::to_string(number);
}

// "defaultvalue(-1)" where a default can stand in the library.
std::string DefaultAttribute(const Parameter& parameter) {
  const DefaultValue& value = parameter.default_value;
  switch (value.kind) {
    case DefaultValue::Kind::Number:
      if (parameter.type == InterfaceType::Variant) return {};
      return ", defaultvalue(" + NumberText(parameter) + ")";
    case DefaultValue::Kind::Truth:
      return value.number != 0 ? ", defaultvalue(-1)" : ", defaultvalue(0)";
    case DefaultValue::Kind::Text:
      // The compiler refuses a text for a BSTR*; all of these are "" anyway.
      return parameter.by_reference ? "" : ", defaultvalue(\"" + ToUtf8(value.text) + "\")";
    default:
      return {};
  }
}

std::string IdlParameter(const Parameter& parameter) {
  std::string text = parameter.by_reference ? "[in, out" : "[in";
  if (parameter.IsOptional()) text += ", optional" + DefaultAttribute(parameter);
  text += "] " + TypeText(parameter.type, false);
  if (parameter.by_reference) text += "*";
  return text + " " + std::string(parameter.name);
}

std::string FirstSentence(std::string_view text) {
  const std::size_t end = text.find(". ");
  return std::string(end == text.npos ? text : text.substr(0, end + 1));
}

std::string Escaped(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    if (c == '"' || c == '\\') escaped += '\\';
    escaped += c;
  }
  return escaped;
}

void WriteMethod(std::ostream& out, const MemberInfo& member, std::size_t slot) {
  out << "    [id(" << DispatchId(slot) << ")";
  if (member.kind == SlotKind::PropertyGet) out << ", propget";
  if (member.kind == SlotKind::PropertyPut) out << ", propput";
  const std::string help = FirstSentence(member.does);
  if (!help.empty()) out << ",\n     helpstring(\"" << Escaped(help) << "\")";
  out << "]\n    HRESULT " << member.name << "(";
  std::string separator = "\n      ";
  for (const Parameter& parameter : member.parameters) {
    out << separator << IdlParameter(parameter);
    separator = ",\n      ";
  }
  if (member.result != InterfaceType::None) {
    out << separator << "[out, retval] " << TypeText(member.result, false) << "* " << kReturned;
  }
  out << ");\n";
}

void WriteEnumeration(std::ostream& out, const Enumeration& enumeration) {
  out << "  typedef [public] enum " << enumeration.name << " {\n";
  for (const EnumerationValue& value : enumeration.values) {
    out << "    " << value.name << " = " << value.value
        << (&value == &enumeration.values.back() ? "\n" : ",\n");
  }
  out << "  } " << enumeration.name << ";\n\n";
}

std::string CppFunctionName(const MemberInfo& member) {
  const std::string name(member.name);
  if (member.kind == SlotKind::PropertyGet) return "get_" + name;
  return member.kind == SlotKind::PropertyPut ? "put_" + name : name;
}

// The text as lines of at most 100 columns, broken behind commas.
void WriteFolded(std::ostream& out, std::string text) {
  constexpr std::size_t kColumns = 100;
  while (text.size() > kColumns) {
    const std::size_t comma = text.rfind(", ", kColumns - 1);
    out << text.substr(0, comma + 1) << '\n';
    text = "    " + text.substr(comma + 2);
  }
  out << text << '\n';
}

void WriteFunction(std::ostream& out, const MemberInfo& member, std::size_t slot) {
  std::string parameters;
  std::string passed;
  for (const Parameter& parameter : member.parameters) {
    if (!parameters.empty()) parameters += ", ";
    parameters += TypeText(parameter.type, true) + (parameter.by_reference ? "* " : " ") +
                  std::string(parameter.name);
    passed += ", " + std::string(parameter.name);
  }
  std::string result = "nullptr";
  if (member.result != InterfaceType::None) {
    if (!parameters.empty()) parameters += ", ";
    parameters += TypeText(member.result, true) + "* " + std::string(kReturned);
    result = kReturned;
  }
  WriteFolded(out, "HRESULT STDMETHODCALLTYPE " + CppFunctionName(member) + "(" + parameters +
                       ") override {");
  WriteFolded(out, "  return CallTyped(" + std::to_string(slot) + ", " + result + passed + ");");
  out << "}\n";
}

}  // namespace

std::string InterfaceIdl() {
  std::ostringstream out;
  out << kHead << "[uuid(" << kLibraryId << "), version(1.0),\n helpstring(\""
      << kLibraryDescription << "\")]\nlibrary " << kLibraryName << "\n{\n"
      << "  importlib(\"stdole2.tlb\");\n\n";
  for (const Enumeration& enumeration : Enumerations()) {
    if (enumeration.type != InterfaceType::LockType) WriteEnumeration(out, enumeration);
  }
  out << "  [odl, uuid(" << kInterfaceId
      << "), version(1.0), hidden, dual,\n   nonextensible, oleautomation]\n  interface "
      << kInterfaceName << " : IDispatch {\n";
  std::size_t slot = 0;
  for (const MemberInfo& member : MemberTable())
    WriteMethod(out, member, slot++);
  out << "  };\n\n  [uuid(" << kClassId << "), version(1.0),\n   helpstring(\""
      << kLibraryDescription << "\")]\n  coclass " << kClassName << " {\n    [default] interface "
      << kInterfaceName << ";\n  };\n};\n";
  return out.str();
}

std::string VtableMembers() {
  std::ostringstream out;
  out << "// The functions of the dual interface: each hands its slot and arguments on.\n"
         "// Generated from members/member_table.cpp by scripts/generate.sh; edit the table "
         "instead.\n";
  std::size_t slot = 0;
  for (const MemberInfo& member : MemberTable())
    WriteFunction(out, member, slot++);
  return out.str();
}

}  // namespace vandpublic::generate
