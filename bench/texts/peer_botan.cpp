// Botan 2's hexadecimal texts; no separators.
#include <botan/hex.h>

#include "hex_peer.h"

namespace bench {
namespace {

void Encode(const Byte* bytes, std::size_t count, char* digits) {
  Botan::hex_encode(digits, bytes, count, true);
}

void Decode(const char* digits, std::size_t count, Byte* bytes) {
  Botan::hex_decode(bytes, digits, count, false);
}

}  // namespace

const HexPeer kBotan = {"Botan 2", Encode, Decode, nullptr};

}  // namespace bench
