// The generator, the same on every system.
#include "platform/random.h"

#include <mutex>
#include <random>

namespace vandpublic {
namespace {

class TwisterSource final : public RandomSource {
 public:
  double Next() override {
    const std::lock_guard lock(mutex_);
    return static_cast<double>(generator_() >> kDroppedBits) * kUnit;
  }
  void Seed(std::uint64_t seed) override {
    const std::lock_guard lock(mutex_);
    generator_.seed(seed);
  }

 private:
  // 53 bits, which a double holds exactly.
  static constexpr int kDroppedBits = 64 - 53;
  static constexpr double kUnit = 1.0 / 9007199254740992.0;

  std::mutex mutex_;
  std::mt19937_64 generator_;
};

}  // namespace

std::shared_ptr<RandomSource> MakeRandomSource() { return std::make_shared<TwisterSource>(); }

}  // namespace vandpublic
