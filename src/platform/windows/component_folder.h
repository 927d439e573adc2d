// Where the component's own file lies.
#ifndef VANDPUBLIC_PLATFORM_WINDOWS_COMPONENT_FOLDER_H
#define VANDPUBLIC_PLATFORM_WINDOWS_COMPONENT_FOLDER_H

#include <string>

namespace vandpublic {

// The folder of the module (DLL or program) that this code was linked into, whatever program
// loaded it; with its "\" where it is the root of a drive. "." where the system does not tell.
std::u16string ComponentFolder();

}  // namespace vandpublic

#endif
