// An object that is driven by the names of its members, through IDispatch alone. So any version of
// it will do, and any stand-in.
#ifndef VANDPUBLIC_PLATFORM_WINDOWS_AUTOMATION_LATE_BOUND_H
#define VANDPUBLIC_PLATFORM_WINDOWS_AUTOMATION_LATE_BOUND_H

#include <initializer_list>
#include <span>

#include "platform/windows/automation/com_pointer.h"
#include "platform/windows/automation/owned_variant.h"
#include "runtime/variant.h"

namespace vandpublic {

// What is left out of a call: DISP_E_PARAMNOTFOUND, as clients give it.
OwnedVariant MissingArgument() noexcept;

//   LateBound expression = CreateObject(L"VBScript.RegExp");
//   expression.Put(L"Global", true);
//   bool found = ToBoolean(expression.Call(L"Test", {Variant(u"abc")}));
//
// Failures are raised as automation_errors.h tells.
class LateBound {
 public:
  // Shares the object, which must not be null.
  explicit LateBound(IDispatch* object) : object_(ComPointer<IDispatch>::Sharing(object)) {}

  IDispatch* dispatch() const noexcept { return object_.get(); }

  Variant Get(const wchar_t* name) const { return Get(name, {}); }
  Variant Get(const wchar_t* name, std::span<const Variant> arguments) const;
  // The same of the default member where there is none of this name.
  Variant GetElseDefault(const wchar_t* name, std::span<const Variant> arguments) const;
  void Put(const wchar_t* name, const Variant& value) const;
  // Sets a property to the object itself rather than to its value; null unsets it.
  void PutReference(const wchar_t* name, IDispatch* value) const;

  // Arguments in their order, each by value.
  Variant Call(const wchar_t* name, std::span<OwnedVariant> arguments) const;
  Variant Call(const wchar_t* name, std::initializer_list<Variant> arguments) const;
  // Each argument goes as a reference to a variant, and gets what the member wrote into it.
  Variant CallWithReferences(const wchar_t* name, std::span<Variant> arguments) const;

 private:
  ComPointer<IDispatch> object_;
};

// A new object of the class that is registered under this name. Fault 429 where it is not, or
// cannot be made. COM must be in use on the thread (apartment.h).
LateBound CreateObject(const wchar_t* class_name);

}  // namespace vandpublic

#endif
