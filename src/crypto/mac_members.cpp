// MAC and TMAC: four-byte message authentication codes over up to 1023 bytes.
//
// MAC is ISO/IEC 9797-1 MAC algorithm 1 (CBC-MAC) with DES, TMAC algorithm 3 (the retail MAC of
// ANSI X9.19); both with padding method 2 and a caller-given initial value.
#include "frame/trap.h"
#include "runtime/wipe.h"

namespace vandpublic {
namespace {

constexpr Long kBlockSize = 8;
constexpr Long kMessageBuffer = 1024;
constexpr Long kMacSize = 4;
constexpr Byte kPaddingMark = 0x80;

ByteArray Block() { return ByteArray::WithBounds(0, kBlockSize - 1); }

void CopyBytes(clsPublic& object, ByteArray& destination, ByteArray& source, Integer length,
               Integer source_start) {
  object.CpyByteArray(destination, source, length, Integer{0}, source_start);
}

// The padded message. Padding is always added, so a length that is a multiple of 8 gets a block
// of its own; 1024 bytes leave no room for it, which is fault 9.
ByteArray PaddedMessage(clsPublic& object, ByteArray& source, Integer length) {
  ByteArray message = ByteArray::WithBounds(0, kMessageBuffer - 1);
  CopyBytes(object, message, source, length, 0);
  message.At(length) = kPaddingMark;
  return message;
}

// chain = DES(key, chain XOR block), block by block.
void Chain(clsPublic& object, ByteArray& key, const ByteArray& message, Integer length,
           ByteArray& chain) {
  ByteArray work = Block();
  Integer block_size = kBlockSize;
  const Long blocks = length / kBlockSize + 1;
  for (Long start = 0; start < blocks * kBlockSize; start += kBlockSize) {
    for (Long j = 0; j < kBlockSize; ++j)
      work.At(j) = chain.At(j) ^ message.At(start + j);
    object.DES(key, work, block_size, chain);
  }
}

// As many of the code's bytes as the receiver has subscripts 0 to 3 for, then fault 9.
void HandOut(const ByteArray& chain, ByteArray& receiver) {
  for (Long j = 0; j < kMacSize; ++j)
    receiver.At(j) = chain.At(j);
}

}  // namespace

bool clsPublic::MAC(ByteArray& rabyt_Key, ByteArray& rabyt_Src, Integer& iint_SrcLen,
                    ByteArray& rabyt_Init, ByteArray& rabyt_MAC, OptionalRef<String>) {
  return Trapped(*this, Member::MAC, [&] {
    const ByteArray message = PaddedMessage(*this, rabyt_Src, iint_SrcLen);
    ByteArray chain = Block();
    CopyBytes(*this, chain, rabyt_Init, kBlockSize, 0);
    Chain(*this, rabyt_Key, message, iint_SrcLen, chain);
    HandOut(chain, rabyt_MAC);
    return true;
  });
}

bool clsPublic::TMAC(ByteArray& rabyt_Key, ByteArray& rabyt_Src, Integer& iint_SrcLen,
                     ByteArray& rabyt_Init, ByteArray& rabyt_MAC, OptionalRef<String>) {
  return Trapped(*this, Member::TMAC, [&] {
    const ByteArray message = PaddedMessage(*this, rabyt_Src, iint_SrcLen);
    ByteArray chain = Block();
    WipedByteArray k1(Block());
    WipedByteArray k2(Block());
    CopyBytes(*this, chain, rabyt_Init, kBlockSize, 0);
    CopyBytes(*this, *k1, rabyt_Key, kBlockSize, 0);
    CopyBytes(*this, *k2, rabyt_Key, kBlockSize, kBlockSize);
    Chain(*this, *k1, message, iint_SrcLen, chain);

    // The output transformation.
    ByteArray work = Block();
    Integer block_size = kBlockSize;
    UDES(*k2, chain, block_size, work);
    DES(*k1, work, block_size, chain);
    HandOut(chain, rabyt_MAC);
    return true;
  });
}

}  // namespace vandpublic
