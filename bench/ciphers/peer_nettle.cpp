// GNU Nettle.
#include <nettle/des.h>

#include "peer.h"

namespace bench {
namespace {

void Des(const Byte* key, const Byte* source, Byte* result, std::size_t size) {
  des_ctx context;
  des_set_key(&context, key);
  des_encrypt(&context, size, result, source);
}

void Des3(const Byte* key, const Byte* source, Byte* result, std::size_t size) {
  Byte triple[24];
  std::memcpy(triple, key, 16);
  std::memcpy(triple + 16, key, 8);
  des3_ctx context;
  des3_set_key(&context, triple);
  des3_encrypt(&context, size, result, source);
}

void CbcMac(const Byte* key, const Byte* message, std::size_t size, Byte* mac) {
  des_ctx context;
  des_set_key(&context, key);
  ChainBlocks(message, size, mac, [&](Byte* chain) { des_encrypt(&context, 8, chain, chain); });
}

}  // namespace

const Peer kNettle = {"nettle", Des, Des3, CbcMac};

}  // namespace bench
