// nettle's base 16; lower case, no separators.
#include <nettle/base16.h>

#include "hex_peer.h"

namespace bench {
namespace {

void Encode(const Byte* bytes, std::size_t count, char* digits) {
  base16_encode_update(digits, count, bytes);
}

void Decode(const char* digits, std::size_t count, Byte* bytes) {
  base16_decode_ctx context;
  base16_decode_init(&context);
  std::size_t size = count / 2;
  base16_decode_update(&context, &size, bytes, count, digits);
}

}  // namespace

const HexPeer kNettle = {"nettle", Encode, Decode, nullptr};

}  // namespace bench
