// The size of a byte array by way of the ArraySize member, without copying the array.
#ifndef VANDPUBLIC_CONVERT_ARRAY_SIZE_H
#define VANDPUBLIC_CONVERT_ARRAY_SIZE_H

#include "frame/clsPublic.h"

namespace vandpublic {

// The elements of the first dimension; 0 for an array that is not dimensioned.
inline Long SizeOf(clsPublic& object, ByteArray& array) {
  Variant reference = Variant::Referring(array);
  return object.ArraySize(reference);
}

}  // namespace vandpublic

#endif
