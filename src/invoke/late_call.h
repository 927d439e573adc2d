// Calls by name: members called with variants, as automation clients and the tool call them.
#ifndef VANDPUBLIC_INVOKE_LATE_CALL_H
#define VANDPUBLIC_INVOKE_LATE_CALL_H

#include <cstddef>
#include <exception>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "frame/clsPublic.h"
#include "members/member_table.h"
#include "runtime/errors.h"

namespace vandpublic {

// An argument that does not fit, found before the member ran: nothing was logged or changed.
class VANDPUBLIC_API ArgumentError : public std::exception {
 public:
  ArgumentError(FaultNumber reason, std::size_t index, std::string_view parameter);

  // 13 not convertible, 6 out of range, 94 null, 449 missing, 450 too many.
  FaultNumber reason() const noexcept { return reason_; }
  // The position of the argument, counted from 0.
  std::size_t index() const noexcept { return index_; }
  const char* what() const noexcept override { return what_.c_str(); }

 private:
  FaultNumber reason_;
  std::size_t index_;
  std::string what_;
};

// What a parameter holds before it is given a value: its default when it is optional, else the
// initial value of its type (an undimensioned array, "", 0, the unset reference).
VANDPUBLIC_API Variant InitialValue(const Parameter& parameter);

// The position of a parameter by its name, compared without regard to case.
VANDPUBLIC_API std::optional<std::size_t> FindParameter(const MemberInfo& member,
                                                        std::string_view name) noexcept;

// Calls the member in a slot. Arguments stand in the order of the parameters; a null
// pointer or a short list leaves optional parameters out.
//
// Values are converted as automation does it: text to number and number to text, True to -1,
// fractions with halves to even. A by-reference argument that already has the parameter's type is
// worked on in place, so that the same array given twice is one array; any other is converted, and
// replaced by the result when the member changed it. An empty variant becomes an undimensioned
// array where an array is wanted. By-reference results stay written when the member fails.
//
// Raises what the member raises, and ArgumentError.
VANDPUBLIC_API Variant InvokeSlot(clsPublic& object, std::size_t slot_index,
                                  std::span<Variant* const> arguments);

}  // namespace vandpublic

#endif
