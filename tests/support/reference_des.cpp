// The border to the second implementation.
#include "support/reference_des.h"

#include <nettle/des.h>

#include <stdexcept>
#include <vector>

namespace vandpublic {

ByteArray ReferenceCipher(const ByteArray& key, const ByteArray& data, bool encipher) {
  const auto bytes = key.Elements();
  const std::size_t size = data.Elements().size();
  if (size % DES_BLOCK_SIZE != 0) throw std::invalid_argument("no whole blocks");
  std::vector<Byte> result(size);
  if (bytes.size() == DES_KEY_SIZE) {
    des_ctx context;
    des_set_key(&context, bytes.data());  // it tells of weak keys, but takes them
    const auto cipher = encipher ? des_encrypt : des_decrypt;
    cipher(&context, size, result.data(), data.Elements().data());
    return ByteArray(std::move(result));
  }
  if (bytes.size() != 16 && bytes.size() != DES3_KEY_SIZE) throw std::invalid_argument("key size");
  std::vector<Byte> whole(bytes.begin(), bytes.end());
  whole.insert(whole.end(), bytes.begin(), bytes.begin() + DES_KEY_SIZE);
  whole.resize(bytes.size() == 16 ? whole.size() : DES3_KEY_SIZE);
  des3_ctx context;
  des3_set_key(&context, whole.data());
  const auto cipher = encipher ? des3_encrypt : des3_decrypt;
  cipher(&context, size, result.data(), data.Elements().data());
  return ByteArray(std::move(result));
}

}  // namespace vandpublic
