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

// Whether no check of CipherChecked and no subscript of the engine can fail.
bool CannotFail(const ByteArray& key, Long key_size, const ByteArray& source, Integer length,
                const ByteArray& result) {
  return length >= kBlockSize && length % kBlockSize == 0 && HasSubscripts(key, key_size) &&
         HasSubscripts(source, length) && HasSubscripts(result, length);
}

// The first failing check decides the message. The source is checked against one block only, on
// purpose: a shorter one than the length says fails in the engine, the blocks before it written.
void Check(clsPublic& object, ByteArray& key, ByteArray& source, Integer length,
           ByteArray& result) {
  if (SizeOf(object, key) < kKeySize) Reject(messages::kInvalidKeySize);
  if (length < kBlockSize) Reject(messages::kInvalidSourceLength);
  if (length % kBlockSize != 0) Reject(messages::kLengthNotMultipleOf8);
  if (SizeOf(object, source) < kBlockSize) Reject(messages::kSourceTooSmall);
  if (SizeOf(object, result) < kBlockSize || SizeOf(object, result) < length) {
    Reject(messages::kResultTooSmall);
  }
}

bool CipherChecked(clsPublic& object, ByteArray& key, ByteArray& source, Integer length,
                   ByteArray& result, bool encipher) {
  if (!CannotFail(key, kKeySize, source, length, result)) {
    Check(object, key, source, length, result);
  }
  if (!DesCipherBlocks(key, source, length, result, encipher)) Reject(messages::kEncryptFailed);
  return true;
}

using Cipher = bool (clsPublic::*)(ByteArray&, ByteArray&, Integer&, ByteArray&,
                                   OptionalRef<String>);

// Outer, inner, outer under K1, K2, K1, each as a call of the member: what fails is then logged by
// the member it fails in. The length is checked by the first step, which is why the work arrays
// hold a block even for a length of 0 or less.
void CipherInSteps(clsPublic& object, ByteArray& key, ByteArray& source, Integer& length,
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
}

// The three steps in one, but for a call of which one must fail: nothing else would show a
// difference.
bool TripleCipher(clsPublic& object, ByteArray& key, ByteArray& source, Integer& length,
                  ByteArray& result, bool encipher) {
  if (CannotFail(key, kDoubleKeySize, source, length, result)) {
    TripleDesCipherBlocks(FromZero(key, kDoubleKeySize).first<16>(), FromZero(source, length),
                          FromZero(result, length), encipher);
  } else {
    const Cipher outer = encipher ? &clsPublic::DES : &clsPublic::UDES;
    const Cipher inner = encipher ? &clsPublic::UDES : &clsPublic::DES;
    CipherInSteps(object, key, source, length, result, outer, inner);
  }
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
    return TripleCipher(*this, abyt_Key, abyt_Source, iint_SrcLen, abyt_Result, true);
  });
}

bool clsPublic::UDES3(ByteArray& abyt_Key, ByteArray& abyt_Source, Integer& iint_SrcLen,
                      ByteArray& abyt_Result, OptionalRef<String>) {
  return Trapped(*this, Member::UDES3, [&] {
    return TripleCipher(*this, abyt_Key, abyt_Source, iint_SrcLen, abyt_Result, false);
  });
}

}  // namespace vandpublic
