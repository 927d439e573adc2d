// What stands in the registry for the component.
//
// Below Software\Classes of the machine or of one user, all for this DLL's own bitness:
//
//   CLSID\{class}        InprocServer32 (path, ThreadingModel Apartment), ProgID, TypeLib, Version
//   Public_Module.clsPublic, VandPublic.clsPublic   CLSID, CurVer; with ".1" behind: CLSID
//   Interface\{id}       the system's own marshaller, driven by the type library
//   TypeLib\{id}\1.0     path of this DLL as the library for win32 or win64
//
// Names and type library are shared with the DLL of the other bitness: they go with the last one.
#ifndef VANDPUBLIC_COM_REGISTRATION_H
#define VANDPUBLIC_COM_REGISTRATION_H

#include <windows.h>

#include <array>
#include <string>

namespace vandpublic {

enum class RegistrationScope { Machine, User };

inline constexpr std::array<const wchar_t*, 2> kProgIds = {L"Public_Module.clsPublic",
                                                           L"VandPublic.clsPublic"};

// "{...}" of an id of members/identity.h.
std::wstring BracedId(std::string_view id);

// Writes everything, or leaves nothing behind: the failure of the first step that failed.
HRESULT Register(RegistrationScope scope, const std::wstring& module_path);

// Removes everything. Nothing there is no failure.
HRESULT Unregister(RegistrationScope scope);

}  // namespace vandpublic

#endif
