// The engine's border: subscripts are checked here, the kernels see plain memory.
#include "crypto/des_engine.h"

#include <algorithm>
#include <array>

#include "crypto/kernels/kernel_choice.h"
#include "runtime/wipe.h"

namespace vandpublic {
namespace {

using des::ChainJob;
using des::CipherJob;

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

// Jobs are filled in place: a list of passes that is returned and copied costs a fifth of a block.
void SetPass(des::PassList& passes, int p, const Byte* key, bool encipher) {
  passes.pass[p].key = key;
  passes.pass[p].encipher = encipher;
}

void SetOnePass(des::PassList& passes, const Byte* key, bool encipher) {
  SetPass(passes, 0, key, encipher);
  passes.count = 1;
}

void SetThreePasses(des::PassList& passes, const Byte* key, bool encipher) {
  SetPass(passes, 0, key, encipher);
  SetPass(passes, 1, key + des::kBlockSize, !encipher);
  SetPass(passes, 2, key, encipher);
  passes.count = 3;
}

void Cipher(const Byte* key, bool encipher, const Byte* source, Byte* result, std::size_t blocks) {
  CipherJob job;
  SetOnePass(job.passes, key, encipher);
  job.source = source;
  job.result = result;
  job.blocks = blocks;
  des::RunJob(des::ActiveKernelSet(), job);
}

void Chain(ChainJob& job, std::span<const Byte> message, DesBlock chain) {
  job.message = message.data();
  job.chain = chain.data();
  job.blocks = message.size() / des::kBlockSize;
  des::RunChain(des::ActiveKernelSet(), job);
}

// All whole blocks, then the one that is not whole in the source or the result: read byte by byte,
// written byte by byte, until a subscript fails.
void CipherUntilFault(const Byte* key, const ByteArray& source, ByteArray& result, bool encipher) {
  // The key may stand in the result and be gone after the whole blocks.
  std::array<Byte, des::kBlockSize> own_key{};
  const WipeOnExit wipe_key(own_key);
  std::copy_n(key, own_key.size(), own_key.begin());
  const Long whole = std::min(WholeBlocks(source), WholeBlocks(result));
  if (whole > 0) {
    Cipher(own_key.data(), encipher, Zeroth(source), Zeroth(result),
           static_cast<std::size_t>(whole));
  }
  std::array<Byte, des::kBlockSize> block{};
  const WipeOnExit wipe(block);
  for (Long i = 0; i < kBlock; ++i)
    block[static_cast<std::size_t>(i)] = source.At(whole * kBlock + i);
  Cipher(own_key.data(), encipher, block.data(), block.data(), 1);
  for (Long i = 0; i < kBlock; ++i)
    result.At(whole * kBlock + i) = block[static_cast<std::size_t>(i)];
}

}  // namespace

bool DesCipherBlocks(const ByteArray& Key, const ByteArray& Source, Integer SrcLen,
                     ByteArray& Result, bool Encipher) {
  if (SrcLen % kBlock != 0) return false;
  if (!HasSubscripts(Key, kBlock)) RaiseFault(FaultNumber::SubscriptOutOfRange);
  if (HasSubscripts(Source, SrcLen) && HasSubscripts(Result, SrcLen)) {
    const Long blocks = std::max<Long>(SrcLen / kBlock, 0);
    Cipher(Zeroth(Key), Encipher, Zeroth(Source), Zeroth(Result), static_cast<std::size_t>(blocks));
  } else {
    CipherUntilFault(Zeroth(Key), Source, Result, Encipher);
  }
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
  CipherJob job;
  SetThreePasses(job.passes, key.data(), encipher);
  job.source = source.data();
  job.result = result.data();
  job.blocks = source.size() / des::kBlockSize;
  des::RunJob(des::ActiveKernelSet(), job);
}

void DesChain(DesKey key, std::span<const Byte> message, DesBlock chain) {
  ChainJob job;
  SetOnePass(job.passes, key.data(), true);
  Chain(job, message, chain);
}

void RetailChain(DoubleDesKey key, std::span<const Byte> message, DesBlock chain) {
  ChainJob job;
  SetThreePasses(job.passes, key.data(), true);
  Chain(job, message, chain);
}

}  // namespace vandpublic
