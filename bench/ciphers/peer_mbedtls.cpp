// mbed TLS.
#include <mbedtls/des.h>

#include "peer.h"

namespace bench {
namespace {

void Des(const Byte* key, const Byte* source, Byte* result, std::size_t size) {
  mbedtls_des_context context;
  mbedtls_des_init(&context);
  mbedtls_des_setkey_enc(&context, key);
  for (std::size_t i = 0; i < size; i += 8)
    mbedtls_des_crypt_ecb(&context, source + i, result + i);
  mbedtls_des_free(&context);
}

void Des3(const Byte* key, const Byte* source, Byte* result, std::size_t size) {
  mbedtls_des3_context context;
  mbedtls_des3_init(&context);
  mbedtls_des3_set2key_enc(&context, key);
  for (std::size_t i = 0; i < size; i += 8)
    mbedtls_des3_crypt_ecb(&context, source + i, result + i);
  mbedtls_des3_free(&context);
}

void CbcMac(const Byte* key, const Byte* message, std::size_t size, Byte* mac) {
  mbedtls_des_context context;
  mbedtls_des_init(&context);
  mbedtls_des_setkey_enc(&context, key);
  ChainBlocks(message, size, mac,
              [&](Byte* chain) { mbedtls_des_crypt_ecb(&context, chain, chain); });
  mbedtls_des_free(&context);
}

}  // namespace

const Peer kMbedTls = {"mbed TLS", Des, Des3, CbcMac};

}  // namespace bench
