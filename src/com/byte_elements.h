// Automation's arrays as our arrays of bytes: of bytes, or of variants that hold numbers, as script
// engines make them.
#ifndef VANDPUBLIC_COM_BYTE_ELEMENTS_H
#define VANDPUBLIC_COM_BYTE_ELEMENTS_H

#include "com/argument_place.h"
#include "runtime/variant.h"

namespace vandpublic {

// The array at the place: a ByteArray, or a ByteTable where it has two dimensions. Null and an
// empty variant have no storage. Raises Refused for arrays of other elements, for elements that
// are no bytes, and for what is no array.
Variant ReadBytes(const ArgumentPlace& place, LCID locale);

// Writes our array (or table) back. Where the bounds are those of the caller's array its elements
// are written where they stand, those that differ only; otherwise it is replaced by a new one with
// elements of the same type (bytes, where there was none). Raises Refused.
void WriteBytes(ArgumentPlace& place, const Variant& bytes, LCID locale);

}  // namespace vandpublic

#endif
