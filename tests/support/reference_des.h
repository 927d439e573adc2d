// DES and triple DES by a second, independent implementation (the nettle library), to compare with.
#ifndef VANDPUBLIC_TESTS_SUPPORT_REFERENCE_DES_H
#define VANDPUBLIC_TESTS_SUPPORT_REFERENCE_DES_H

#include "runtime/arrays.h"

namespace vandpublic {

// The whole data, whose size is a multiple of 8, block by block. A key of 8 bytes means DES, one
// of 16 two-key and one of 24 three-key triple DES. Throws std::invalid_argument for other sizes.
ByteArray ReferenceCipher(const ByteArray& key, const ByteArray& data, bool encipher);

inline ByteArray ReferenceEncipher(const ByteArray& key, const ByteArray& data) {
  return ReferenceCipher(key, data, true);
}
inline ByteArray ReferenceDecipher(const ByteArray& key, const ByteArray& data) {
  return ReferenceCipher(key, data, false);
}

}  // namespace vandpublic

#endif
