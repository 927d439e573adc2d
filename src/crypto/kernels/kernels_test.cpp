// The cipher kernels against the bit-by-bit model and against each other.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "crypto/des_model.h"
#include "crypto/kernels/kernel_choice.h"

namespace vandpublic::des {
namespace {

using Key = std::array<Byte, 8>;
using Bytes = std::vector<Byte>;

constexpr Key kVectorKey = {0x13, 0x34, 0x57, 0x79, 0x9B, 0xBC, 0xDF, 0xF1};
constexpr Key kVectorPlain = {0x01, 0x23, 0x45, 0x67, 0x89, 0xAB, 0xCD, 0xEF};
constexpr Key kVectorCipher = {0x85, 0xE8, 0x13, 0x54, 0x0F, 0x0A, 0xB4, 0x05};

// Sanitizers and unoptimised builds do a twentieth of the random blocks.
#if defined(__OPTIMIZE__) && !defined(__SANITIZE_ADDRESS__)
constexpr std::size_t kShare = 1;
#else
constexpr std::size_t kShare = 20;
#endif

constexpr Key ByTheModel(const Key& key, Key block, bool encipher) {
  CipherBlocks(std::span<const Byte>(key), std::span<const Byte>(block), 8, std::span<Byte>(block),
               encipher);
  return block;
}
static_assert(ByTheModel(kVectorKey, kVectorPlain, true) == kVectorCipher);
static_assert(ByTheModel(kVectorKey, kVectorCipher, false) == kVectorPlain);

std::vector<const KernelSet*> UsableSets() {
  std::vector<const KernelSet*> sets;
  for (const KernelSet& set : AllKernelSets()) {
    if (set.usable()) sets.push_back(&set);
  }
  return sets;
}

// A random job: one to three passes of random keys and directions over random blocks.
struct Sample {
  std::array<Key, kMostPasses> keys;
  PassList passes;
  Bytes source;

  Sample(std::mt19937_64& random, std::size_t blocks) : source(8 * blocks) {
    const auto byte = [&random] { return static_cast<Byte>(random()); };
    for (Key& key : keys)
      std::generate(key.begin(), key.end(), byte);
    passes.count = static_cast<int>(1 + random() % kMostPasses);
    const bool two_keys = random() % 2 == 0;
    for (std::size_t p = 0; p < kMostPasses; ++p) {
      const Key& key = keys[two_keys && p == 2 ? 0 : p];
      passes.pass[p] = {key.data(), random() % 2 == 0};
    }
    for (std::size_t i = 0; i < source.size(); i += 8) {
      const std::uint64_t drawn = random();
      std::memcpy(&source[i], &drawn, 8);
    }
  }

  Bytes ByModel() const {
    Bytes result = source;
    for (int p = 0; p < passes.count; ++p) {
      const Pass& pass = passes.pass[p];
      CipherBlocks(std::span<const Byte>(pass.key, 8), std::span<const Byte>(result),
                   static_cast<Integer>(result.size()), std::span<Byte>(result), pass.encipher);
    }
    return result;
  }

