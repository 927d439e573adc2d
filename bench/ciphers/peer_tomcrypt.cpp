// LibTomCrypt.
#include <tomcrypt.h>

#include "peer.h"

namespace bench {
namespace {

void Des(const Byte* key, const Byte* source, Byte* result, std::size_t size) {
  symmetric_key schedule;
  des_setup(key, 8, 0, &schedule);
  for (std::size_t i = 0; i < size; i += 8)
    des_ecb_encrypt(source + i, result + i, &schedule);
}

void Des3(const Byte* key, const Byte* source, Byte* result, std::size_t size) {
  symmetric_key schedule;
  des3_setup(key, 16, 0, &schedule);
  for (std::size_t i = 0; i < size; i += 8)
    des3_ecb_encrypt(source + i, result + i, &schedule);
}

void CbcMac(const Byte* key, const Byte* message, std::size_t size, Byte* mac) {
  symmetric_key schedule;
  des_setup(key, 8, 0, &schedule);
  ChainBlocks(message, size, mac, [&](Byte* chain) { des_ecb_encrypt(chain, chain, &schedule); });
}

}  // namespace

const Peer kTomCrypt = {"LibTomCrypt", Des, Des3, CbcMac};

}  // namespace bench
