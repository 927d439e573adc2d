// The class clsPublic as a COM object, dual: IDispatch for late-bound clients, a vtable of the 78
// members for the others.
#ifndef VANDPUBLIC_COM_PUBLIC_OBJECT_H
#define VANDPUBLIC_COM_PUBLIC_OBJECT_H

#include <windows.h>
// After windows.h, which it builds on.
#include <oleauto.h>

namespace vandpublic {

// A new object, as the interface asked for. Raises nothing; null is stored where it fails.
HRESULT MakePublicObject(const IID& interface_id, void** object) noexcept;

}  // namespace vandpublic

#endif
