// MAC and TMAC: four-byte message authentication codes over up to 1023 bytes.
//
// MAC is ISO/IEC 9797-1 MAC algorithm 1 (CBC-MAC) with DES, TMAC algorithm 3 (the retail MAC of
// ANSI X9.19); both with padding method 2 and a caller-given initial value.
#include <algorithm>
#include <array>
#include <span>

#include "crypto/des_engine.h"
#include "frame/trap.h"
#include "runtime/wipe.h"

namespace vandpublic {
namespace {

constexpr Long kBlockSize = 8;
constexpr Long kDoubleKeySize = 16;
constexpr Long kMessageBuffer = 1024;
constexpr Long kMacSize = 4;
constexpr Byte kPaddingMark = 0x80;

ByteArray Block() { return ByteArray::WithBounds(0, kBlockSize - 1); }

void CopyBytes(clsPublic& object, ByteArray& destination, ByteArray& source, Integer length,
               Integer source_start) {
  object.CpyByteArray(destination, source, length, Integer{0}, source_start);
}

// The padded message and the chain of a call in which nothing can fail before the code is handed
// out; wiped at the end.
class Work {
 public:
  Work(const ByteArray& source, Integer length, const ByteArray& initial) : length_(length) {
    const auto bytes = FromZero(source, length);
    std::copy(bytes.begin(), bytes.end(), message_.begin());
    const std::span<Byte> padding =
        std::span(message_).first(Message().size()).subspan(bytes.size());
    std::fill(padding.begin(), padding.end(), Byte{0});
    padding.front() = kPaddingMark;
    const auto start = FromZero(initial, kBlockSize);
    std::copy(start.begin(), start.end(), chain_.begin());
  }
  Work(const Work&) = delete;
  Work& operator=(const Work&) = delete;
  ~Work() {
    WipeMemory(message_.data(), Message().size());
    WipeMemory(chain_.data(), chain_.size());
  }

  // Whole blocks: as many as the message fills with at least one byte of padding.
  std::span<const Byte> Message() const {
    return std::span(message_).first(static_cast<std::size_t>((length_ / 8 + 1) * 8));
  }
  DesBlock Chain() { return chain_; }

 private:
  Integer length_;
  std::array<Byte, kMessageBuffer> message_;  // written as far as it is used
  std::array<Byte, kBlockSize> chain_;
};

bool CannotFail(const ByteArray& key, Long key_size, const ByteArray& source, Integer length,
                const ByteArray& initial) {
  return length >= 0 && length < kMessageBuffer && HasSubscripts(key, key_size) &&
         HasSubscripts(source, length) && HasSubscripts(initial, kBlockSize);
}

// As many of the code's bytes as the receiver has subscripts 0 to 3 for, then fault 9.
void HandOut(std::span<const Byte> chain, ByteArray& receiver) {
  for (Long j = 0; j < kMacSize; ++j)
    receiver.At(j) = chain[static_cast<std::size_t>(j)];
}

// The first steps of a code, each as a call of the member it belongs to, for a call of which one
// must fail: it is then logged by the member that it fails in.
void FailInSteps(clsPublic& object, ByteArray& key, Long key_halves, ByteArray& source,
                 Integer length, ByteArray& initial) {
  ByteArray message = ByteArray::WithBounds(0, kMessageBuffer - 1);
  CopyBytes(object, message, source, length, 0);
  message.At(length) = kPaddingMark;  // 1024 bytes leave no room for it
  ByteArray block = Block();
  Integer block_size = kBlockSize;
  CopyBytes(object, block, initial, block_size, 0);
  if (key_halves == 1) {
    object.DES(key, block, block_size, block);
  } else {
    WipedByteArray half(Block());
    CopyBytes(object, *half, key, block_size, 0);
    CopyBytes(object, *half, key, block_size, kBlockSize);
  }
}

}  // namespace

// Both do all steps in one, but for a call of which one must fail: nothing else would show a
// difference.

bool clsPublic::MAC(ByteArray& rabyt_Key, ByteArray& rabyt_Src, Integer& iint_SrcLen,
                    ByteArray& rabyt_Init, ByteArray& rabyt_MAC, OptionalRef<String>) {
  return Trapped(*this, Member::MAC, [&] {
    if (CannotFail(rabyt_Key, kBlockSize, rabyt_Src, iint_SrcLen, rabyt_Init)) {
      Work work(rabyt_Src, iint_SrcLen, rabyt_Init);
      DesChain(FromZero(rabyt_Key, kBlockSize).first<8>(), work.Message(), work.Chain());
      HandOut(work.Chain(), rabyt_MAC);
    } else {
      FailInSteps(*this, rabyt_Key, 1, rabyt_Src, iint_SrcLen, rabyt_Init);
    }
    return true;
  });
}

bool clsPublic::TMAC(ByteArray& rabyt_Key, ByteArray& rabyt_Src, Integer& iint_SrcLen,
                     ByteArray& rabyt_Init, ByteArray& rabyt_MAC, OptionalRef<String>) {
  return Trapped(*this, Member::TMAC, [&] {
    if (CannotFail(rabyt_Key, kDoubleKeySize, rabyt_Src, iint_SrcLen, rabyt_Init)) {
      Work work(rabyt_Src, iint_SrcLen, rabyt_Init);
      RetailChain(FromZero(rabyt_Key, kDoubleKeySize).first<16>(), work.Message(), work.Chain());
      HandOut(work.Chain(), rabyt_MAC);
    } else {
      FailInSteps(*this, rabyt_Key, 2, rabyt_Src, iint_SrcLen, rabyt_Init);
    }
    return true;
  });
}

}  // namespace vandpublic
