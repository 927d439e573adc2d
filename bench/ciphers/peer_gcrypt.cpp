// libgcrypt. Handles are opened once, as its users would; the key is set in every call.
#include <gcrypt.h>

#include <cstdlib>

#include "peer.h"

namespace bench {
namespace {

gcry_cipher_hd_t Open(int algorithm, int mode, unsigned flags) {
  if (gcry_control(GCRYCTL_INITIALIZATION_FINISHED_P) == 0) {
    gcry_check_version(nullptr);
    gcry_control(GCRYCTL_DISABLE_SECMEM, 0);
    gcry_control(GCRYCTL_INITIALIZATION_FINISHED, 0);
  }
  gcry_cipher_hd_t handle = nullptr;
  if (gcry_cipher_open(&handle, algorithm, mode, flags) != 0) std::abort();
  return handle;
}

void Des(const Byte* key, const Byte* source, Byte* result, std::size_t size) {
  static const gcry_cipher_hd_t handle = Open(GCRY_CIPHER_DES, GCRY_CIPHER_MODE_ECB, 0);
  gcry_cipher_setkey(handle, key, 8);
  gcry_cipher_encrypt(handle, result, size, source, size);
}

void Des3(const Byte* key, const Byte* source, Byte* result, std::size_t size) {
  static const gcry_cipher_hd_t handle = Open(GCRY_CIPHER_3DES, GCRY_CIPHER_MODE_ECB, 0);
  Byte triple[24];
  std::memcpy(triple, key, 16);
  std::memcpy(triple + 16, key, 8);
  gcry_cipher_setkey(handle, triple, sizeof triple);
  gcry_cipher_encrypt(handle, result, size, source, size);
}

void CbcMac(const Byte* key, const Byte* message, std::size_t size, Byte* mac) {
  static const gcry_cipher_hd_t handle =
      Open(GCRY_CIPHER_DES, GCRY_CIPHER_MODE_CBC, GCRY_CIPHER_CBC_MAC);
  gcry_cipher_setkey(handle, key, 8);
  gcry_cipher_reset(handle);
  gcry_cipher_encrypt(handle, mac, 8, message, size);
}

}  // namespace

const Peer kGcrypt = {"libgcrypt", Des, Des3, CbcMac};

}  // namespace bench
