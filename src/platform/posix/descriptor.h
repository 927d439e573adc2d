// An owned file descriptor.
#ifndef VANDPUBLIC_PLATFORM_POSIX_DESCRIPTOR_H
#define VANDPUBLIC_PLATFORM_POSIX_DESCRIPTOR_H

#include <unistd.h>

#include <utility>

namespace vandpublic {

class Descriptor {
 public:
  // Takes ownership; a negative value is none.
  explicit Descriptor(int value = -1) noexcept : value_(value) {}
  Descriptor(Descriptor&& other) noexcept : value_(std::exchange(other.value_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(value_, other.value_);
    return *this;
  }
  ~Descriptor() {
    if (value_ >= 0) close(value_);
  }

  explicit operator bool() const noexcept { return value_ >= 0; }
  int get() const noexcept { return value_; }
  // Gives the descriptor to the caller, who closes it or leaves it open.
  int Release() noexcept { return std::exchange(value_, -1); }

 private:
  int value_;
};

}  // namespace vandpublic

#endif
