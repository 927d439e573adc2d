// Matching JSON arguments with parameters.
#include "cli/call_arguments.h"

#include <exception>
#include <optional>

#include "cli/json_values.h"
#include "cli/suggestion.h"
#include "invoke/late_call.h"

namespace vandpublic {
namespace {

// What a variable of that type starts with, whatever the parameter's default is.
Variant TypesInitialValue(InterfaceType type) { return InitialValue(Parameter{.type = type}); }

std::string Argument(const Parameter& parameter) {
  return "argument '" + std::string(parameter.name) + "'";
}

}  // namespace

const std::string* VariableName(const Json& json) {
  if (!json.is_object() || json.size() != 1) return nullptr;
  const auto found = json.find("var");
  if (found == json.end() || !found->is_string()) return nullptr;
  return found->get_ptr<const std::string*>();
}

bool IsMissing(const Json& json) {
  if (!json.is_object() || json.size() != 1) return false;
  const auto found = json.find("missing");
  return found != json.end() && found->is_boolean() && found->get<bool>();
}

std::vector<std::string_view> ParameterNames(const MemberInfo& member) {
  std::vector<std::string_view> names;
  for (const Parameter& parameter : member.parameters)
    names.push_back(parameter.name);
  return names;
}

CallArguments::CallArguments(const MemberInfo& member, const Json& given, NamedValues& names)
    : member_(member), count_(member.parameters.size()), definitions_{names} {
  if (given.is_array()) {
    TakeByPosition(given);
  } else if (given.is_object()) {
    TakeByName(given);
  } else if (!given.is_null()) {
    throw ProtocolError("'args' must be an object or an array");
  }
  for (std::size_t i = 0; i < count_; ++i) {
    const Parameter& parameter = member_.parameters[i];
    if (pointers_[i] != nullptr || !parameter.IsOptional()) continue;
    own_[i] = InitialValue(parameter);
    pointers_[i] = &own_[i];
  }
}

void CallArguments::TakeByPosition(const Json& list) {
  if (list.size() > count_) {
    throw ProtocolError("too many arguments: '" + std::string(member_.name) + "' takes " +
                        (count_ == 0 ? "none" : "at most " + std::to_string(count_)));
  }
  for (std::size_t i = 0; i < list.size(); ++i)
    Take(i, list[i]);
}

void CallArguments::TakeByName(const Json& object) {
  std::array<bool, kMostParameters> given{};
  for (const auto& [name, value] : object.items()) {
    const std::optional<std::size_t> index = FindParameter(member_, name);
    if (!index) {
      throw ProtocolError("unknown argument '" + Quoted(name) + "' of '" +
                          std::string(member_.name) + "'" +
                          DidYouMean(name, ParameterNames(member_)));
    }
    // Two spellings of one name; the same spelling twice does not get here.
    if (given[*index])
      throw ProtocolError(Argument(member_.parameters[*index]) + " is given twice");
    given[*index] = true;
    Take(*index, value);
  }
}

void CallArguments::Take(std::size_t index, const Json& json) {
  if (IsMissing(json)) return;
  const Parameter& parameter = member_.parameters[index];
  try {
    if (const std::string* name = VariableName(json)) {
      Bind(index, *name);
    } else {
      own_[index] = DecodeValue(json, parameter.type);
      pointers_[index] = &own_[index];
    }
  } catch (const ProtocolError& misfit) {
    throw ProtocolError(Argument(parameter) + ": " + misfit.what());
  }
}

void CallArguments::Bind(std::size_t index, const std::string& name) {
  const InterfaceType type = member_.parameters[index].type;
  NamedValues& names = definitions_.names;
  auto found = names.find(name);
  if (found == names.end()) {
    definitions_.added.push_back(name);
    found = names.emplace(name, NamedValue{type, TypesInitialValue(type)}).first;
  }
  NamedValue& variable = found->second;
  if (variable.component) {
    throw ProtocolError("'" + Quoted(name) + "' is an object that no member takes");
  }
  pointers_[index] = &variable.value;
  const bool can_change_type = member_.parameters[index].by_reference && variable.type != type;
  if (can_change_type && variable.type != InterfaceType::Variant) {
    retyped_.push_back({&variable, variable.value});
  }
}

void CallArguments::Settle() {
  definitions_.added.clear();
  std::exception_ptr first_fault;
  for (Retyped& retyped : retyped_) {
    NamedValue& variable = *retyped.variable;
    if (Holds(variable.value, variable.type)) continue;
    try {
      variable.value = Converted(variable.value, variable.type);
    } catch (const RuntimeFault&) {
      variable.value = std::move(retyped.before);
      if (!first_fault) first_fault = std::current_exception();
    }
  }
  if (first_fault) std::rethrow_exception(first_fault);
}

Json CallArguments::References() const {
  Json references = Json::object();
  for (std::size_t i = 0; i < count_; ++i) {
    const Parameter& parameter = member_.parameters[i];
    if (!parameter.by_reference) continue;
    references[std::string(parameter.name)] = EncodeValue(*pointers_[i], parameter.type);
  }
  return references;
}

}  // namespace vandpublic
