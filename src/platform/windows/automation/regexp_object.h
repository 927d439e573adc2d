// The regular-expression engine of the Windows build: the scripting engine's own object.
#ifndef VANDPUBLIC_PLATFORM_WINDOWS_AUTOMATION_REGEXP_OBJECT_H
#define VANDPUBLIC_PLATFORM_WINDOWS_AUTOMATION_REGEXP_OBJECT_H

#include <memory>

#include "platform/regexp.h"

namespace vandpublic {

// Each call makes a VBScript.RegExp, sets Global, IgnoreCase, Multiline and Pattern in this order,
// calls Test or Replace, and releases it. COM is used on the calling thread for as long as that
// takes. Any number of threads may use the engine.
//
// The object's numbers 5017 to 5021 become the faults of that number; its other failures are
// raised as automation_errors.h tells. Fault 429 where the class is not registered.
std::shared_ptr<RegExpEngine> MakeRegExpObjects();

}  // namespace vandpublic

#endif
