// DES, UDES, DES3 and UDES3: single and two-key triple DES on byte arrays.
#include <algorithm>

#include "convert/array_size.h"
#include "crypto/des_engine.h"
#include "frame/trap.h"
#include "members/messages.h"
#include "runtime/wipe.h"

namespace vandpublic {
namespace {

constexpr Long kKeySize = 8;
constexpr Long kDoubleKeySize = 16;
constexpr Long kBlockSize = 8;

// The first failing check decides the message. The source is checked against one block only, on
// purpose: a shorter one than the length says fails in the engine, the blocks before it written.
bool CipherChecked(clsPublic& object, ByteArray& key, ByteArray& source, Integer length,
                   ByteArray& result, bool encipher) {
  if (SizeOf(object, key) < kKeySize) Reject(messages::kInvalidKeySize);
  if (length < kBlockSize) Reject(messages::kInvalidSourceLength);
  if (length % kBlockSize != 0) Reject(messages::kLengthNotMultipleOf8);
  if (SizeOf(object, source) < kBlockSize) Reject(messages::kSourceTooSmall);
  if (SizeOf(object, result) < kBlockSize || SizeOf(object, result) < length) {
    Reject(messages::kResultTooSmall);
  }
  if (!DesCipherBlocks(key, source, length, result, encipher)) Reject(messages::kEncryptFailed);
  return true;
}

using Cipher = bool (clsPublic::*)(ByteArray&, ByteArray&, Integer&, ByteArray&,
                                   OptionalRef<String>);

// Outer, inner, outer under K1, K2, K1. The length is checked by the first step, which is why the
// work arrays hold a block even for a length of 0 or less.
bool TripleCipher(clsPublic& object, ByteArray& key, ByteArray& source, Integer& length,
                  ByteArray& result, Cipher outer, Cipher inner) {
  if (SizeOf(object, key) < kDoubleKeySize) Reject(messages::kInvalidKeySize);
  WipedByteArray k1(ByteArray::WithBounds(0, kKeySize - 1));
  WipedByteArray k2(ByteArray::WithBounds(0, kKeySize - 1));
  Integer key_bytes = kKeySize;
  object.CpyByteArray(*k1, key, key_bytes, Integer{0}, Integer{0});
  object.CpyByteArray(*k2, key, key_bytes, Integer{0}, Integer{kKeySize});

  const Long work_size = std::max<Long>(length, kBlockSize);
  WipedByteArray t1(ByteArray::WithBounds(0, work_size - 1));
  WipedByteArray t2(ByteArray::WithBounds(0, work_size - 1));
  (object.*outer)(*k1, source, length, *t1, u"");
  (object.*inner)(*k2, *t1, length, *t2, u"");
  (object.*outer)(*k1, *t2, length, result, u"");
  return true;
}

}  // namespace

// rstr_ErrDesc is accepted and never written in all four: failures are told by the raised error.

bool clsPublic::DES(ByteArray& abyt_Key, ByteArray& abyt_Source, Integer& iint_SrcLen,
                    ByteArray& abyt_Result, OptionalRef<String>) {
  return Trapped(*this, Member::DES, [&] {
    return CipherChecked(*this, abyt_Key, abyt_Source, iint_SrcLen, abyt_Result, true);
  });
}

bool clsPublic::UDES(ByteArray& abyt_Key, ByteArray& abyt_Source, Integer& iint_SrcLen,
                     ByteArray& abyt_Result, OptionalRef<String>) {
  return Trapped(*this, Member::UDES, [&] {
    return CipherChecked(*this, abyt_Key, abyt_Source, iint_SrcLen, abyt_Result, false);
  });
}

bool clsPublic::DES3(ByteArray& abyt_Key, ByteArray& abyt_Source, Integer& iint_SrcLen,
                     ByteArray& abyt_Result, OptionalRef<String>) {
  return Trapped(*this, Member::DES3, [&] {
    return TripleCipher(*this, abyt_Key, abyt_Source, iint_SrcLen, abyt_Result, &clsPublic::DES,
                        &clsPublic::UDES);
  });
}

bool clsPublic::UDES3(ByteArray& abyt_Key, ByteArray& abyt_Source, Integer& iint_SrcLen,
                      ByteArray& abyt_Result, OptionalRef<String>) {
  return Trapped(*this, Member::UDES3, [&] {
    return TripleCipher(*this, abyt_Key, abyt_Source, iint_SrcLen, abyt_Result, &clsPublic::UDES,
                        &clsPublic::DES);
  });
}

}  // namespace vandpublic
