// Crypto++.
#include <cryptopp/des.h>

#include "peer.h"

namespace bench {
namespace {

void Des(const Byte* key, const Byte* source, Byte* result, std::size_t size) {
  const CryptoPP::DES::Encryption cipher(key, 8);
  for (std::size_t i = 0; i < size; i += 8)
    cipher.ProcessBlock(source + i, result + i);
}

void Des3(const Byte* key, const Byte* source, Byte* result, std::size_t size) {
  const CryptoPP::DES_EDE2::Encryption cipher(key, 16);
  for (std::size_t i = 0; i < size; i += 8)
    cipher.ProcessBlock(source + i, result + i);
}

void CbcMac(const Byte* key, const Byte* message, std::size_t size, Byte* mac) {
  const CryptoPP::DES::Encryption cipher(key, 8);
  ChainBlocks(message, size, mac, [&](Byte* chain) { cipher.ProcessBlock(chain); });
}

}  // namespace

const Peer kCryptoPp = {"Crypto++", Des, Des3, CbcMac};

}  // namespace bench
