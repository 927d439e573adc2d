// Decimal numbers: our texts as automation's 96-bit integers with a power of ten, and back.
#ifndef VANDPUBLIC_PLATFORM_WINDOWS_AUTOMATION_DECIMAL_VALUES_H
#define VANDPUBLIC_PLATFORM_WINDOWS_AUTOMATION_DECIMAL_VALUES_H

#include <windows.h>
// After windows.h, which it builds on.
#include <oleauto.h>

#include <string>

#include "runtime/variant.h"

namespace vandpublic {

// Zeros behind the point are kept. 28 digits always fit.
DECIMAL ToDecimalValue(const Decimal& number) noexcept;

// Fault 6 for a number of 29 digits, which ours do not hold.
Decimal FromDecimalValue(const DECIMAL& value);

}  // namespace vandpublic

#endif
