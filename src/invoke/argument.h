// One argument of a late-bound call: a variant seen as the C++ type of a parameter.
#ifndef VANDPUBLIC_INVOKE_ARGUMENT_H
#define VANDPUBLIC_INVOKE_ARGUMENT_H

#include <memory>
#include <type_traits>
#include <utility>

#include "platform/database.h"
#include "runtime/coerce.h"
#include "runtime/errors.h"
#include "runtime/optional_ref.h"
#include "runtime/variant.h"

namespace vandpublic {

// References to objects of one class, other than ObjectRef itself.
template <class T>
inline constexpr bool kIsClassRef = false;
template <class T>
inline constexpr bool kIsClassRef<std::shared_ptr<T>> = !std::is_same_v<T, Object>;

// The object in the variant; the empty and the null value are the unset reference, an object of
// another class is a type mismatch.
template <class T>
T ToClassRef(const Variant& value) {
  if (value.IsEmpty() || value.IsNull()) return nullptr;
  const auto* object = value.Get<ObjectRef>();
  if (object == nullptr) RaiseFault(FaultNumber::TypeMismatch);
  T reference = std::dynamic_pointer_cast<typename T::element_type>(*object);
  if (reference == nullptr && *object != nullptr) RaiseFault(FaultNumber::TypeMismatch);
  return reference;
}

// The variant's value as a T; faults 6, 13 and 94.
template <class T>
T ConvertTo(const Variant& value) {
  if constexpr (std::is_same_v<T, bool>) {
    return ToBoolean(value);
  } else if constexpr (std::is_same_v<T, Byte>) {
    return ToByte(value);
  } else if constexpr (std::is_same_v<T, Integer>) {
    return ToInteger(value);
  } else if constexpr (std::is_same_v<T, Long>) {
    return ToLong(value);
  } else if constexpr (std::is_enum_v<T>) {
    return static_cast<T>(ToLong(value));
  } else if constexpr (std::is_same_v<T, String>) {
    return ToText(value);
  } else if constexpr (kIsClassRef<T>) {
    return ToClassRef<T>(value);
  } else if constexpr (std::is_same_v<T, ObjectRef>) {
    if (const auto* object = value.Get<ObjectRef>()) return *object;
    if (value.IsEmpty()) return nullptr;
    RaiseFault(FaultNumber::TypeMismatch);
  } else if constexpr (std::is_same_v<T, ByteTable>) {
    // An array of another shape is the member's business: every subscript pair of it is a fault.
    if (value.IsEmpty() || value.AsByteArray() != nullptr) return {};
    RaiseFault(FaultNumber::TypeMismatch);
  } else {
    RaiseFault(FaultNumber::TypeMismatch);
  }
}

// What a variant holds for a parameter of type T: enumerations travel as 32-bit numbers, objects of
// every class as references to an object.
template <class T>
using Stored =
    std::conditional_t<std::is_enum_v<T>, Long, std::conditional_t<kIsClassRef<T>, ObjectRef, T>>;

// Whether a variant can hold a T itself, to be worked on in place.
template <class T>
inline constexpr bool kIsHeldExactly = std::is_same_v<T, Stored<T>>;

// An argument passed by value.
template <class T>
class ValueArgument {
 public:
  explicit ValueArgument(Variant& variable) {
    if constexpr (kIsHeldExactly<T>) exact_ = variable.template Get<T>();
    if (exact_ == nullptr) converted_ = ConvertTo<T>(variable);
  }
  const T& Get() const noexcept { return exact_ != nullptr ? *exact_ : converted_; }

 private:
  const T* exact_ = nullptr;
  T converted_{};
};

// An argument passed by reference.
template <class T>
class RefArgument {
 public:
  explicit RefArgument(Variant& variable) : variable_(variable) {
    if constexpr (std::is_same_v<T, Variant>) {
      exact_ = &variable;
    } else if constexpr (std::is_same_v<T, ByteArray>) {
      if (variable.IsEmpty()) variable = ByteArray();
      exact_ = variable.AsByteArray();
    } else if constexpr (std::is_same_v<T, ByteTable>) {
      if (variable.IsEmpty()) variable = ByteTable();
      exact_ = variable.AsByteTable();
    } else if constexpr (kIsHeldExactly<T>) {
      exact_ = variable.template Get<T>();
    }
    if (exact_ == nullptr) before_ = converted_ = ConvertTo<T>(variable);
  }
  RefArgument(const RefArgument&) = delete;
  RefArgument& operator=(const RefArgument&) = delete;
  ~RefArgument() {
    // Moved, so that nothing is allocated where nothing may be thrown.
    if (exact_ == nullptr && !(converted_ == before_)) variable_ = Stored<T>(std::move(converted_));
  }

  T& Get() noexcept { return exact_ != nullptr ? *exact_ : converted_; }

 private:
  Variant& variable_;
  T* exact_ = nullptr;
  T before_{};
  T converted_{};
};

// Which of the two a parameter takes, by its C++ type.
template <class Parameter>
struct ArgumentFor {
  using Type = ValueArgument<Parameter>;
};
template <class T>
struct ArgumentFor<const T&> {
  using Type = ValueArgument<T>;
};
template <class T>
struct ArgumentFor<T&> {
  using Type = RefArgument<T>;
};
template <class T>
struct ArgumentFor<OptionalRef<T>> {
  using Type = RefArgument<T>;
};

}  // namespace vandpublic

#endif
