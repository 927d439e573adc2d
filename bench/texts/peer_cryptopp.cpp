// Crypto++'s filters for hexadecimal text. Its decoder skips what is no digit instead of refusing.
#include <cryptopp/filters.h>
#include <cryptopp/hex.h>

#include "hex_peer.h"

namespace bench {
namespace {

void Encode(const Byte* bytes, std::size_t count, char* digits) {
  auto* const out = reinterpret_cast<Byte*>(digits);
  const CryptoPP::ArraySource source(
      bytes, count, true, new CryptoPP::HexEncoder(new CryptoPP::ArraySink(out, 2 * count)));
}

void Decode(const char* digits, std::size_t count, Byte* bytes) {
  const auto* const in = reinterpret_cast<const Byte*>(digits);
  const CryptoPP::ArraySource source(
      in, count, true, new CryptoPP::HexDecoder(new CryptoPP::ArraySink(bytes, count / 2)));
}

void Dump(const Byte* bytes, std::size_t count, char* text) {
  auto* const out = reinterpret_cast<Byte*>(text);
  const CryptoPP::ArraySource source(
      bytes, count, true,
      new CryptoPP::HexEncoder(new CryptoPP::ArraySink(out, 3 * count), true, 2, " "));
}

}  // namespace

const HexPeer kCryptoPp = {"Crypto++", Encode, Decode, Dump};

}  // namespace bench
