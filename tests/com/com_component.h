// The component through COM: a client that knows the registered class and its type library, and
// nothing of the code behind them.
#ifndef VANDPUBLIC_TESTS_COM_COM_COMPONENT_H
#define VANDPUBLIC_TESTS_COM_COM_COMPONENT_H

#include <memory>
#include <string>
#include <string_view>

#include "cli/component.h"

namespace vandpublic {

// How arguments are given.
enum class CallStyle {
  Typed,    // IDispatch: by value, or a reference of the value's own type
  Variant,  // IDispatch: references to variants; arrays without storage are Empty
  Script,   // as Variant, byte arrays as arrays of variants that hold numbers
  Vtable,   // the function at the slot's place in the vtable, with the library's types
};

// "typed", "variant", "script" or "vtable". Raises std::runtime_error for another text.
CallStyle ParseCallStyle(std::string_view name);

// A new object of the registered class. Raises std::runtime_error when there is none. COM must be
// in use on the thread.
std::unique_ptr<Component> MakeComComponent(CallStyle style);

// The folder of the DLL that is registered, without a final separator.
std::string RegisteredFolder();

}  // namespace vandpublic

#endif
