// Turns each slot into a documented C++ declaration.
#include "class_header.h"

#include <sstream>

#include "members/member_text.h"
#include "runtime/utf8.h"

namespace vandpublic::generate {
namespace {

constexpr std::size_t kColumns = 100;

constexpr std::string_view kHead = R"(// clsPublic: the component's one class, with all its members.
//
// Generated from members/member_table.cpp by scripts/generate.sh; edit the table, not this file.
//
//   vandpublic::clsPublic component;
//   component.Init("/srv/app");
//   vandpublic::String key = "0123456789ABCDEFFEDCBA9876543210", data = "0123456789ABCDE7";
//   std::cout << component.FstrDES3(key, data).ToUtf8();
//
// A failing member throws AutomationError (number, source, description); "plain fault n" in the
// comments is a RuntimeFault with that small number. An object is used from one thread at a time.
#ifndef VANDPUBLIC_FRAME_CLSPUBLIC_H
#define VANDPUBLIC_FRAME_CLSPUBLIC_H

#include <memory>

#include "runtime/arrays.h"
#include "runtime/basic_types.h"
#include "runtime/object.h"
#include "runtime/optional_ref.h"
#include "runtime/string_value.h"
#include "runtime/variant.h"

namespace vandpublic {

struct Platform;

// Objects of platform/database.h.
class Connection;
class Recordset;
class Field;
using ConnectionRef = std::shared_ptr<Connection>;
using RecordsetRef = std::shared_ptr<Recordset>;
using FieldRef = std::shared_ptr<Field>;

)";

constexpr std::string_view kClassHead = R"(
class VANDPUBLIC_API clsPublic {
 public:
  // DebugMode 1, LogFileName "ERROR.log", LogFilePath "\LOG" below the component's folder. Nothing
  // is created on disk.
  clsPublic();
  // The same on other platform services than the system's.
  explicit clsPublic(std::shared_ptr<const Platform> platform);
  ~clsPublic();
  clsPublic(clsPublic&&) noexcept;
  clsPublic& operator=(clsPublic&&) noexcept;
)";

constexpr std::string_view kTail = R"(
  // The services this object works with.
  const Platform& platform() const noexcept;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace vandpublic

#endif
)";

std::string CppType(InterfaceType type) {
  switch (type) {
    case InterfaceType::None:
      return "void";
    case InterfaceType::Boolean:
      return "bool";
    case InterfaceType::ByteTable:
      return "ByteTable";
    case InterfaceType::ErrObject:
      return "ObjectRef";
    case InterfaceType::Connection:
    case InterfaceType::Recordset:
    case InterfaceType::Field:
      return std::string(TypeName(type)) + "Ref";
    default:
      return std::string(TypeName(type));
  }
}

bool IsCheapToCopy(InterfaceType type) {
  switch (type) {
    case InterfaceType::String:
    case InterfaceType::Variant:
    case InterfaceType::ErrObject:
    case InterfaceType::Connection:
    case InterfaceType::Recordset:
    case InterfaceType::Field:
      return false;
    default:
      return true;
  }
}

std::string CppParameterType(const Parameter& parameter) {
  const std::string type = CppType(parameter.type);
  if (parameter.by_reference) {
    return parameter.IsOptional() ? "OptionalRef<" + type + ">" : type + "&";
  }
  return IsCheapToCopy(parameter.type) ? type : "const " + type + "&";
}

std::string CppDefault(const Parameter& parameter) {
  const DefaultValue& value = parameter.default_value;
  if (const Enumeration* enumeration = FindEnumeration(parameter.type)) {
    for (const EnumerationValue& member : enumeration->values) {
      if (member.value == value.number) return std::string(member.name);
    }
  }
  switch (value.kind) {
    case DefaultValue::Kind::Text:
      return "u\"" + ToUtf8(value.text) + "\"";
    case DefaultValue::Kind::Truth:
      return value.number != 0 ? "true" : "false";
    case DefaultValue::Kind::Number:
      // A variant takes its type from the number: the 16-bit one of the classic languages.
      if (parameter.type == InterfaceType::Variant) {
        return "Integer{" + std::to_string(value.number) + "}";
      }
      return std::to_string(value.number);
    default:
      break;
  }
  if (parameter.type == InterfaceType::String) return "u\"\"";
  return parameter.type == InterfaceType::ErrObject ? "nullptr" : "0";
}

// Breaks "head(a, b, c)" behind commas so that no line passes the column limit.
void WriteDeclaration(std::ostream& out, const MemberInfo& member) {
  std::string line = "  " + CppResult(member) + " " + std::string(member.name) + "(";
  const std::string indent(line.size(), ' ');
  const std::string tail = member.kind == SlotKind::PropertyGet ? ") const;" : ");";
  std::istringstream parameters(CppParameters(member));
  bool first = true;
  for (std::string parameter; std::getline(parameters, parameter, ',');) {
    if (!first) line += ",";
    // + 2 leaves room for the comma or the end.
    if (!first && line.size() + parameter.size() + 2 > kColumns) {
      out << line << '\n';
      line = indent + parameter.substr(1);
    } else {
      line += parameter;
    }
    first = false;
  }
  out << line << tail << '\n';
}

void WriteMember(std::ostream& out, const MemberInfo& member) {
  out << '\n';
  for (const std::string& paragraph : DescribeMember(member)) {
    for (const std::string& line : Wrap(paragraph, kColumns - 5))
      out << "  // " << line << '\n';
  }
  WriteDeclaration(out, member);
}

void WriteEnumeration(std::ostream& out, const Enumeration& enumeration) {
  out << "enum " << enumeration.name << " : Long {\n";
  for (const EnumerationValue& value : enumeration.values) {
    out << "  " << value.name << " = " << value.value << ",\n";
  }
  out << "};\n";
}

}  // namespace

std::string CppResult(const MemberInfo& member) { return CppType(member.result); }

std::string CppParameters(const MemberInfo& member) {
  std::string text;
  for (const Parameter& parameter : member.parameters) {
    if (!text.empty()) text += ", ";
    text += CppParameterType(parameter) + " " + std::string(parameter.name);
    if (parameter.IsOptional()) text += " = " + CppDefault(parameter);
  }
  return text;
}

std::string ClassHeader() {
  std::ostringstream out;
  out << kHead << "// Any 32-bit value is valid in these types; the members say what they do.\n";
  for (const Enumeration& enumeration : Enumerations())
    WriteEnumeration(out, enumeration);
  out << kClassHead;
  for (const MemberInfo& member : MemberTable())
    WriteMember(out, member);
  out << kTail;
  return out.str();
}

}  // namespace vandpublic::generate
