// One argument of an automation call on its way into a member and back.
#ifndef VANDPUBLIC_COM_CALL_ARGUMENT_H
#define VANDPUBLIC_COM_CALL_ARGUMENT_H

#include <optional>

#include "com/argument_place.h"
#include "members/member_table.h"
#include "runtime/variant.h"

namespace vandpublic {

// Converts what the caller passed to the parameter's type as automation converts, and writes back
// what a member changed in a by-reference one:
//
//   byte arrays  their elements are written where they stand (byte_elements.h)
//   variants     any value; an array of variants that all hold bytes is an array of bytes
//   objects      an IDispatch, seen as the class that the parameter wants; nothing is written back
class CallArgument {
 public:
  // Raises Refused when the value cannot be converted.
  CallArgument(const Parameter& parameter, VARIANTARG& given, LCID locale);

  // Null for one that was left out.
  Variant* value() noexcept { return missing_ ? nullptr : &value_; }

  // Whether this is the caller's same variable or array as the other one's, for a parameter of the
  // same type: then both must work on one value.
  bool IsSameVariable(const CallArgument& other) const noexcept;

  // Stores what the member changed, if the caller can see it. Raises Refused.
  void WriteBack();

  // Whether the result is the very value that came in here. The caller then gets a copy of it, with
  // all that we do not keep of it, such as the elements of an array of texts.
  bool IsReturnedBy(const Variant& result) const;
  OwnedVariant CopyOfGiven() const;

 private:
  Variant Read();
  Variant ReadVariant();
  Variant ReadObject();

  const Parameter& parameter_;
  ArgumentPlace place_;
  LCID locale_;
  bool missing_;
  Variant value_;
  Variant before_;  // of by-reference parameters
};

}  // namespace vandpublic

#endif
