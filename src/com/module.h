// The DLL as a module: what keeps it loaded, and where it lies.
#ifndef VANDPUBLIC_COM_MODULE_H
#define VANDPUBLIC_COM_MODULE_H

#include <windows.h>
// After windows.h, which it builds on.
#include <oleauto.h>

#include <string>

#include "platform/windows/automation/com_pointer.h"

namespace vandpublic {

// Counted by every object, class factory and server lock; the DLL may go when none is left.
class ModuleUse {
 public:
  ModuleUse() noexcept { Add(); }
  ~ModuleUse() { Remove(); }
  ModuleUse(const ModuleUse&) = delete;
  ModuleUse& operator=(const ModuleUse&) = delete;

  static void Add() noexcept;
  static void Remove() noexcept;
  static bool IsAny() noexcept;
};

// The full path of this DLL; empty where the system does not tell.
std::wstring ModulePath();

// A type of the DLL's own type library. Raises Refused.
ComPointer<ITypeInfo> LoadTypeInfo(const GUID& id);

}  // namespace vandpublic

#endif
