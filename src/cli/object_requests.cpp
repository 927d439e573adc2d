// Positional arguments for objects driven by name.
#include "cli/object_requests.h"

#include <exception>
#include <vector>

#include "cli/call_arguments.h"
#include "cli/json_values.h"

namespace vandpublic {
namespace {

const NamedValue& FindVariable(const NamedValues& names, const std::string& name) {
  const auto found = names.find(name);
  if (found == names.end()) throw ProtocolError("unknown name '" + Quoted(name) + "'");
  if (found->second.component) {
    throw ProtocolError("'" + Quoted(name) + "' is an object that no member takes");
  }
  return found->second;
}

Variant TakeValue(const Json& json, const NamedValues& names) {
  if (const std::string* name = VariableName(json)) return FindVariable(names, *name).value;
  if (IsMissing(json)) return {};
  return DecodeVariant(json);
}

std::vector<Variant> TakeArguments(const Json& args, const NamedValues& names) {
  if (args.is_null()) return {};
  if (!args.is_array()) throw ProtocolError("'args' of an object must be an array");
  std::size_t count = args.size();
  while (count > 0 && IsMissing(args[count - 1]))
    --count;
  std::vector<Variant> values;
  for (std::size_t i = 0; i < count; ++i) {
    try {
      values.push_back(TakeValue(args[i], names));
    } catch (const ProtocolError& misfit) {
      throw ProtocolError("argument " + std::to_string(i + 1) + ": " + misfit.what());
    }
  }
  return values;
}

// Variables are copied in and out: an object has no types that they could be bound to. One that
// cannot take its value keeps the one it had; the first such fault is raised when all are done.
void GiveBack(const Json& args, const std::vector<Variant>& values, NamedValues& names) {
  std::exception_ptr first_fault;
  for (std::size_t i = 0; i < values.size(); ++i) {
    const std::string* name = VariableName(args[i]);
    if (name == nullptr) continue;
    NamedValue& variable = names.find(*name)->second;
    try {
      variable.value = Converted(values[i], variable.type);
    } catch (const RuntimeFault&) {
      if (!first_fault) first_fault = std::current_exception();
    }
  }
  if (first_fault) std::rethrow_exception(first_fault);
}

}  // namespace

Variant GetFromObject(Object& object, std::string_view name, const Json& args,
                      const NamedValues& names) {
  return object.Get(name, TakeArguments(args, names));
}

Variant CallObject(Object& object, std::string_view name, const Json& args, NamedValues& names) {
  std::vector<Variant> values = TakeArguments(args, names);
  Variant result;
  try {
    result = object.Call(name, values);
  } catch (const AutomationError&) {
    try {
      GiveBack(args, values, names);
    } catch (const RuntimeFault&) {
      // The first error is the one to report.
    }
    throw;
  }
  GiveBack(args, values, names);
  return result;
}

void SetOnObject(Object& object, std::string_view name, const Json& value,
                 const NamedValues& names) {
  object.Set(name, TakeValue(value, names));
}

}  // namespace vandpublic
