// GenOrigalityKey: a series of 16-byte keys from a seed, by a chain of single-DES steps.
#include "convert/array_size.h"
#include "frame/trap.h"
#include "members/messages.h"
#include "runtime/wipe.h"

namespace vandpublic {
namespace {

constexpr Long kHalfSize = 8;
constexpr Long kKeySize = 16;

// A block of the chain: all of them hold keys or parts of keys.
class Block : public WipedByteArray {
 public:
  explicit Block(Long count) : WipedByteArray(ByteArray::WithBounds(0, count - 1)) {}
  Byte& At(Long subscript) { return (**this).At(subscript); }
};

// The running chain. Which block is key and which is data in each call, the double use of U
// included, is what makes the keys: nothing here may change.
class KeyChain {
 public:
  KeyChain(clsPublic& object, ByteArray& seed) : object_(object) {
    Block left(kHalfSize);
    Copy(left, 0, seed, 0);
    Copy(right_, 0, seed, kHalfSize);
    for (Long i = 0; i < kHalfSize; ++i)
      seed_xor_.At(i) = left.At(i) ^ right_.At(i);
    Block zero_key(kKeySize);
    Decipher(zero_key, seed_xor_, t_);
    Encipher(t_, right_, u_);
    Decipher(u_, left, k_);
  }

  // The next key of the series into row j of the table.
  void WriteNext(ByteTable& keys, Long j) {
    Step(k_, t_);
    for (Long i = 0; i < kHalfSize; ++i)
      p1_.At(i) = k_.At(i) ^ t_.At(i);
    Step(p1_, p2_);
    Step(p2_, p3_);
    Step(p3_, k_);
    Copy(t_, 0, *p1_, 0);
    Copy(t_, kHalfSize, *p2_, 0);
    Copy(u_, 0, *p3_, 0);
    Copy(u_, kHalfSize, *k_, 0);
    for (Long c = 0; c < kKeySize; ++c)
      keys.At(j, c) = t_.At(c) ^ u_.At(c);
  }

 private:
  void Encipher(Block& key, Block& data, Block& result) {
    Integer length = kHalfSize;
    object_.DES(*key, *data, length, *result);
  }
  void Decipher(Block& key, Block& data, Block& result) {
    Integer length = kHalfSize;
    object_.UDES(*key, *data, length, *result);
  }
  void Copy(Block& destination, Integer start, ByteArray& source, Integer source_start) {
    Integer length = kHalfSize;
    object_.CpyByteArray(*destination, source, length, start, source_start);
  }
  // T = D(key, X), U = E(T, R), result = D(U, U)
  void Step(Block& key, Block& result) {
    Decipher(key, seed_xor_, t_);
    Encipher(t_, right_, u_);
    Decipher(u_, u_, result);
  }

  clsPublic& object_;
  Block right_{8};
  Block seed_xor_{8};
  Block k_{16};
  Block t_{32};
  Block u_{32};
  Block p1_{16};
  Block p2_{16};
  Block p3_{16};
};

}  // namespace

bool clsPublic::GenOrigalityKey(ByteArray& abyt_Seed, Integer& iint_KeyNumber,
                                ByteTable& abyt_KeyResult, OptionalRef<String>) {
  return Trapped(*this, Member::GenOrigalityKey, [&] {
    if (SizeOf(*this, abyt_Seed) != kKeySize) Reject(messages::kInvalidSeedSize);
    KeyChain chain(*this, abyt_Seed);
    for (Long j = 0; j < iint_KeyNumber; ++j)
      chain.WriteNext(abyt_KeyResult, j);
    return true;
  });
}

}  // namespace vandpublic
