// What makes the objects.
#ifndef VANDPUBLIC_COM_CLASS_FACTORY_H
#define VANDPUBLIC_COM_CLASS_FACTORY_H

#include <windows.h>
// After windows.h, which it builds on.
#include <unknwn.h>

namespace vandpublic {

// A new factory, as the interface asked for. Raises nothing; null is stored where it fails.
HRESULT MakeClassFactory(const IID& interface_id, void** factory) noexcept;

}  // namespace vandpublic

#endif
