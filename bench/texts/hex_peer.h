// What the hex benchmarks ask of every library: 8-bit text, into memory of the caller.
#ifndef VANDPUBLIC_BENCH_TEXTS_HEX_PEER_H
#define VANDPUBLIC_BENCH_TEXTS_HEX_PEER_H

#include <cstddef>
#include <cstdint>

namespace bench {

using Byte = std::uint8_t;

struct HexPeer {
  const char* name;
  // Writes two digits for each byte, in the case that the library is quickest with. There is room
  // for a final zero.
  void (*encode)(const Byte* bytes, std::size_t count, char* digits);
  // Reads `count` digits, an even number, and checks them where the library can.
  void (*decode)(const char* digits, std::size_t count, Byte* bytes);
  // Two digits and a separator for each byte but the last; null where the library has no such
  // thing. There is room for one more separator and a final zero.
  void (*dump)(const Byte* bytes, std::size_t count, char* text);
};

// The peers that this build found, each in a source of its own.
extern const HexPeer kOpenSsl;
extern const HexPeer kNettle;
extern const HexPeer kBotan;
extern const HexPeer kCryptoPp;

}  // namespace bench

#endif
