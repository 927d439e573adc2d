// OpenSSL's low-level DES.
#define OPENSSL_SUPPRESS_DEPRECATED
#include <openssl/des.h>

#include "peer.h"

namespace bench {
namespace {

DES_key_schedule Schedule(const Byte* key) {
  DES_cblock block;
  std::memcpy(block, key, 8);
  DES_key_schedule schedule;
  DES_set_key_unchecked(&block, &schedule);
  return schedule;
}

const_DES_cblock* Block(const Byte* bytes) {
  return reinterpret_cast<const_DES_cblock*>(const_cast<Byte*>(bytes));
}

void Des(const Byte* key, const Byte* source, Byte* result, std::size_t size) {
  DES_key_schedule schedule = Schedule(key);
  for (std::size_t i = 0; i < size; i += 8)
    DES_ecb_encrypt(Block(source + i), Block(result + i), &schedule, DES_ENCRYPT);
}

void Des3(const Byte* key, const Byte* source, Byte* result, std::size_t size) {
  DES_key_schedule k1 = Schedule(key);
  DES_key_schedule k2 = Schedule(key + 8);
  for (std::size_t i = 0; i < size; i += 8)
    DES_ecb2_encrypt(Block(source + i), Block(result + i), &k1, &k2, DES_ENCRYPT);
}

void CbcMac(const Byte* key, const Byte* message, std::size_t size, Byte* mac) {
  DES_key_schedule schedule = Schedule(key);
  DES_cblock chain = {};
  DES_cblock out;
  DES_cbc_cksum(message, &out, static_cast<long>(size), &schedule, &chain);
  std::memcpy(mac, out, 8);
}

}  // namespace

const Peer kOpenSsl = {"OpenSSL", Des, Des3, CbcMac};

}  // namespace bench
