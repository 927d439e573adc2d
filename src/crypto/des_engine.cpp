// The engine's border: subscripts are checked here, the kernels see plain memory.
#include "crypto/des_engine.h"

#include <algorithm>
#include <array>

#include "crypto/byte_view.h"
#include "crypto/kernels/kernel_choice.h"
#include "runtime/wipe.h"

namespace vandpublic {
namespace {

using des::CipherJob;
using des::Pass;
using des::PassList;

constexpr Long kBlock = static_cast<Long>(des::kBlockSize);

// How many blocks from subscript 0 on the array has.
Long WholeBlocks(const ByteArray& array) {
  const std::int64_t bytes = std::int64_t{array.LowerBound()} + array.Count();
  return array.LowerBound() > 0 || bytes < 0 ? 0 : static_cast<Long>(bytes / kBlock);
}

// Where subscript 0 stands; only for use when the array has it.
const Byte* Zeroth(const ByteArray& array) {
  return array.Elements().data() - std::min<std::ptrdiff_t>(array.LowerBound(), 0);
}
Byte* Zeroth(ByteArray& array) {
  return array.Elements().data() - std::min<std::ptrdiff_t>(array.LowerBound(), 0);
}

PassList OnePass(const Byte* key, bool encipher) { return {{{key, encipher}, {}, {}}, 1}; }

PassList ThreePasses(const Byte* key, bool encipher) {
  const Pass outer = {key, encipher};
  return {{outer, {key + des::kBlockSize, !encipher}, outer}, 3};
}

void Run(const PassList& passes, const Byte* source, Byte* result, std::size_t blocks) {
  des::RunJob(des::ActiveKernelSet(), CipherJob{passes, source, result, blocks});
}

// The block that is not whole in the source or the result: read byte by byte, written byte by
// byte, until a subscript fails.
void CipherUntilFault(const Byte* key, ByteView source, Long start, MutableByteView result,
                      bool encipher) {
  std::array<Byte, des::kBlockSize> block{};
  const WipeOnExit wipe(block);
  for (Long i = 0; i < kBlock; ++i)
    block[static_cast<std::size_t>(i)] = source[start + i];
  Run(OnePass(key, encipher), block.data(), block.data(), 1);
  for (Long i = 0; i < kBlock; ++i)
    result[start + i] = block[static_cast<std::size_t>(i)];
}

}  // namespace

bool DesCipherBlocks(const ByteArray& Key, const ByteArray& Source, Integer SrcLen,
                     ByteArray& Result, bool Encipher) {
  if (SrcLen % kBlock != 0) return false;
  if (!HasSubscripts(Key, kBlock)) RaiseFault(FaultNumber::SubscriptOutOfRange);
  const Long blocks = std::max<Long>(SrcLen / kBlock, 0);
  const Long whole = std::min({blocks, WholeBlocks(Source), WholeBlocks(Result)});
  if (whole == blocks) {
    Run(OnePass(Zeroth(Key), Encipher), Zeroth(Source), Zeroth(Result),
        static_cast<std::size_t>(whole));
    return true;
  }
  // The key may stand in the result and be gone after the whole blocks.
  std::array<Byte, des::kBlockSize> key{};
  const WipeOnExit wipe(key);
  std::copy_n(Zeroth(Key), key.size(), key.begin());
  if (whole > 0) {
    Run(OnePass(key.data(), Encipher), Zeroth(Source), Zeroth(Result),
        static_cast<std::size_t>(whole));
  }
  CipherUntilFault(key.data(), View(Source), whole * kBlock, View(Result), Encipher);
  return true;
}

bool HasSubscripts(const ByteArray& array, Long count) noexcept {
  if (count <= 0) return true;
  return array.LowerBound() <= 0 && std::int64_t{array.LowerBound()} + array.Count() >= count;
}

std::span<const Byte> FromZero(const ByteArray& array, Long count) {
  return {Zeroth(array), static_cast<std::size_t>(count)};
}

std::span<Byte> FromZero(ByteArray& array, Long count) {
  return {Zeroth(array), static_cast<std::size_t>(count)};
}

void TripleDesCipherBlocks(DoubleDesKey key, std::span<const Byte> source, std::span<Byte> result,
                           bool encipher) {
  Run(ThreePasses(key.data(), encipher), source.data(), result.data(),
      source.size() / des::kBlockSize);
}

void DesChain(DesKey key, std::span<const Byte> message, DesBlock chain) {
  des::RunChain(des::ActiveKernelSet(), {OnePass(key.data(), true), message.data(), chain.data(),
                                         message.size() / des::kBlockSize});
}

void RetailChain(DoubleDesKey key, std::span<const Byte> message, DesBlock chain) {
  des::RunChain(des::ActiveKernelSet(), {ThreePasses(key.data(), true), message.data(),
                                         chain.data(), message.size() / des::kBlockSize});
}

}  // namespace vandpublic
