// DispBitArray: a bit array as hexadecimal digits. A private companion of DispBytes.
#ifndef VANDPUBLIC_CONVERT_BIT_DUMP_H
#define VANDPUBLIC_CONVERT_BIT_DUMP_H

#include "frame/clsPublic.h"

namespace vandpublic {

// Renders DataLen bits, most significant bit of each digit first; a blank stands before every
// odd-numbered digit, CR LF behind every CntPerLine pairs of digits when that is above 0. Bits is
// one-dimensional when RowWidth is 0, else a table with RowWidth elements to a row; an element
// counts as 1 only when it is 1. The digits are handed out in Text.
//
// Returns False, logs and fills ErrDesc when DataLen is no multiple of 4. A bit outside the array
// is plain fault 9.
bool DispBitArray(clsPublic& object, const Variant& Bits, Integer DataLen, Integer CntPerLine,
                  Integer RowWidth, String& ErrDesc, String& Text);

}  // namespace vandpublic

#endif
