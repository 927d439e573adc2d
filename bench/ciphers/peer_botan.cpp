// Botan 2, two blocks at once where it can. Objects are made once; the key is set in every call.
#include <botan/block_cipher.h>

#include "peer.h"

namespace bench {
namespace {

// Never destroyed: at the end of the program Botan's own memory is gone before such objects are.
Botan::BlockCipher& Make(const char* name) {
  return *Botan::BlockCipher::create_or_throw(name).release();
}

void Des(const Byte* key, const Byte* source, Byte* result, std::size_t size) {
  static Botan::BlockCipher& cipher = Make("DES");
  cipher.set_key(key, 8);
  cipher.encrypt_n(source, result, size / 8);
}

void Des3(const Byte* key, const Byte* source, Byte* result, std::size_t size) {
  static Botan::BlockCipher& cipher = Make("TripleDES");
  cipher.set_key(key, 16);
  cipher.encrypt_n(source, result, size / 8);
}

void CbcMac(const Byte* key, const Byte* message, std::size_t size, Byte* mac) {
  static Botan::BlockCipher& cipher = Make("DES");
  cipher.set_key(key, 8);
  ChainBlocks(message, size, mac, [&](Byte* chain) { cipher.encrypt(chain); });
}

}  // namespace

const Peer kBotan = {"Botan 2", Des, Des3, CbcMac};

}  // namespace bench
