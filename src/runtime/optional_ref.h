// An optional by-reference parameter: bound to the caller's variable, or to a private one.
#ifndef VANDPUBLIC_RUNTIME_OPTIONAL_REF_H
#define VANDPUBLIC_RUNTIME_OPTIONAL_REF_H

#include <concepts>
#include <type_traits>
#include <utility>

namespace vandpublic {

// What a private variable of type T can start with: not the caller's variable itself.
template <class From, class T, class Ref>
concept StartValueFor = std::constructible_from<T, From&&> && !std::same_as<From, T&> &&
                        !std::same_as<std::remove_cvref_t<From>, Ref>;

// A member that writes an omitted parameter writes to the private variable, so the result is lost.
//
//   void Count(OptionalRef<Integer> total = 0);
//   Integer n = 5;
//   Count(n);    // n changes
//   Count();     // works on a private 0
template <class T>
class OptionalRef {
 public:
  // The caller's variable, which must outlive the call.
  OptionalRef(T& variable) : variable_(&variable) {}
  // A private variable that starts with this value.
  template <StartValueFor<T, OptionalRef> From>
  OptionalRef(From&& start)  // NOLINT(bugprone-forwarding-reference-overload): the concept decides
      : own_(static_cast<T>(std::forward<From>(start))), variable_(&own_) {}

  OptionalRef(const OptionalRef& other)
      : own_(other.own_), variable_(other.IsBound() ? other.variable_ : &own_) {}
  OptionalRef& operator=(const OptionalRef&) = delete;

  // True when the caller gave a variable.
  bool IsBound() const noexcept { return variable_ != &own_; }

  T& operator*() const noexcept { return *variable_; }
  T* operator->() const noexcept { return variable_; }

 private:
  mutable T own_{};
  T* variable_;
};

}  // namespace vandpublic

#endif
