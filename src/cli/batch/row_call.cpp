// Arguments between rows and the member.
#include "cli/batch/row_call.h"

#include <new>
#include <stdexcept>

#include "cli/json_values.h"
#include "cli/text_values.h"
#include "invoke/late_call.h"

namespace vandpublic {

RowCall::RowCall(const BatchPlan& plan, std::unique_ptr<clsPublic> object)
    : plan_(plan), object_(std::move(object)) {}

void RowCall::Begin() {
  const MemberInfo& member = plan_.Member();
  for (std::size_t p = 0; p < member.parameters.size(); ++p) {
    // The member may have changed what it was given by reference for the row before.
    arguments_[p] = plan_.fixed[p] ? *plan_.fixed[p] : InitialValue(member.parameters[p]);
    pointers_[p] = &arguments_[p];
  }
}

InterfaceType RowCall::TypeOf(const ColumnUse& use) const {
  return plan_.Member().parameters[use.parameter].type;
}

template <class Convert>
void RowCall::Set(std::size_t i, Convert convert) {
  const ColumnUse& use = plan_.inputs[i];
  try {
    arguments_[use.parameter] = convert(TypeOf(use));
  } catch (const std::runtime_error& misfit) {
    const std::string_view name = plan_.Member().parameters[use.parameter].name;
    throw ProtocolError("argument '" + std::string(name) + "': " + misfit.what());
  }
}

void RowCall::SetText(std::size_t i, std::string_view text) {
  Set(i, [text](InterfaceType type) { return ValueFromWord(text, type); });
}

void RowCall::SetJson(std::size_t i, const Json& value) {
  Set(i, [&value](InterfaceType type) { return DecodeValue(value, type); });
}

std::string RowCall::Run() {
  try {
    result_ =
        InvokeSlot(*object_, plan_.slot, {pointers_.data(), plan_.Member().parameters.size()});
    return {};
  } catch (const AutomationError& error) {
    return TextFromError(EncodeError(error));
  } catch (const std::bad_alloc&) {
    return "out of memory";
  } catch (const std::length_error&) {
    return "out of memory";
  }
}

std::string RowCall::ResultText() const { return TextFromValue(result_, plan_.Member().result); }

std::string RowCall::OutputText(std::size_t i) const {
  const ColumnUse& use = plan_.outputs[i];
  return TextFromValue(arguments_[use.parameter], TypeOf(use));
}

Json RowCall::ResultJson() const { return EncodeValue(result_, plan_.Member().result); }

Json RowCall::OutputJson(std::size_t i) const {
  const ColumnUse& use = plan_.outputs[i];
  return EncodeValue(arguments_[use.parameter], TypeOf(use));
}

}  // namespace vandpublic
