// IDispatch from the member table: names to ids, and calls by id.
#ifndef VANDPUBLIC_COM_DISPATCH_CALL_H
#define VANDPUBLIC_COM_DISPATCH_CALL_H

#include <windows.h>
// After windows.h, which it builds on.
#include <oleauto.h>

#include "frame/clsPublic.h"

namespace vandpublic {

// The id of a member, and of those of its parameters that are named after it; parameters count
// from 0. DISP_E_UNKNOWNNAME where one is unknown, its id being DISPID_UNKNOWN.
HRESULT FindIds(LPOLESTR* names, UINT count, DISPID* ids) noexcept;

// The arguments of IDispatch::Invoke, with its results. Raises nothing.
HRESULT InvokeMember(clsPublic& object, DISPID member, LCID locale, WORD flags,
                     DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                     UINT* bad_argument) noexcept;

}  // namespace vandpublic

#endif
