// The one place where DES is computed: bytes in, bytes out. Everything that enciphers goes through
// these functions.
//
// DesCipherBlocks is what DES and UDES are. The others do what a sequence of calls of DES and UDES
// would do, in one go; they are for arguments that have been checked, and never fail.
#ifndef VANDPUBLIC_CRYPTO_DES_ENGINE_H
#define VANDPUBLIC_CRYPTO_DES_ENGINE_H

#include <span>

#include "runtime/arrays.h"

namespace vandpublic {

// DES (FIPS 46-3) in electronic code book mode over bytes 0 to SrcLen - 1 of Source, under key
// bytes 0 to 7, into the same bytes of Result, which may be Source or Key. Subscripts are
// absolute.
//
// False, and nothing touched, when SrcLen is no multiple of 8. Fault 9 for a subscript outside an
// array; what lies before it is written.
bool DesCipherBlocks(const ByteArray& Key, const ByteArray& Source, Integer SrcLen,
                     ByteArray& Result, bool Encipher);

// Whether the array has subscripts 0 to count - 1; true for a count of 0.
bool HasSubscripts(const ByteArray& array, Long count) noexcept;
// The elements from subscript 0 on, for arrays that have those subscripts.
std::span<const Byte> FromZero(const ByteArray& array, Long count);
std::span<Byte> FromZero(ByteArray& array, Long count);

using DesKey = std::span<const Byte, 8>;
using DoubleDesKey = std::span<const Byte, 16>;
using DesBlock = std::span<Byte, 8>;

// Two-key triple DES: enciphers under key bytes 0 to 7, deciphers under 8 to 15, enciphers under 0
// to 7, or deciphers, enciphers, deciphers. The result is as long as the source, a multiple of 8,
// and is the same memory or other memory; it may be the key.
void TripleDesCipherBlocks(DoubleDesKey key, std::span<const Byte> source, std::span<Byte> result,
                           bool encipher);

// chain = DES(key, chain XOR block) for each block of the message: at least one, whole blocks.
void DesChain(DesKey key, std::span<const Byte> message, DesBlock chain);

// The same under key bytes 0 to 7, the last chain being deciphered under bytes 8 to 15 and
// enciphered under 0 to 7 again.
void RetailChain(DoubleDesKey key, std::span<const Byte> message, DesBlock chain);

}  // namespace vandpublic

#endif
