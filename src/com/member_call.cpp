// Arguments in, the call, results out.
#include "com/member_call.h"

#include <array>

#include "com/call_argument.h"
#include "invoke/late_call.h"
#include "members/member_table.h"
#include "platform/windows/automation/automation_values.h"

namespace vandpublic {
namespace {

// A refused argument and where it stands.
struct RefusedArgument {
  HRESULT result;
  std::size_t parameter;
};

class Arguments {
 public:
  Arguments(const MemberInfo& member, std::span<VARIANTARG* const> given, LCID locale) {
    for (std::size_t i = 0; i < given.size(); ++i) {
      if (given[i] == nullptr) continue;
      try {
        arguments_[i].emplace(member.parameters[i], *given[i], locale);
      } catch (const Refused& refused) {
        throw RefusedArgument{refused.result, i};
      }
      values_[i] = ValueOf(i);
    }
    count_ = given.size();
  }

  std::span<Variant* const> Values() const noexcept { return {values_.data(), count_}; }

  void WriteBack() {
    for (std::size_t i = 0; i < count_; ++i) {
      if (!arguments_[i] || values_[i] != arguments_[i]->value()) continue;
      try {
        arguments_[i]->WriteBack();
      } catch (const Refused& refused) {
        throw RefusedArgument{refused.result, i};
      }
    }
  }

  // A value that came in and goes out again unchanged is copied from the caller's.
  OwnedVariant Result(const MemberInfo& member, const Variant& result) const {
    if (member.result == InterfaceType::Variant) {
      for (const auto& argument : arguments_) {
        if (argument && argument->IsReturnedBy(result)) return argument->CopyOfGiven();
      }
    }
    return ToAutomation(result);
  }

 private:
  // The argument's own value, or that of an earlier one that is the same variable.
  Variant* ValueOf(std::size_t index) noexcept {
    for (std::size_t i = 0; i < index; ++i) {
      if (arguments_[i] && arguments_[i]->IsSameVariable(*arguments_[index])) return values_[i];
    }
    return arguments_[index]->value();
  }

  std::array<std::optional<CallArgument>, kMostParameters> arguments_;
  std::array<Variant*, kMostParameters> values_{};
  std::size_t count_ = 0;
};

OwnedVariant Call(clsPublic& object, std::size_t slot, std::span<VARIANTARG* const> given,
                  LCID locale) {
  const MemberInfo& member = MemberTable()[slot];
  Arguments arguments(member, given, locale);
  Variant result;
  try {
    result = InvokeSlot(object, slot, arguments.Values());
  } catch (...) {
    try {
      arguments.WriteBack();
    } catch (const RefusedArgument&) {
      // The first error is the one to report.
    }
    throw;
  }
  OwnedVariant converted = arguments.Result(member, result);
  arguments.WriteBack();
  return converted;
}

}  // namespace

std::optional<Failure> CallMember(clsPublic& object, std::size_t slot,
                                  std::span<VARIANTARG* const> arguments, LCID locale,
                                  OwnedVariant& result) noexcept {
  try {
    if (arguments.size() > MemberTable()[slot].parameters.size()) {
      return Failure{DISP_E_BADPARAMCOUNT, {}, {}};
    }
    result = Call(object, slot, arguments, locale);
    return std::nullopt;
  } catch (const RefusedArgument& refused) {
    return Failure{refused.result, {}, refused.parameter};
  } catch (...) {
    return CurrentFailure();
  }
}

}  // namespace vandpublic
