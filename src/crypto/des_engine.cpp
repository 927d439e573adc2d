// The engine's border. What runs behind it is the model itself.
#include "crypto/des_engine.h"

#include "crypto/des_model.h"

namespace vandpublic {

bool DesCipherBlocks(const ByteArray& Key, const ByteArray& Source, Integer SrcLen,
                     ByteArray& Result, bool Encipher) {
  return des::CipherBlocks(View(Key), View(Source), SrcLen, View(Result), Encipher);
}

}  // namespace vandpublic
