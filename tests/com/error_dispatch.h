// An error object as an automation client has one.
#ifndef VANDPUBLIC_TESTS_COM_ERROR_DISPATCH_H
#define VANDPUBLIC_TESTS_COM_ERROR_DISPATCH_H

#include <windows.h>
// After windows.h, which it builds on.
#include <oleauto.h>

#include "platform/windows/automation/com_pointer.h"
#include "runtime/object.h"

namespace vandpublic {

// An object with the properties Number, Source and Description of ours.
ComPointer<IDispatch> MakeErrorDispatch(const ObjectRef& error);

}  // namespace vandpublic

#endif
