// The port for the process-wide random generator.
#ifndef VANDPUBLIC_PLATFORM_RANDOM_H
#define VANDPUBLIC_PLATFORM_RANDOM_H

#include <cstdint>
#include <memory>

namespace vandpublic {

class RandomSource {
 public:
  virtual ~RandomSource() = default;

  // A uniform value in [0, 1), of at least 24 bits. Safe in any thread.
  virtual double Next() = 0;
  // Starts the sequence that belongs to the seed.
  virtual void Seed(std::uint64_t seed) = 0;
};

// A Mersenne Twister in its fixed initial state: every process starts with the same sequence. It
// is predictable by design; nothing may use it for keys that the host has not seeded well.
std::shared_ptr<RandomSource> MakeRandomSource();

}  // namespace vandpublic

#endif
