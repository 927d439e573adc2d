// FstrIsNullExt.
#include "frame/clsPublic.h"

namespace vandpublic {

bool clsPublic::FstrIsNullExt(const String& istr_Source, bool ibln_VbNullStringIsNull,
                              bool ibln_SpaceIsNull) {
  if (!ibln_VbNullStringIsNull) return false;  // whatever ibln_SpaceIsNull says, on purpose
  if (istr_Source.ByteLength() == 0) return true;
  const bool whole_units = istr_Source.ByteLength() % 2 == 0;  // half a unit is no blank
  return ibln_SpaceIsNull && whole_units && TrimSpaces(istr_Source.view()).empty();
}

}  // namespace vandpublic
