// The arguments of one request, matched with the parameters of the member it calls.
#ifndef VANDPUBLIC_CLI_CALL_ARGUMENTS_H
#define VANDPUBLIC_CLI_CALL_ARGUMENTS_H

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "cli/json_text.h"
#include "cli/named_values.h"
#include "members/member_table.h"
#include "runtime/variant.h"

namespace vandpublic {

class CallArguments {
 public:
  // `given` is an array (by position), an object (by name) or null (none). Variables are bound, so
  // the same variable given twice is one; one that is not defined yet is defined with the initial
  // value of the parameter's type. What is left out gets its default, or stays out when it is
  // required: InvokeSlot refuses that. Raises ProtocolError.
  CallArguments(const MemberInfo& member, const Json& given, NamedValues& names);
  CallArguments(const CallArguments&) = delete;
  CallArguments& operator=(const CallArguments&) = delete;

  // One for each parameter.
  std::span<Variant* const> Pointers() const noexcept { return {pointers_.data(), count_}; }

  // To be called after the member ran, also when it failed: converts what it wrote back to the
  // types of the variables. A variable that cannot take its value keeps the one it had; the first
  // such fault is raised when all are settled.
  void Settle();

  // The by-reference parameters under their names, omitted ones included.
  Json References() const;

 private:
  void TakeByPosition(const Json& list);
  void TakeByName(const Json& object);
  void Take(std::size_t index, const Json& json);
  void Bind(std::size_t index, const std::string& name);

  const MemberInfo& member_;
  std::size_t count_;
  std::array<Variant*, kMostParameters> pointers_{};
  std::array<Variant, kMostParameters> own_;
  // For an argument that is a variable of another type than its parameter.
  struct Retyped {
    NamedValue* variable;
    Variant before;
  };
  std::vector<Retyped> retyped_;
  // Variables that were defined for a call that never takes place are forgotten again.
  struct Definitions {
    NamedValues& names;
    std::vector<std::string> added = {};
    ~Definitions() {
      for (const std::string& name : added)
        names.erase(name);
    }
  };
  Definitions definitions_;
};

// The name in {"var":NAME}, or null for any other value.
const std::string* VariableName(const Json& json);

// {"missing":true}
bool IsMissing(const Json& json);

// The names of a member's parameters, for suggestions.
std::vector<std::string_view> ParameterNames(const MemberInfo& member);

}  // namespace vandpublic

#endif
