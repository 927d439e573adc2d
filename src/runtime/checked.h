// Arithmetic of the interface's 16- and 32-bit integers: what leaves the range is fault 6
// "Overflow", never wrapped and never undefined behaviour.
#ifndef VANDPUBLIC_RUNTIME_CHECKED_H
#define VANDPUBLIC_RUNTIME_CHECKED_H

#include <concepts>
#include <utility>

#include "errors.h"

namespace vandpublic {

// The value as a T, or fault 6.
//
//   const auto count = CheckedCast<Integer>(text.Length());
template <std::integral T, std::integral From>
T CheckedCast(From value) {
  if (!std::in_range<T>(value)) RaiseFault(FaultNumber::Overflow);
  return static_cast<T>(value);
}

template <std::integral T>
T CheckedAdd(T a, T b) {
  T sum{};
  if (__builtin_add_overflow(a, b, &sum)) RaiseFault(FaultNumber::Overflow);
  return sum;
}

template <std::integral T>
T CheckedMultiply(T a, T b) {
  T product{};
  if (__builtin_mul_overflow(a, b, &product)) RaiseFault(FaultNumber::Overflow);
  return product;
}

}  // namespace vandpublic

#endif
