// A member called with automation's arguments: the one way in, for late-bound and vtable clients.
#ifndef VANDPUBLIC_COM_MEMBER_CALL_H
#define VANDPUBLIC_COM_MEMBER_CALL_H

#include <cstddef>
#include <optional>
#include <span>

#include "com/argument_place.h"
#include "com/failure.h"
#include "frame/clsPublic.h"

namespace vandpublic {

// Calls the member in a slot. Arguments stand in the order of the parameters; null, or the value
// that stands for a missing argument, leaves one out. `result` receives what the member returned;
// it is Empty after a failure. By-reference arguments are written back in any case.
//
// Nothing, or why the call failed. Raises nothing.
std::optional<Failure> CallMember(clsPublic& object, std::size_t slot,
                                  std::span<VARIANTARG* const> arguments, LCID locale,
                                  OwnedVariant& result) noexcept;

}  // namespace vandpublic

#endif
