// The one place where DES is computed: bytes in, bytes out. DES and UDES call it, everything else
// that enciphers goes through those two.
#ifndef VANDPUBLIC_CRYPTO_DES_ENGINE_H
#define VANDPUBLIC_CRYPTO_DES_ENGINE_H

#include "runtime/arrays.h"

namespace vandpublic {

// DES (FIPS 46-3) in electronic code book mode over bytes 0 to SrcLen - 1 of Source, under key
// bytes 0 to 7, into the same bytes of Result, which may be Source or Key. Subscripts are
// absolute.
//
// False, and nothing touched, when SrcLen is no multiple of 8. Fault 9 for a subscript outside an
// array; the blocks before it are written.
bool DesCipherBlocks(const ByteArray& Key, const ByteArray& Source, Integer SrcLen,
                     ByteArray& Result, bool Encipher);

}  // namespace vandpublic

#endif
