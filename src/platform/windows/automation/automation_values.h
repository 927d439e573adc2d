// Values across the border to automation: our variants as VARIANTs and back, by value.
#ifndef VANDPUBLIC_PLATFORM_WINDOWS_AUTOMATION_AUTOMATION_VALUES_H
#define VANDPUBLIC_PLATFORM_WINDOWS_AUTOMATION_AUTOMATION_VALUES_H

#include <string_view>

#include "platform/windows/automation/owned_variant.h"
#include "runtime/string_value.h"
#include "runtime/variant.h"

namespace vandpublic {

// A copy of the text: null for the absent string, a stray last byte kept. Fault 7 without memory.
BSTR MakeBstr(const String& text);
BSTR MakeBstr(std::u16string_view text);
// The text with all its bytes; absent for null.
String FromBstr(BSTR text);

// The value as automation has it; each type has its own there. An object must be one that
// WrapObject (dispatch_objects.h) made, or unset. Fault 13 for other objects and for arrays that
// are not of bytes, whose elements are not kept; 7 without memory.
OwnedVariant ToAutomation(const Variant& value);

// The other way. References are followed. Integers of a size that we do not have become the
// smallest type that holds all of their values (a 64-bit one a Decimal). Arrays of other elements
// than bytes, and of more than two dimensions, give their shape. A missing argument
// (DISP_E_PARAMNOTFOUND) is Empty. Fault 13 for what is no value of ours: other error codes,
// records, objects without IDispatch.
Variant FromAutomation(const VARIANT& value);

// A new SAFEARRAY with these bytes and bounds; null where there is no storage.
SAFEARRAY* MakeSafeArray(const ByteArray& array);
SAFEARRAY* MakeSafeArray(const ByteTable& table);

}  // namespace vandpublic

#endif
