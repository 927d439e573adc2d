// What the cipher benchmarks ask of every library: the key schedule is part of every call.
#ifndef VANDPUBLIC_BENCH_CIPHERS_PEER_H
#define VANDPUBLIC_BENCH_CIPHERS_PEER_H

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace bench {

using Byte = std::uint8_t;

struct Peer {
  const char* name;
  // Enciphers whole blocks in electronic code book mode, under an 8-byte key.
  void (*des)(const Byte* key, const Byte* source, Byte* result, std::size_t size);
  // The same with triple DES under a 16-byte key.
  void (*des3)(const Byte* key, const Byte* source, Byte* result, std::size_t size);
  // CBC from a chain of zeros under an 8-byte key; the last block goes to `mac`.
  void (*cbc_mac)(const Byte* key, const Byte* message, std::size_t size, Byte* mac);
};

// The retail MAC by what every library has: CBC over all blocks but the last, triple DES for it.
inline void RetailMac(const Peer& peer, const Byte* key, const Byte* message, std::size_t size,
                      Byte* mac) {
  Byte last[8];
  std::memcpy(last, message + size - 8, 8);
  if (size > 8) {
    Byte chain[8];
    peer.cbc_mac(key, message, size - 8, chain);
    for (int i = 0; i < 8; ++i)
      last[i] ^= chain[i];
  }
  peer.des3(key, last, mac, 8);
}

// The chain for libraries whose CBC writes every block: one block after the other.
template <class Encipher>
void ChainBlocks(const Byte* message, std::size_t size, Byte* mac, Encipher encipher) {
  Byte chain[8] = {};
  for (std::size_t start = 0; start < size; start += 8) {
    for (std::size_t i = 0; i < 8; ++i)
      chain[i] ^= message[start + i];
    encipher(chain);
  }
  std::memcpy(mac, chain, 8);
}

// The peers that this build found, each in a source of its own.
extern const Peer kOpenSsl;
extern const Peer kNettle;
extern const Peer kGcrypt;
extern const Peer kBotan;
extern const Peer kCryptoPp;
extern const Peer kMbedTls;
extern const Peer kTomCrypt;

}  // namespace bench

#endif
