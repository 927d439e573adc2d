// The border to the second implementation on Windows: the system's own cryptographic provider.
#include <windows.h>
// After windows.h, which it builds on.
#include <wincrypt.h>

#include <algorithm>
#include <stdexcept>
#include <vector>

#include "support/reference_des.h"

namespace vandpublic {
namespace {

void Check(BOOL done) {
  if (done == 0) throw std::runtime_error("the system's DES fails");
}

// Finding the provider takes milliseconds, so there is one for all keys; the process's end frees
// it.
HCRYPTPROV Provider() {
  static const HCRYPTPROV provider = [] {
    HCRYPTPROV found = 0;
    Check(CryptAcquireContextW(&found, nullptr, MS_ENHANCED_PROV_W, PROV_RSA_FULL,
                               CRYPT_VERIFYCONTEXT));
    return found;
  }();
  return provider;
}

// A key that is not kept anywhere.
class ProviderKey {
 public:
  explicit ProviderKey(std::span<const Byte> bytes) {
    std::vector<Byte> blob = Blob(bytes);
    Check(CryptImportKey(Provider(), blob.data(), static_cast<DWORD>(blob.size()), 0, 0, &key_));
    DWORD mode = CRYPT_MODE_ECB;
    Check(CryptSetKeyParam(key_, KP_MODE, reinterpret_cast<BYTE*>(&mode), 0));
  }
  ~ProviderKey() {
    if (key_ != 0) CryptDestroyKey(key_);
  }
  ProviderKey(const ProviderKey&) = delete;
  ProviderKey& operator=(const ProviderKey&) = delete;

  void Apply(std::vector<Byte>& data, bool encipher) const {
    auto size = static_cast<DWORD>(data.size());
    // Not the last piece, so that nothing is padded.
    Check(encipher ? CryptEncrypt(key_, 0, FALSE, 0, data.data(), &size, size)
                   : CryptDecrypt(key_, 0, FALSE, 0, data.data(), &size));
  }

 private:
  static std::vector<Byte> Blob(std::span<const Byte> key) {
    struct {
      BLOBHEADER header;
      DWORD size;
    } start{{PLAINTEXTKEYBLOB, CUR_BLOB_VERSION, 0, Algorithm(key.size())},
            static_cast<DWORD>(key.size())};
    const auto* const bytes = reinterpret_cast<const Byte*>(&start);
    std::vector<Byte> blob(bytes, bytes + sizeof(start));
    blob.insert(blob.end(), key.begin(), key.end());
    return blob;
  }

  static ALG_ID Algorithm(std::size_t key_size) {
    if (key_size == 8) return CALG_DES;
    if (key_size == 16) return CALG_3DES_112;
    if (key_size == 24) return CALG_3DES;
    throw std::invalid_argument("key size");
  }

  HCRYPTKEY key_ = 0;
};

}  // namespace

ByteArray ReferenceCipher(const ByteArray& key, const ByteArray& data, bool encipher) {
  const auto elements = data.Elements();
  if (elements.size() % 8 != 0) throw std::invalid_argument("no whole blocks");
  std::vector<Byte> result(elements.begin(), elements.end());
  const ProviderKey provider_key(key.Elements());
  if (!result.empty()) provider_key.Apply(result, encipher);
  return ByteArray(std::move(result));
}

}  // namespace vandpublic
