// Where an argument of an automation call lies, however the caller passed it: by value, as a typed
// reference, as a reference to a variant, or as a reference to a variant that is one itself.
#ifndef VANDPUBLIC_COM_ARGUMENT_PLACE_H
#define VANDPUBLIC_COM_ARGUMENT_PLACE_H

#include <windows.h>
// After windows.h, which it builds on.
#include <oleauto.h>

#include "platform/windows/automation/owned_variant.h"

namespace vandpublic {

// A conversion or a write-back that automation refuses, on its way to the call.
struct Refused {
  HRESULT result;
};

// Raises Refused for a result that is a failure.
void Require(HRESULT result);

// The value converted as automation does it, in the caller's locale. Raises Refused.
OwnedVariant ChangedType(const VARIANT& value, VARTYPE type, LCID locale);

class ArgumentPlace {
 public:
  // Raises Refused for references to nothing and to references without end.
  explicit ArgumentPlace(VARIANTARG& given);

  // Left out: the error value that stands for a missing argument, at any depth.
  bool IsMissing() const noexcept;
  // Whether the caller sees what is written here.
  bool IsWritable() const noexcept { return writable_; }
  // The value as it is now. It stays the caller's: do not clear the copy.
  VARIANT Value() const noexcept;
  // The same address twice is the same variable.
  const void* Address() const noexcept;

  // The array, null when there is none or it has no storage. IsArray tells the two apart.
  bool IsArray() const noexcept { return (Value().vt & VT_ARRAY) != 0; }
  SAFEARRAY* Array() const noexcept;
  // Puts an array of these elements in the place of the old one, which is destroyed; both null
  // and an empty variant are replaced too. Raises Refused where the old one is fixed or locked.
  void ReplaceArray(SAFEARRAY* array, VARTYPE element_type);

  // Stores a value: a variant takes its type, a typed reference has it converted. Takes over what
  // the value owns. Raises Refused.
  void Store(OwnedVariant value, LCID locale);

 private:
  void StoreTyped(OwnedVariant value);

  VARIANT* variant_ = nullptr;  // set, or else:
  VARTYPE type_ = VT_EMPTY;
  void* data_ = nullptr;
  bool writable_ = false;
};

}  // namespace vandpublic

#endif
