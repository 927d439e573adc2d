// OpenSSL's hexadecimal texts.
#include <openssl/crypto.h>

#include "hex_peer.h"

namespace bench {
namespace {

void Encode(const Byte* bytes, std::size_t count, char* digits) {
  OPENSSL_buf2hexstr_ex(digits, 2 * count + 1, nullptr, bytes, count, '\0');
}

void Decode(const char* digits, std::size_t count, Byte* bytes) {
  OPENSSL_hexstr2buf_ex(bytes, count / 2, nullptr, digits, '\0');
}

void Dump(const Byte* bytes, std::size_t count, char* text) {
  OPENSSL_buf2hexstr_ex(text, 3 * count + 1, nullptr, bytes, count, ' ');
}

}  // namespace

const HexPeer kOpenSsl = {"OpenSSL", Encode, Decode, Dump};

}  // namespace bench
