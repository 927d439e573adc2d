// The published known answers for DES and triple DES, run through the members.
#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <map>
#include <string>
#include <vector>

#include "support/reference_des.h"
#include "support/slow_build.h"
#include "support/test_component.h"
#include "support/test_data.h"

namespace vandpublic {
namespace {

using Cipher = bool (clsPublic::*)(ByteArray&, ByteArray&, Integer&, ByteArray&,
                                   OptionalRef<String>);

ByteArray Through(clsPublic& object, Cipher cipher, ByteArray key, ByteArray source) {
  auto length = static_cast<Integer>(source.Count());
  ByteArray result = ByteArray::WithBounds(0, length - 1);
  EXPECT_TRUE((object.*cipher)(key, source, length, result, u""));
  return result;
}

class KnownAnswers : public testing::TestWithParam<const char*> {};

TEST_P(KnownAnswers, They_hold_in_both_directions_and_for_triple_DES_with_equal_keys) {
  TestComponent component;
  clsPublic& object = component.object;
  for (const auto& row : ReadTable(std::string("nist/") + GetParam())) {
    ASSERT_EQ(row.size(), 3u);
    SCOPED_TRACE(row[0] + " " + row[1]);
    const ByteArray key = FromHex(row[0]);
    const ByteArray plain = FromHex(row[1]);
    const ByteArray enciphered = FromHex(row[2]);
    const ByteArray equal_keys = FromHex(row[0] + row[0]);
    EXPECT_EQ(Hex(Through(object, &clsPublic::DES, key, plain)), Hex(enciphered));
    EXPECT_EQ(Hex(Through(object, &clsPublic::UDES, key, enciphered)), Hex(plain));
    EXPECT_EQ(Hex(Through(object, &clsPublic::DES3, equal_keys, plain)), Hex(enciphered));
    EXPECT_EQ(Hex(Through(object, &clsPublic::UDES3, equal_keys, enciphered)), Hex(plain));
    EXPECT_EQ(Hex(ReferenceEncipher(key, plain)), Hex(enciphered)) << "the data itself";
  }
}

INSTANTIATE_TEST_SUITE_P(Nist, KnownAnswers,
                         testing::Values("variable_plaintext.txt", "variable_key.txt",
                                         "permutation_operation.txt", "substitution_table.txt"),
                         [](const auto& one) {
                           const std::string name = one.param;
                           return name.substr(0, name.find('.'));
                         });

// The key of the variable plaintext test is weak: enciphering twice gives the plain text back. That
// is the inverse permutation test.
TEST(NistVectors, Enciphering_under_the_zero_key_twice_gives_each_basis_vector_back) {
  TestComponent component;
  for (const auto& row : ReadTable("nist/variable_plaintext.txt")) {
    EXPECT_EQ(Hex(Through(component.object, &clsPublic::DES, FromHex(row[0]), FromHex(row[2]))),
              Hex(FromHex(row[1])));
  }
}

TEST(NistVectors, Two_key_messages_of_one_to_ten_blocks_hold_in_both_directions) {
  TestComponent component;
  for (const auto& row : ReadTable("nist/two_key_messages.txt")) {
    const ByteArray key = FromHex(row[0]);
    const ByteArray plain = FromHex(row[1]);
    const ByteArray enciphered = FromHex(row[2]);
    EXPECT_EQ(Hex(Through(component.object, &clsPublic::DES3, key, plain)), Hex(enciphered));
    EXPECT_EQ(Hex(Through(component.object, &clsPublic::UDES3, key, enciphered)), Hex(plain));
    EXPECT_EQ(Hex(ReferenceEncipher(key, plain)), Hex(enciphered)) << "the data itself";
  }
}

// One step of a Monte Carlo chain: three keys, the first input and, where it is published, the
// last output.
struct ChainStep {
  std::array<ByteArray, 3> keys;
  ByteArray input;
  ByteArray output;
};

// A chain's published steps by their numbers.
using Chain = std::map<int, ChainStep>;

Chain ReadChain(const std::string& name) {
  Chain chain;
  bool inside = false;
  for (const auto& row : ReadTable("nist/monte_carlo.txt")) {
    if (row[0] == "chain") {
      inside = row[1] + "_" + row[2] == name;
    } else if (inside) {
      ChainStep& step = chain[row[0] == "start" ? 0 : std::stoi(row[0])];
      step = {{FromHex(row[1]), FromHex(row[2]), FromHex(row[3])}, FromHex(row[4]), {}};
      if (row.size() > 5) step.output = FromHex(row[5]);
    }
  }
  return chain;
}

// Outer steps that are run from the start of each chain; published steps further on are run one by
// one from their own keys and input. 64 take a few seconds; a whole chain has 400. A slow build
// runs one published step of each chain only.
constexpr int kStepsFromStart = kSlowBuild ? 0 : 64;
constexpr int kInnerSteps = 10000;

// Key bytes have an odd number of ones.
ByteArray NextKey(const ByteArray& key, const ByteArray& output) {
  ByteArray next = key;
  for (Long i = 0; i < 8; ++i) {
    const unsigned bits = (key.At(i) ^ output.At(i)) & 0xFEu;
    next.At(i) = static_cast<Byte>(bits | (std::popcount(bits) % 2 == 0 ? 1u : 0u));
  }
  return next;
}

// Runs blocks through the members. Three keys are three calls of DES and UDES, two one call of
// UDES3; all arrays are used again and again, as callers do.
class ChainRunner {
 public:
  explicit ChainRunner(const std::string& name)
      : two_keys_(name.starts_with("two")), encipher_(name.ends_with("_encipher")) {}

