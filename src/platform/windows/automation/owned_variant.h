// A VARIANT that clears itself, and the few ways to fill one.
#ifndef VANDPUBLIC_PLATFORM_WINDOWS_AUTOMATION_OWNED_VARIANT_H
#define VANDPUBLIC_PLATFORM_WINDOWS_AUTOMATION_OWNED_VARIANT_H

#include <windows.h>
// After windows.h, which it builds on.
#include <oleauto.h>

#include <utility>

namespace vandpublic {

// Owns the text, array or reference in it.
class OwnedVariant {
 public:
  OwnedVariant() noexcept { VariantInit(&value_); }
  // Takes over what the value owns.
  explicit OwnedVariant(VARIANT value) noexcept : value_(value) {}
  ~OwnedVariant() { VariantClear(&value_); }
  OwnedVariant(OwnedVariant&& other) noexcept : value_(other.Release()) {}
  OwnedVariant& operator=(OwnedVariant&& other) noexcept {
    std::swap(value_, other.value_);
    return *this;
  }
  OwnedVariant(const OwnedVariant&) = delete;
  OwnedVariant& operator=(const OwnedVariant&) = delete;

  const VARIANT& get() const noexcept { return value_; }
  // For functions that fill it; empty it first.
  VARIANT* Receive() noexcept { return &value_; }

  // Gives the value away, with all it owns, and is Empty afterwards.
  VARIANT Release() noexcept {
    const VARIANT value = value_;
    VariantInit(&value_);
    return value;
  }

 private:
  VARIANT value_;
};

}  // namespace vandpublic

#endif
