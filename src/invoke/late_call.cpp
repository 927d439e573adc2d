// The late-bound calls: for each slot a function that unpacks variants into the C++ call.
#include "invoke/late_call.h"

#include <algorithm>
#include <array>
#include <tuple>
#include <utility>

#include "invoke/argument.h"

namespace vandpublic {
namespace {

// One variant for each parameter, all of them there.
using Arguments = std::span<Variant* const>;

// An argument whose conversion failed, on its way to InvokeSlot, which knows the parameter's name.
struct Misfit {
  FaultNumber reason;
  std::size_t index;
};

template <class Argument>
Argument Unpack(Variant& variable, std::size_t index) {
  try {
    return Argument(variable);
  } catch (const RuntimeFault& fault) {
    throw Misfit{static_cast<FaultNumber>(fault.number()), index};
  }
}

template <class Result>
Variant CallMethod(auto call) {
  if constexpr (std::is_void_v<Result>) {
    call();
    return {};
  } else {
    return Variant(Stored<Result>(call()));
  }
}

// Unpacks one argument after the other, from the first to the last, and then calls. The unpacked
// ones write their results back when this returns or throws.
template <class Result, class Parameters, std::size_t kIndex = 0, class... Unpacked>
Variant UnpackAndCall(clsPublic& object, auto method, Arguments arguments, Unpacked&... unpacked) {
  if constexpr (kIndex == std::tuple_size_v<Parameters>) {
    return CallMethod<Result>([&]() -> Result { return (object.*method)(unpacked.Get()...); });
  } else {
    using Argument = typename ArgumentFor<std::tuple_element_t<kIndex, Parameters>>::Type;
    auto argument = Unpack<Argument>(*arguments[kIndex], kIndex);
    return UnpackAndCall<Result, Parameters, kIndex + 1>(object, method, arguments, unpacked...,
                                                         argument);
  }
}

template <class Result, class... Parameters>
Variant CallWith(clsPublic& object, Result (clsPublic::*method)(Parameters...),
                 Arguments arguments) {
  return UnpackAndCall<Result, std::tuple<Parameters...>>(object, method, arguments);
}

template <class Result>
Variant CallWith(clsPublic& object, Result (clsPublic::*method)() const, Arguments arguments) {
  return UnpackAndCall<Result, std::tuple<>>(object, method, arguments);
}

template <auto kMethod>
Variant Call(clsPublic& object, Arguments arguments) {
  return CallWith(object, kMethod, arguments);
}

// The read and the write member of a property have one name in C++; these tell them apart.
template <class Result>
using Getter = Result (clsPublic::*)() const;
template <class Value>
using Setter = void (clsPublic::*)(Value);

using LateBound = Variant (*)(clsPublic&, Arguments);

constexpr auto kCalls = std::to_array<LateBound>({
#include "invoke/bindings.inc"
});
static_assert(kCalls.size() == kSlotCount);

std::string DescribeMisfit(FaultNumber reason, std::string_view parameter) {
  const std::string name(parameter);
  switch (reason) {
    case FaultNumber::ArgumentNotOptional:
      return "argument '" + name + "' is missing";
    case FaultNumber::WrongNumberOfArguments:
      return "too many arguments";
    case FaultNumber::Overflow:
      return "argument '" + name + "' is out of range";
    case FaultNumber::InvalidUseOfNull:
      return "argument '" + name + "' must not be null";
    default:
      return "argument '" + name + "' has a value of the wrong type";
  }
}

// One variant a parameter: the caller's, or one with the initial value where an optional argument
// was left out.
class CompleteArguments {
 public:
  CompleteArguments(const MemberInfo& member, Arguments arguments)
      : count_(member.parameters.size()) {
    if (arguments.size() > count_) throw Misfit{FaultNumber::WrongNumberOfArguments, count_};
    std::copy(arguments.begin(), arguments.end(), pointers_.begin());
    for (std::size_t i = 0; i < count_; ++i) {
      if (pointers_[i] != nullptr) continue;
      const Parameter& parameter = member.parameters[i];
      if (!parameter.IsOptional()) throw Misfit{FaultNumber::ArgumentNotOptional, i};
      initial_values_[i] = InitialValue(parameter);
      pointers_[i] = &initial_values_[i];
    }
  }

  Arguments Get() const noexcept { return {pointers_.data(), count_}; }

 private:
  std::size_t count_;
  std::array<Variant*, kMostParameters> pointers_{};
  std::array<Variant, kMostParameters> initial_values_;
};

}  // namespace

ArgumentError::ArgumentError(FaultNumber reason, std::size_t index, std::string_view parameter)
    : reason_(reason), index_(index), what_(DescribeMisfit(reason, parameter)) {}

Variant InitialValue(const Parameter& parameter) {
  const DefaultValue& value = parameter.default_value;
  switch (parameter.type) {
    case InterfaceType::Boolean:
      return value.number != 0;
    case InterfaceType::Byte:
      return static_cast<Byte>(value.number);
    case InterfaceType::Integer:
      return static_cast<Integer>(value.number);
    case InterfaceType::String:
      return String(value.text);
    case InterfaceType::Variant:
      // A default in the declaration is a 16-bit number; without one the variant is empty.
      if (value.kind != DefaultValue::Kind::Number) return {};
      return static_cast<Integer>(value.number);
    case InterfaceType::ByteArray:
      return ByteArray();
    case InterfaceType::ByteTable:
      return ByteTable();
    case InterfaceType::ErrObject:
    case InterfaceType::Connection:
    case InterfaceType::Recordset:
    case InterfaceType::Field:
      return ObjectRef();
    default:
      return Long{value.number};
  }
}

std::optional<std::size_t> FindParameter(const MemberInfo& member, std::string_view name) noexcept {
  for (std::size_t i = 0; i < member.parameters.size(); ++i) {
    if (SameName(member.parameters[i].name, name)) return i;
  }
  return std::nullopt;
}

Variant InvokeSlot(clsPublic& object, std::size_t slot_index, Arguments arguments) {
  const MemberInfo& member = MemberTable()[slot_index];
  const LateBound call = kCalls[slot_index];
  try {
    const CompleteArguments complete(member, arguments);
    return call(object, complete.Get());
  } catch (const Misfit& misfit) {
    const bool known = misfit.index < member.parameters.size();
    throw ArgumentError(misfit.reason, misfit.index,
                        known ? member.parameters[misfit.index].name : std::string_view());
  }
}

}  // namespace vandpublic
