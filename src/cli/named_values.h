// The variables and objects that a client keeps under names of its own.
#ifndef VANDPUBLIC_CLI_NAMED_VALUES_H
#define VANDPUBLIC_CLI_NAMED_VALUES_H

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "cli/component.h"
#include "members/member_table.h"
#include "runtime/variant.h"

namespace vandpublic {

struct NamedValue {
  // A variable keeps its type: what is written to it is converted. Objects of all classes have one
  // type here, Connection.
  InterfaceType type = InterfaceType::Variant;
  Variant value = {};
  // Set for a clsPublic object, which is no value that could be passed to a member.
  std::unique_ptr<Component> component = {};
};

// Case counts in these names. The addresses of the values hold until they are dropped.
using NamedValues = std::map<std::string, NamedValue, std::less<>>;

}  // namespace vandpublic

#endif