  Bytes By(const KernelSet& set) const {
    Bytes result(source.size());
    RunJob(set, CipherJob{passes, source.data(), result.data(), source.size() / 8});
    return result;
  }
};

TEST(DesKernels, Every_set_passes_the_standards_vector) {
  for (const KernelSet* set : UsableSets()) {
    SCOPED_TRACE(set->name);
    for (const std::size_t blocks : {1u, 2u, 3u, 5u, 40u, 70u, 300u}) {
      Bytes bytes;
      for (std::size_t b = 0; b < blocks; ++b)
        bytes.insert(bytes.end(), kVectorPlain.begin(), kVectorPlain.end());
      RunJob(
          *set,
          CipherJob{{{{kVectorKey.data(), true}, {}, {}}, 1}, bytes.data(), bytes.data(), blocks});
      for (std::size_t b = 0; b < blocks; ++b) {
        ASSERT_TRUE(std::equal(kVectorCipher.begin(), kVectorCipher.end(), &bytes[8 * b])) << b;
      }
    }
  }
}

TEST(DesKernels, Every_set_agrees_with_the_model_on_random_jobs) {
  std::mt19937_64 random(1);
  const auto sets = UsableSets();
  std::size_t blocks_left = 500'000 / kShare;
  while (blocks_left != 0) {
    // Many short jobs, some of the longest kind.
    const std::size_t most = random() % 8 == 0 ? 4095 : random() % 2 == 0 ? 300 : 12;
    const std::size_t blocks = std::min(blocks_left, static_cast<std::size_t>(1 + random() % most));
    blocks_left -= blocks;
    const Sample sample(random, blocks);
    const Bytes expected = sample.ByModel();
    for (const KernelSet* set : sets) {
      ASSERT_EQ(sample.By(*set), expected) << set->name << ", " << blocks << " blocks";
    }
  }
}

TEST(DesKernels, All_sets_agree_with_each_other_on_ten_million_random_blocks) {
  std::mt19937_64 random(2);
  const auto sets = UsableSets();
  std::size_t blocks_left = 10'000'000 / kShare;
  while (blocks_left != 0) {
    const std::size_t blocks = std::min(blocks_left, static_cast<std::size_t>(1 + random() % 4095));
    blocks_left -= blocks;
    const Sample sample(random, blocks);
    const Bytes expected = sample.By(*sets.back());
    for (const KernelSet* set : sets) {
      ASSERT_EQ(sample.By(*set), expected) << set->name << ", " << blocks << " blocks";
    }
  }
}

TEST(DesKernels, Lengths_up_to_4096_bytes_at_every_alignment_leave_their_surroundings_alone) {
  std::mt19937_64 random(3);
  constexpr std::size_t kRoom = 64;
  for (std::size_t blocks = 1; blocks <= 512; ++blocks) {
    const Sample sample(random, blocks);
    const Bytes expected = sample.By(*UsableSets().back());
    const std::size_t in = random() % kRoom;
    const std::size_t out = blocks % kRoom;
    Bytes source(in + sample.source.size() + kRoom, 0xA5);
    std::copy(sample.source.begin(), sample.source.end(), &source[in]);
    for (const KernelSet* set : UsableSets()) {
      Bytes result(out + expected.size() + kRoom, 0x5A);
      RunJob(*set, CipherJob{sample.passes, &source[in], &result[out], blocks});
      Bytes whole(result.size(), 0x5A);
      std::copy(expected.begin(), expected.end(), &whole[out]);
      ASSERT_EQ(result, whole) << set->name << ", " << blocks << " blocks";
    }
  }
}

TEST(DesKernels, Result_may_be_the_source) {
  std::mt19937_64 random(4);
  for (const std::size_t blocks : {1u, 2u, 3u, 4u, 7u, 31u, 33u, 65u, 300u, 1000u, 4095u}) {
    const Sample sample(random, blocks);
    const Bytes expected = sample.ByModel();
    for (const KernelSet* set : UsableSets()) {
      Bytes bytes = sample.source;
      RunJob(*set, CipherJob{sample.passes, bytes.data(), bytes.data(), blocks});
      ASSERT_EQ(bytes, expected) << set->name << ", " << blocks << " blocks";
    }
  }
}

TEST(DesKernels, Keys_may_stand_in_the_result) {
  std::mt19937_64 random(5);
  for (const std::size_t blocks : {3u, 4u, 33u, 65u, 300u, 1001u}) {
    Sample sample(random, blocks);
    Bytes with_keys = sample.source;
    for (std::size_t p = 0; p < kMostPasses; ++p)
      std::copy(sample.keys[p].begin(), sample.keys[p].end(), &with_keys[8 * p]);
    sample.source = with_keys;
    const Bytes expected = sample.ByModel();
    for (const KernelSet* set : UsableSets()) {
      Bytes bytes = with_keys;
      PassList passes = sample.passes;
      for (std::size_t p = 0; p < kMostPasses; ++p) {
        const bool first = sample.passes.pass[p].key == sample.keys[0].data();
        passes.pass[p].key = &bytes[first ? 0 : 8 * p];
      }
      RunJob(*set, CipherJob{passes, bytes.data(), bytes.data(), blocks});
      ASSERT_EQ(bytes, expected) << set->name << ", " << blocks << " blocks";
    }
  }
}

TEST(DesKernels, Chains_agree_with_the_model) {
  std::mt19937_64 random(6);
  for (std::size_t blocks = 1; blocks <= 130; ++blocks) {
    const Sample sample(random, blocks);
    Key expected = {};
    for (std::size_t b = 0; b < blocks; ++b) {
      for (std::size_t i = 0; i < 8; ++i)
        expected[i] ^= sample.source[8 * b + i];
      const Pass& pass = sample.passes.pass[0];
      CipherBlocks(std::span<const Byte>(pass.key, 8), std::span<const Byte>(expected), 8,
                   std::span<Byte>(expected), pass.encipher);
    }
    for (int p = 1; p < sample.passes.count; ++p) {
      const Pass& pass = sample.passes.pass[p];
      CipherBlocks(std::span<const Byte>(pass.key, 8), std::span<const Byte>(expected), 8,
                   std::span<Byte>(expected), pass.encipher);
    }
    for (const KernelSet* set : UsableSets()) {
      Key chain = {};
      RunChain(*set, {sample.passes, sample.source.data(), chain.data(), blocks});
      ASSERT_EQ(chain, expected) << set->name << ", " << blocks << " blocks";
    }
  }
}

TEST(DesKernels, Parity_bits_of_the_key_do_not_count) {
  std::mt19937_64 random(7);
  Sample sample(random, 70);
  for (const KernelSet* set : UsableSets()) {
    const Bytes expected = sample.By(*set);
    for (Key& key : sample.keys) {
      for (Byte& byte : key)
        byte ^= 1;
    }
    EXPECT_EQ(sample.By(*set), expected) << set->name;
  }
}

TEST(DesKernels, Sets_have_different_names_and_begin_with_one_block) {
  std::set<std::string> names;
  for (const KernelSet& set : AllKernelSets()) {
    EXPECT_TRUE(names.insert(set.name).second) << set.name;
    ASSERT_FALSE(set.steps.empty()) << set.name;
    EXPECT_EQ(set.steps[0].from, 1u) << set.name;
    EXPECT_NE(set.chain->chain, nullptr) << set.name;
    EXPECT_TRUE(
        std::is_sorted(set.steps.begin(), set.steps.end(),
                       [](const KernelStep& a, const KernelStep& b) { return a.from < b.from; }));
  }
  EXPECT_TRUE(AllKernelSets().back().usable());
}

#if defined(__x86_64__)
TEST(DesKernels, This_processor_runs_the_sets_it_should) {
  EXPECT_NE(FindKernelSet("sse2"), nullptr);
  EXPECT_EQ(FindKernelSet("avx2") != nullptr, __builtin_cpu_supports("avx2") != 0);
  EXPECT_EQ(FindKernelSet("table-gfni") != nullptr,
            __builtin_cpu_supports("avx2") != 0 && __builtin_cpu_supports("gfni") != 0);
  EXPECT_EQ(FindKernelSet("bytes512") != nullptr,
            __builtin_cpu_supports("avx512vbmi") != 0 && __builtin_cpu_supports("gfni") != 0);
}
#endif

TEST(DesKernels, The_chosen_set_changes_kernels_with_the_number_of_blocks) {
  struct Case {
    const char* set;
    std::size_t blocks;
    const char* kernel;
  };
  constexpr Case kCases[] = {
      {"avx512", 1, "table-gfni"}, {"avx512", 8, "bytes256"}, {"avx512", 64, "bytes512"},
      {"avx2", 1, "table-avx2"},   {"avx2", 256, "bits256"},  {"sse2", 1, "table"},
      {"sse2", 128, "bits128"},    {"portable", 4, "table"},  {"portable", 64, "bits64"},
  };
  for (const Case& c : kCases) {
    const KernelSet* const set = FindKernelSet(c.set);
    if (set == nullptr) continue;
    EXPECT_STREQ(KernelFor(*set, c.blocks).name, c.kernel) << c.set << ", " << c.blocks;
  }
}

TEST(DesKernels, Unknown_set_is_not_found) {
  EXPECT_EQ(FindKernelSet("no such kernel"), nullptr);
  EXPECT_EQ(FindKernelSet(""), nullptr);
}

TEST(DesKernels, A_set_of_one_kernel_uses_it_for_every_length) {
  for (const KernelSet* set : UsableSets()) {
    if (std::string(set->steps[0].kernel->name) != set->name) continue;
    for (const std::size_t blocks : {1u, 2u, 30u, 64u, 256u, 4095u})
      EXPECT_STREQ(KernelFor(*set, blocks).name, set->name);
  }
}

// Run once for each name with VANDPUBLIC_DES_KERNEL set (CMakeLists.txt of this folder), and once
// without.
TEST(DesKernelChoice, The_environment_forces_the_set) {
  const char* const forced = std::getenv("VANDPUBLIC_DES_KERNEL");
  const KernelSet& active = ActiveKernelSet();
  if (forced != nullptr && FindKernelSet(forced) != nullptr) {
    EXPECT_STREQ(active.name, forced);
    return;
  }
  EXPECT_STREQ(active.name, UsableSets().front()->name);
  if (forced != nullptr && std::string(forced) != "no-such-kernel") {
    GTEST_SKIP() << "no kernel set " << forced << " in this build, or on this processor";
  }
}

}  // namespace
}  // namespace vandpublic::des
