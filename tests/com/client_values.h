// Values as a client of the component makes them.
#ifndef VANDPUBLIC_TESTS_COM_CLIENT_VALUES_H
#define VANDPUBLIC_TESTS_COM_CLIENT_VALUES_H

#include "platform/windows/automation/owned_variant.h"
#include "runtime/variant.h"

namespace vandpublic {

// Any value of ours, arrays that have only a shape included: their elements are the initial ones.
OwnedVariant ClientValue(const Variant& value);

// An array of bytes as script engines make it: variants with 16-bit numbers.
OwnedVariant ScriptArray(const Variant& bytes);

// The other way: what FromAutomation gives, but arrays of variants as arrays of bytes.
Variant FromScriptArray(const VARIANT& value);

}  // namespace vandpublic

#endif
