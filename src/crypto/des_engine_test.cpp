// The engine's border against the bit-by-bit model: bounds, aliasing, and what a failure leaves.
#include "crypto/des_engine.h"

#include <gtest/gtest.h>

#include <random>

#include "crypto/des_model.h"

namespace vandpublic {
namespace {

ByteArray RandomArray(std::mt19937& random, Long lower, Long count) {
  std::vector<Byte> bytes(static_cast<std::size_t>(count));
  for (Byte& byte : bytes)
    byte = static_cast<Byte>(random());
  return ByteArray(bytes, lower);
}

// The outcome of a call: its result or its fault, and the arrays afterwards.
struct Outcome {
  Long fault = 0;
  bool done = false;
  ByteArray key, source, result;

  bool operator==(const Outcome&) const = default;
};

enum class Alias { None, ResultIsSource, ResultIsKey, SourceIsKey };

template <class Call>
Outcome Try(ByteArray key, ByteArray source, ByteArray result, Alias alias, Call call) {
  Outcome outcome;
  ByteArray& in = alias == Alias::SourceIsKey ? key : source;
  ByteArray& out = alias == Alias::ResultIsSource ? in : alias == Alias::ResultIsKey ? key : result;
  try {
    outcome.done = call(key, in, out);
  } catch (const AutomationError& error) {
    outcome.fault = error.number();
  }
  outcome.key = std::move(key);
  outcome.source = std::move(source);
  outcome.result = std::move(result);
  return outcome;
}

TEST(DesEngine, Agrees_with_the_model_for_random_bounds_lengths_and_aliases) {
  std::mt19937 random(11);
  std::size_t faults = 0;
  for (int i = 0; i < 60'000; ++i) {
    const auto some = [&random](int below) { return static_cast<Long>(random()) % below; };
    const auto small_array = [&](Long size) {
      const Long lower = random() % 4 == 0 ? some(12) : -std::abs(some(6));
      const Long count = random() % 4 == 0 ? std::abs(some(60)) : size - lower;
      return RandomArray(random, random() % 2 == 0 ? 0 : lower, std::max<Long>(count, 0));
    };
    const auto length = static_cast<Integer>(random() % 8 == 0 ? some(70) : 8 * some(8));
    const ByteArray key = small_array(8);
    const ByteArray source = small_array(length);
    const ByteArray result = small_array(length);
    const auto alias = static_cast<Alias>(random() % 4);
    const bool encipher = random() % 2 == 0;

    const auto by_model = [&](ByteArray& k, ByteArray& s, ByteArray& r) {
      return des::CipherBlocks(View(std::as_const(k)), View(std::as_const(s)), length, View(r),
                               encipher);
    };
    const auto by_engine = [&](ByteArray& k, ByteArray& s, ByteArray& r) {
      return DesCipherBlocks(k, s, length, r, encipher);
    };
    const Outcome expected = Try(key, source, result, alias, by_model);
    ASSERT_TRUE(Try(key, source, result, alias, by_engine) == expected)
        << "length " << length << ", key from " << key.LowerBound() << ", source from "
        << source.LowerBound() << " " << source.Count() << " bytes, result from "
        << result.LowerBound() << " " << result.Count() << " bytes, alias "
        << static_cast<int>(alias);
    faults += expected.fault != 0;
  }
  EXPECT_GT(faults, 5'000u);
}

TEST(DesEngine, Writes_the_blocks_and_bytes_before_a_subscript_fault) {
  ByteArray key = {0x13, 0x34, 0x57, 0x79, 0x9B, 0xBC, 0xDF, 0xF1};
  const ByteArray source = ByteArray::WithBounds(0, 23);
  ByteArray result = ByteArray::WithBounds(0, 11);
  EXPECT_THROW(DesCipherBlocks(key, source, 24, result, true), AutomationError);
  ByteArray whole = ByteArray::WithBounds(0, 23);
  DesCipherBlocks(key, source, 24, whole, true);
  for (Long i = 0; i < 12; ++i)
    EXPECT_EQ(result.At(i), whole.At(i)) << i;
}

TEST(DesEngine, HasSubscripts_counts_from_zero_whatever_the_lower_bound) {
  EXPECT_TRUE(HasSubscripts(ByteArray::WithBounds(0, 7), 8));
  EXPECT_FALSE(HasSubscripts(ByteArray::WithBounds(0, 6), 8));
  EXPECT_TRUE(HasSubscripts(ByteArray::WithBounds(-3, 7), 8));
  EXPECT_FALSE(HasSubscripts(ByteArray::WithBounds(-3, 6), 8));
  EXPECT_FALSE(HasSubscripts(ByteArray::WithBounds(1, 20), 8));
  EXPECT_TRUE(HasSubscripts(ByteArray(), 0));
  EXPECT_FALSE(HasSubscripts(ByteArray(), 1));
}

}  // namespace
}  // namespace vandpublic