  // Runs the inner steps of one outer step, fills in its output and gives the next outer step.
  ChainStep Run(ChainStep& step) {
    std::array<ByteArray, 3> last;  // the latest output first
    ByteArray block = step.input;
    ByteArray double_key = step.keys[0];
    double_key.RedimensionPreserving(15);
    for (Long i = 0; i < 8; ++i)
      double_key.At(8 + i) = step.keys[1].At(i);
    for (int i = 0; i < kInnerSteps; ++i) {
      RunBlock(step.keys, double_key, block);
      last[2] = std::move(last[1]);
      last[1] = std::move(last[0]);
      last[0] = block;
    }
    step.output = block;
    ChainStep next{step.keys, block, {}};
    for (std::size_t k = 0; k < 3; ++k)
      next.keys[k] = NextKey(step.keys[k], last[k]);
    if (two_keys_) next.keys[2] = next.keys[0];
    return next;
  }

 private:
  void RunBlock(std::array<ByteArray, 3>& keys, ByteArray& double_key, ByteArray& block) {
    Integer length = 8;
    clsPublic& object = component_.object;
    if (two_keys_) {
      object.UDES3(double_key, block, length, block);
    } else if (encipher_) {
      object.DES(keys[0], block, length, block);
      object.UDES(keys[1], block, length, block);
      object.DES(keys[2], block, length, block);
    } else {
      object.UDES(keys[2], block, length, block);
      object.DES(keys[1], block, length, block);
      object.UDES(keys[0], block, length, block);
    }
  }

  bool two_keys_;
  bool encipher_;
  TestComponent component_;
};

void ExpectStep(const ChainStep& actual, const ChainStep& published) {
  for (std::size_t k = 0; k < 3; ++k)
    EXPECT_EQ(Hex(actual.keys[k]), Hex(published.keys[k])) << "key " << k + 1;
  EXPECT_EQ(Hex(actual.input), Hex(published.input));
  const bool has_output = published.output.IsDimensioned();
  EXPECT_EQ(has_output ? Hex(actual.output) : "", Hex(published.output));
}

class MonteCarlo : public testing::TestWithParam<const char*> {};

TEST_P(MonteCarlo, The_chain_passes_through_the_published_steps) {
  const Chain published = ReadChain(GetParam());
  ASSERT_TRUE(published.contains(0));
  ChainRunner runner(GetParam());
  ChainStep step = published.at(0);
  for (int number = 0; number < kStepsFromStart; ++number) {
    ChainStep next = runner.Run(step);
    if (published.contains(number)) {
      SCOPED_TRACE(number);
      ExpectStep(step, published.at(number));
    }
    step = std::move(next);
  }
  int run_alone = 0;
  for (auto later = published.lower_bound(kStepsFromStart); later != published.end(); ++later) {
    if (!later->second.output.IsDimensioned() || (kSlowBuild && run_alone == 1)) continue;
    SCOPED_TRACE(later->first);
    ChainStep single = later->second;
    runner.Run(single);
    ExpectStep(single, later->second);
    ++run_alone;
  }
  EXPECT_GT(run_alone, 0);
}

INSTANTIATE_TEST_SUITE_P(Nist, MonteCarlo,
                         testing::Values("three-key_encipher", "three-key_decipher",
                                         "two-key_decipher"),
                         [](const auto& one) {
                           std::string name = one.param;
                           name.replace(name.find('-'), 1, "_");
                           return name;
                         });

}  // namespace
}  // namespace vandpublic
