// Failures of automation calls as the errors that this component raises.
#ifndef VANDPUBLIC_PLATFORM_WINDOWS_AUTOMATION_AUTOMATION_ERRORS_H
#define VANDPUBLIC_PLATFORM_WINDOWS_AUTOMATION_AUTOMATION_ERRORS_H

#include <windows.h>
// After windows.h, which it builds on.
#include <oleauto.h>

namespace vandpublic {

// Raises what a failed Invoke tells, and frees the texts in `exception`:
//
//   DISP_E_EXCEPTION        number, source and description of the record. A number that is one of
//                           the runtime's own (0x800A0000 + 1 to 999) becomes that small number,
//                           and one of the scripting engine's for regular expressions the fault
//                           5017 to 5021. Without a description: the fault's text, or "Automation
//                           error". A record of the number alone is as the result of that number.
//   any other result        as RaiseResult
//
// A member or name that the object lacks is 438, too many arguments 450, ...
[[noreturn]] void RaiseInvokeFailure(HRESULT result, EXCEPINFO& exception);

// Raises the runtime fault that the result stands for (DISP_E_TYPEMISMATCH is 13, E_OUTOFMEMORY 7);
// for all others an error with the result itself as its number, "Automation error".
[[noreturn]] void RaiseResult(HRESULT result);

}  // namespace vandpublic

#endif
